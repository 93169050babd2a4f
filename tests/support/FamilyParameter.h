#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <ostream>
#include <string>

#include "tests/support/Pieces.h"

namespace nestrix::support {

/// How a family shows in a test's output.
inline void PrintTo(const SFamily& family, std::ostream* pStream) {
    *pStream << family.m_Name;
}

/// The family's name in the form that a test's name allows: "loose boxes" becomes "LooseBoxes".
inline std::string FamilyTestName(const testing::TestParamInfo<SFamily>& info) {
    std::string name;
    bool bCapital = true;
    for (const char letter : info.param.m_Name) {
        const auto code = static_cast<unsigned char>(letter);
        if (std::isalpha(code) != 0) {
            name += static_cast<char>(bCapital ? std::toupper(code) : code);
        }
        bCapital = std::isalpha(code) == 0;
    }
    return name;
}

}  // namespace nestrix::support
