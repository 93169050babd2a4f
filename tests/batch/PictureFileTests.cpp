#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CountOf;
using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;
using support::Repeated;
using support::SquareFile;
using testing::HasSubstr;

namespace fs = std::filesystem;

namespace {

const std::string SHORT_SEARCH =
    "--method drop " NESTRIX_SAMPLES "/squares --population 5 --generations 1 --seed 1 --svg ";

/// No file may grow beyond one small block: what a full disk looks like to a program.
constexpr char const* FULL_DISK = "trap '' XFSZ; ulimit -f 1";

/// There is room for something, but not for a picture of many pieces.
constexpr char const* NEARLY_FULL_DISK = "trap '' XFSZ; ulimit -f 16";
const std::string LARGE_PICTURE =
    "--method drop " NESTRIX_SAMPLES "/large --population 2 --generations 0 --seed 1 --svg ";

}  // namespace

TEST(PictureFile, InAFolderThatDoesNotExistFailsBeforeTheSearch) {
    const SBatchResult result = RunBatchProgram(SHORT_SEARCH + "/no/such/folder/packing.svg");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_EQ(result.m_Output, "");
    EXPECT_THAT(result.m_Errors, HasSubstr("/no/such/folder/packing.svg: No such file or directory"));
}

TEST(PictureFile, InAPipeThatNobodyReadsFailsBeforeTheSearch) {
    const CTemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.PathOf("pipe").c_str(), 0600), 0);
    const SBatchResult result = RunBatchProgram(SHORT_SEARCH + folder.PathOf("pipe"));
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_EQ(result.m_Output, "");
}

TEST(PictureFile, ReachesTheReaderOfAPipeAfterTheSearch) {
    const CTemporaryFolder folder;
    const std::string pipe = folder.PathOf("pipe");
    const std::string got = folder.PathOf("got.svg");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    // Opened for both first, so that the reader is there when the program begins.
    const SBatchResult result = RunBatchProgram(
        "--method drop " NESTRIX_SAMPLES "/squares --quiet --population 20 --generations 5 --seed 7 --svg " +
            pipe + "; exec 3>&-; wait",
        "exec 3<>" + pipe + "; cat <" + pipe + " >" + got + " 3>&- & ");
    EXPECT_EQ(result.m_Errors, "");
    EXPECT_EQ(ReadFile(got), ReadFile("golden/squares.svg"));
}

/// A pipe gets the first free number, which must not be that of a stream that lines are printed on.
TEST(PictureFile, GetsNoLinesWhereStandardOutputAndErrorAreClosed) {
    const CTemporaryFolder folder;
    const std::string pipe = folder.PathOf("pipe");
    const std::string got = folder.PathOf("got.svg");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (char const* const pClosed : {">&-", "2>&-", "<&- >&- 2>&-"}) {
        // Stopped, so that there is something to be said on standard error meanwhile.
        (void)RunBatchProgram(
            "--method drop " NESTRIX_SAMPLES "/squares --generations 1000000000 --seed 7 --svg " + pipe +
                " " + pClosed + " & p=$!; sleep 0.5; kill -TERM $p; wait $p; exec 3>&-; wait",
            "exec 3<>" + pipe + "; cat <" + pipe + " >" + got + " 3>&- & ");
        EXPECT_TRUE(ReadFile(got).starts_with("<?xml")) << pClosed;
        EXPECT_TRUE(ReadFile(got).ends_with("</svg>\n")) << pClosed;
        EXPECT_EQ(CountOf("stopped", ReadFile(got)), 0) << pClosed;
    }
}

