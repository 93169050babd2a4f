#include <gmock/gmock.h>

#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CTemporaryFolder;
using testing::HasSubstr;

namespace {

/// Two squares of 10 in a strip of 30, the second with its left side here.
std::string Pair(const std::string& x) {
    return R"({"strip": {"width": 30}, "pieces": [
        {"name": "left", "outline": [[0,0],[10,0],[10,10],[0,10]]},
        {"name": "right", "outline": [[0,0],[10,0],[10,10],[0,10]]}],
        "placements": [{"piece": 0, "x": 0, "y": 0}, {"piece": 1, "y": 0, "x": )" +
           x + "}]}";
}

}  // namespace

TEST(Certify, TellsHeightAndDensityOfAValidPacking) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.json", Pair("10"));
    const SBatchResult result = RunBatchProgram("certify " + path);
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_EQ(result.m_Output, path + ": valid, 2 pieces, height 10, density 66.67 %\n");
}

TEST(Certify, NamesThePairsThatOverlap) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.json", Pair("9.5"));
    const SBatchResult result = RunBatchProgram("certify " + path);
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Output, HasSubstr(path + ": not valid, 2 pieces"));
    EXPECT_THAT(result.m_Output, HasSubstr(path + ": placements 1 and 2 overlap by 0.5 (left, right)\n"));
}

TEST(Certify, NamesWhatReachesOutOfTheStrip) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram("certify " + folder.Write("a.json", Pair("25")));
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Output,
                HasSubstr("placement 2 reaches 5 out of the strip or into its margin (right)\n"));
}

TEST(Certify, LooksAtEveryPackingAndEndsWithTheWorst) {
    const CTemporaryFolder folder;
    const std::string valid = folder.Write("a.json", Pair("10"));
    const std::string invalid = folder.Write("b.json", Pair("9"));
    const std::string broken = folder.Write("c.json", "{");
    const SBatchResult result = RunBatchProgram("certify " + invalid + " " + broken + " " + valid);
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Output, HasSubstr(valid + ": valid"));
    EXPECT_THAT(result.m_Output, HasSubstr(invalid + ": not valid"));
    EXPECT_THAT(result.m_Errors, HasSubstr(broken + ":1: "));
    EXPECT_EQ(RunBatchProgram("certify " + valid + " " + invalid).m_nStatus, 1);
    EXPECT_EQ(RunBatchProgram("certify /no/such.json").m_nStatus, 2);
}

}  // namespace nestrix
