#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <ostream>
#include <sstream>

#include "ga/CContainer.h"
#include "tests/ga/GoldenHistories.h"

namespace nestrix {

// A difference here means that searches no longer find what they found before. If that is meant, write the
// files anew (see the program nestrix_write_golden_histories) and say in the commit why.

void PrintTo(const SGoldenCase& goldenCase, std::ostream* pStream) {
    *pStream << goldenCase.m_Name;
}

namespace {

std::string KeptHistory(const std::string& name) {
    std::ifstream file(NESTRIX_GOLDEN_FOLDER "/" + name + ".txt");
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class GoldenHistory : public testing::TestWithParam<SGoldenCase> {
protected:
    void TearDown() override { g_MutationProbability = 0.01F; }
};

TEST_P(GoldenHistory, IsRepeatedToTheLastBit) {
    const std::string kept = KeptHistory(GetParam().m_Name);
    ASSERT_FALSE(kept.empty()) << "the kept history is missing";
    EXPECT_EQ(RunGoldenCase(GetParam()), kept);
}

TEST_P(GoldenHistory, IsThatOfThePlainReference) {
    EXPECT_EQ(reference::FindSearchDifference(GetParam().m_Search), "");
}

INSTANTIATE_TEST_SUITE_P(All, GoldenHistory, testing::ValuesIn(GoldenCases()), [](const auto& test) {
    std::string name = test.param.m_Name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

}  // namespace

}  // namespace nestrix