TEST(PictureFile, IsWaitedForWhereThePipesReaderIsSlow) {
    const CTemporaryFolder folder;
    const std::string pipe = folder.PathOf("pipe");
    const std::string got = folder.PathOf("got.svg");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    // More than fits into a pipe.
    const SBatchResult result = RunBatchProgram(
        "--method drop " + Repeated(NESTRIX_SAMPLES "/large", 4) +
            "--quiet --population 2 --generations 0 --seed 1 --svg " + pipe + "; exec 3>&-; wait",
        "exec 3<>" + pipe + "; (sleep 1; cat) <" + pipe + " >" + got + " 3>&- & ");
    EXPECT_EQ(result.m_Errors, "");
    EXPECT_TRUE(ReadFile(got).ends_with("</svg>\n"));
}

TEST(PictureFile, OnAFullDiskFailsBeforeTheSearchAndLeavesTheOldPictureAndNothingElse) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("packing.svg", "old picture");
    const SBatchResult result = RunBatchProgram(SHORT_SEARCH + path, FULL_DISK);
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_EQ(result.m_Output, "");
    EXPECT_THAT(result.m_Errors, HasSubstr("cannot write " + path + ": File too large"));
    EXPECT_EQ(ReadFile(path), "old picture");
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(PictureFile, OnADiskThatGetsFullFailsAfterTheResultIsPrinted) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("packing.svg", "old picture");
    const SBatchResult result = RunBatchProgram(LARGE_PICTURE + path, NEARLY_FULL_DISK);
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_NE(result.ValueOf("Best height: "), "");
    EXPECT_THAT(result.m_Errors, HasSubstr("cannot write " + path + ": File too large"));
    EXPECT_EQ(ReadFile(path), "old picture");
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(PictureFile, BeyondTheLargestSizeOfAFileDoesNotKillTheProgram) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram(LARGE_PICTURE + folder.PathOf("packing.svg"), "ulimit -f 16");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Errors, HasSubstr("File too large"));
    EXPECT_EQ(EntryCount(folder.Path()), 0);
}

TEST(PictureFile, InPlaceOfOneOfItsPolygonsIsRefused) {
    const CTemporaryFolder folder;
    const std::string square = SquareFile(10.0F);
    const std::string polygon = folder.Write("a.pol", square);
    fs::create_symlink(polygon, folder.PathOf("link"));
    fs::create_hard_link(polygon, folder.PathOf("twin"));
    for (char const* const pName : {"a.pol", "link", "twin"}) {
        for (const std::string& input : {polygon, folder.Path().native()}) {
            const SBatchResult result = RunBatchProgram(input + " --svg " + folder.PathOf(pName));
            EXPECT_EQ(result.m_nStatus, 2);
            EXPECT_EQ(result.m_Output, "");
            EXPECT_THAT(result.m_Errors, HasSubstr(" would take the place of " + polygon));
            EXPECT_EQ(ReadFile(polygon), square);
        }
    }
}

TEST(PictureFile, ThatIsStandardOutputsFileFollowsTheLines) {
    const CTemporaryFolder folder;
    const std::string path = folder.PathOf("all");
    const std::string search =
        "--method drop " NESTRIX_SAMPLES "/squares --population 20 --generations 5 --seed 7 --svg ";
    fs::create_symlink("/proc/self/fd/1", folder.PathOf("stdout"));
    EXPECT_EQ(RunBatchProgram(search + folder.PathOf("stdout") + " >" + path).m_nStatus, 0);
    EXPECT_THAT(ReadFile(path), testing::StartsWith(ReadFile("golden/squares.txt")));
    EXPECT_THAT(ReadFile(path), testing::EndsWith(ReadFile("golden/squares.svg")));
}

TEST(PictureFile, MayBeAPipeThatIsStandardOutput) {
    const CTemporaryFolder folder;
    fs::create_symlink("/proc/self/fd/1", folder.PathOf("stdout"));
    CRunningBatch batch(SHORT_SEARCH + folder.PathOf("stdout"));
    EXPECT_EQ(batch.WaitForEnd(), 0);
    EXPECT_TRUE(batch.Output().starts_with("Newly Created 5\n"));
    EXPECT_TRUE(batch.Output().ends_with("</svg>\n"));
}

}  // namespace nestrix
