#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "formats/json/CJsonDocument.h"
#include "formats/json/SReading.h"

namespace nestrix {

/// Collects what is wrong with the values of one file.
class CJsonFindings {
public:
    explicit CJsonFindings(std::string file) : m_File(std::move(file)) {}

    /// A fault of the value, such as "is not a number above 0": it is named with its place in front.
    void Refuse(const CJsonValue& value, const std::string& what);

    /// A fault that is not about the value itself but about what is to be there.
    void Miss(const CJsonValue& at, const std::string& message);

    [[nodiscard]] bool IsSound() const { return m_Findings.empty(); }

    /// The value with what was found, or without a value where it was refused.
    template <class T>
    [[nodiscard]] SReading<T> Sum(T value) {
        if (!IsSound()) {
            return {std::nullopt, std::move(m_Findings)};
        }
        return {std::move(value), {}};
    }

private:
    std::string m_File;
    std::vector<SFinding> m_Findings;
};

}  // namespace nestrix
