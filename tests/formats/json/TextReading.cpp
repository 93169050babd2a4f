#include "tests/formats/json/TextReading.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace nestrix::support {

std::string ListOf(const std::vector<SFinding>& findings) {
    std::string list;
    for (const SFinding& finding : findings) {
        list += std::to_string(finding.m_nLine) + ": " + finding.m_Message + "\n";
    }
    return list;
}

void PrintTo(const STextFault& fault, std::ostream* pStream) {
    *pStream << fault.m_Other;
}

std::string FaultTestName(const testing::TestParamInfo<STextFault>& info) {
    std::string name = std::to_string(info.index) + "_";
    std::copy_if(info.param.m_Other.begin(), info.param.m_Other.end(), std::back_inserter(name),
                 [](unsigned char c) { return c < 0x80 && std::isalnum(c) != 0; });
    return name;
}

std::string Replaced(std::string text, const std::string& part, const std::string& other) {
    const size_t nAt = text.find(part);
    EXPECT_NE(nAt, std::string::npos) << part;
    return nAt == std::string::npos ? text : text.replace(nAt, part.size(), other);
}

}  // namespace nestrix::support
