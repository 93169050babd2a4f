#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <string>

#include "batch/OptionValues.h"

namespace nestrix {

/// Adds options that a command's help lists together.
class COptionGroup {
public:
    /// @param pName what the help says above them; it tells them from the others, too.
    COptionGroup(CLI::App& app, char const* pName) : m_App(app), m_pName(pName) {}

    /// @param pType what the help calls a value.
    /// @param value takes what was read; it outlives the parsing. So in all of these.
    template <class T, class TValue>
    void Add(const std::string& name, char const* pType, TValue& value, const SValueKind<T>& kind,
             const std::string& description) const {
        AddOption(m_App, name, value, kind, description)->type_name(pType)->group(m_pName);
    }

    template <class TValue>
    CLI::Option* AddWholeNumber(const std::string& name, char const* pType, TValue& value, uint64_t nLeast,
                                uint64_t nMost, const std::string& description) const {
        return m_App.add_option(name, value, description)
            ->transform(WholeNumber(nLeast, nMost))
            ->type_name(pType)
            ->group(m_pName);
    }

    void AddFlag(const std::string& name, bool& bValue, const std::string& description) const {
        m_App.add_flag(name, bValue, description)->group(m_pName);
    }

private:
    CLI::App& m_App;
    char const* m_pName;
};

}  // namespace nestrix
