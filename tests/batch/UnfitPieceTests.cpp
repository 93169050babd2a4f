#include <gmock/gmock.h>

#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CountOf;
using support::CTemporaryFolder;
using support::EntryCount;
using support::SquareFile;
using testing::HasSubstr;
using testing::Not;

TEST(UnfitPieces, AreAllNamedWithTheReasonBeforeAnySearch) {
    const CTemporaryFolder folder;
    const std::string wide = folder.Write("wide.pol", SquareFile(500.0F));
    const std::string flat = folder.Write("flat.pol", "3\n0,0\n5,0\n9,0\n;9,0\n0,0\n");
    const std::string sound = folder.Write("sound.pol", SquareFile(20.0F));
    const SBatchResult result =
        RunBatchProgram(folder.Path().native() + " --svg " + folder.PathOf("packing.svg"));
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_EQ(result.m_Output, "");
    EXPECT_THAT(result.m_Errors, HasSubstr("nestrix-batch: " + wide + ":2: "));
    EXPECT_THAT(result.m_Errors, HasSubstr("nestrix-batch: " + flat + ":2: "));
    EXPECT_THAT(result.m_Errors, Not(HasSubstr(sound)));
    EXPECT_EQ(CountOf("\n", result.m_Errors), 2);
    EXPECT_EQ(EntryCount(folder.Path()), 3);
}

TEST(UnfitPieces, AreThoseThatTheMarginLeavesNoRoomFor) {
    const CTemporaryFolder folder;
    const std::string options = " --width 25 --steps 0 --margin ";
    const std::string pieces =
        folder.Write("a.pol", SquareFile(20.0F)) + " " + folder.Write("b.pol", SquareFile(9.0F));
    EXPECT_EQ(RunBatchProgram(pieces + options + "2.5").m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram(pieces + options + "2.6").m_nStatus, 2);
}

TEST(UnfitPieces, AreThoseThatFitInNoTurnAllowed) {
    const CTemporaryFolder folder;
    const std::string bar = folder.Write("bar.pol", "4\n0,0\n50,0\n50,9\n0,9\n;50,9\n0,0\n");
    const std::string search = bar + " " + bar + " --width 20 --steps 0 ";
    EXPECT_EQ(RunBatchProgram(search).m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram(search + "--turns 0,180").m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram(search + "--turns 0,90").m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram(search + "--turns any").m_nStatus, 0);
}

}  // namespace nestrix
