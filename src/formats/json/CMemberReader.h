#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/json/CJsonFindings.h"
#include "formats/json/ValueKinds.h"

namespace nestrix {

/// Reads the members of one object by their names. What is not there is nothing; what is at fault is nothing,
/// too, and among the findings.
class CMemberReader {
public:
    /// A value that is no object is at fault, and has no members.
    CMemberReader(const CJsonValue& object, CJsonFindings& findings);

    [[nodiscard]] std::optional<CJsonValue> Find(std::string_view name);

    /// The same, but it is a fault not to be there.
    [[nodiscard]] std::optional<CJsonValue> Demand(std::string_view name);

    [[nodiscard]] std::optional<double> Number(std::string_view name, const json::SNumberKind& kind);
    [[nodiscard]] std::optional<uint64_t> Whole(std::string_view name, uint64_t nLeast, uint64_t nMost);
    [[nodiscard]] std::optional<int> Int(std::string_view name, int nLeast, int nMost);  ///< neither below 0
    [[nodiscard]] std::optional<bool> Flag(std::string_view name);
    [[nodiscard]] std::optional<std::string> Text(std::string_view name);
    [[nodiscard]] std::optional<EUnit> Unit(std::string_view name);
    [[nodiscard]] std::optional<STurns> Turns(std::string_view name);
    [[nodiscard]] std::optional<CRing> Ring(std::string_view name);
    [[nodiscard]] std::optional<std::vector<CRing>> Rings(std::string_view name);

    /// One of some words.
    template <class T, size_t nCount>
    [[nodiscard]] std::optional<T> Named(std::string_view name, const CNamedValues<T, nCount>& names) {
        const std::optional<CJsonValue> found = Find(name);
        return found ? json::ReadNamed(*found, names, m_Findings) : std::nullopt;
    }

    /// Refuses every member that was not asked for until now, with the name that may have been meant.
    void RefuseOthers();

private:
    CJsonValue m_Object;
    CJsonFindings& m_Findings;
    std::vector<std::string_view> m_Asked;
};

}  // namespace nestrix
