#include "tests/formats/json/TextReading.h"

#include <gtest/gtest.h>

namespace nestrix::support {

std::string ListOf(const std::vector<SFinding>& findings) {
    std::string list;
    for (const SFinding& finding : findings) {
        list += std::to_string(finding.m_nLine) + ": " + finding.m_Message + "\n";
    }
    return list;
}

std::string Replaced(std::string text, const std::string& part, const std::string& other) {
    const size_t nAt = text.find(part);
    EXPECT_NE(nAt, std::string::npos) << part;
    return nAt == std::string::npos ? text : text.replace(nAt, part.size(), other);
}

}  // namespace nestrix::support
