#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "BatchProgram.h"
#include "COrdinaryUser.h"
#include "CTemporaryFolder.h"
#include "TextFiles.h"
#include "WholeFile.h"

using support::COrdinaryUser;
using support::CTemporaryFolder;
using testing::HasSubstr;

namespace fs = std::filesystem;

namespace {

const std::string SHORT_SEARCH = NESTRIX_SAMPLES "/squares --population 5 --generations 1 --seed 1 --svg ";

/// No file may grow beyond one small block: what a full disk looks like to a program.
constexpr char const* FULL_DISK = "trap '' XFSZ; ulimit -f 1";

}  // namespace

TEST(WholeFile, ReplacesTheOldContent) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.svg", "old and longer");
    EXPECT_EQ(WriteWholeFile(path, "new"), "");
    EXPECT_EQ(ReadFile(path), "new");
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(WholeFile, KeepsTheRightsOfTheFileItReplaces) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.svg", "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(WriteWholeFile(path, "new"), "");
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST(WholeFile, GetsTheRightsThatTheUserGivesNewFiles) {
    const CTemporaryFolder folder;
    const mode_t nMask = umask(027);
    EXPECT_EQ(WriteWholeFile(folder.PathOf("a.svg"), "new"), "");
    umask(nMask);
    struct stat status = {};
    ASSERT_EQ(stat(folder.PathOf("a.svg").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST(WholeFile, GoesBehindASymbolicLink) {
    const CTemporaryFolder folder;
    const std::string target = folder.Write("target.svg", "old");
    fs::create_symlink(target, folder.PathOf("link.svg"));
    EXPECT_EQ(WriteWholeFile(folder.PathOf("link.svg"), "new"), "");
    EXPECT_TRUE(fs::is_symlink(folder.PathOf("link.svg")));
    EXPECT_EQ(ReadFile(target), "new");
}

TEST(WholeFile, LeavesADeviceADevice) {
    EXPECT_EQ(WriteWholeFile("/dev/null", "content"), "");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(WriteWholeFile("/dev/full", "content"), "No space left on device");
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(WholeFile, DoesNotWaitForTheReaderOfAPipe) {
    const CTemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.PathOf("pipe").c_str(), 0600), 0);
    EXPECT_EQ(WriteWholeFile(folder.PathOf("pipe"), "content"), "No such device or address");
}

TEST(WholeFile, ReachesTheReaderOfAPipeWhole) {
    const CTemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.PathOf("pipe").c_str(), 0600), 0);
    const int nReader = open(folder.PathOf("pipe").c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(WriteWholeFile(folder.PathOf("pipe"), "content"), "");
    char content[16] = {};
    EXPECT_EQ(read(nReader, content, sizeof content), 7);
    EXPECT_STREQ(content, "content");
    close(nReader);
}

TEST(WholeFile, CannotReplaceAFolder) {
    const CTemporaryFolder folder;
    EXPECT_EQ(FindOutputFault(folder.Path()), "Is a directory");
    EXPECT_NE(WriteWholeFile(folder.Path(), "content"), "");
}

TEST(WholeFile, IsRefusedInAnUnwritableFolder) {
    const CTemporaryFolder folder;
    fs::permissions(folder.Path(), fs::perms(0555));
    {
        const COrdinaryUser ordinaryUser;
        EXPECT_EQ(FindOutputFault(folder.PathOf("a.svg")), "Permission denied");
        EXPECT_EQ(WriteWholeFile(folder.PathOf("a.svg"), "content"), "Permission denied");
    }
    fs::permissions(folder.Path(), fs::perms(0700));
    EXPECT_EQ(EntryCount(folder.Path()), 0);
}

TEST(WholeFile, IsRefusedWhereAnUnwritableDeviceIs) {
    const CTemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.PathOf("pipe").c_str(), 0400), 0);
    fs::permissions(folder.Path(), fs::perms(0755));
    const COrdinaryUser ordinaryUser;
    EXPECT_EQ(FindOutputFault(folder.PathOf("pipe")), "Permission denied");
    EXPECT_EQ(WriteWholeFile(folder.PathOf("pipe"), "content"), "Permission denied");
}

TEST(PictureFile, InAFolderThatDoesNotExistFailsBeforeTheSearch) {
    const SBatchResult result = RunBatchProgram(SHORT_SEARCH + "/no/such/folder/packing.svg");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_EQ(result.m_Output, "");
    EXPECT_THAT(result.m_Errors, HasSubstr("/no/such/folder/packing.svg: No such file or directory"));
}

TEST(PictureFile, BelowAFileFails) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram(SHORT_SEARCH + folder.Write("file", "") + "/packing.svg");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Errors, HasSubstr("Not a directory"));
}

TEST(PictureFile, OnAFullDeviceFailsAfterTheResultIsPrinted) {
    const SBatchResult result = RunBatchProgram(SHORT_SEARCH + "/dev/full");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_NE(result.ValueOf("Best height: "), "");
    EXPECT_THAT(result.m_Errors, HasSubstr("cannot write /dev/full: No space left on device"));
}

TEST(PictureFile, OnAFullDiskLeavesTheOldPictureAndNothingElse) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("packing.svg", "old picture");
    const SBatchResult result = RunBatchProgram(SHORT_SEARCH + path, FULL_DISK);
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Errors, HasSubstr("cannot write " + path));
    EXPECT_EQ(ReadFile(path), "old picture");
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(PictureFile, MayBeStandardOutput) {
    const SBatchResult result = RunBatchProgram(SHORT_SEARCH + "/dev/stdout | cat");
    EXPECT_EQ(result.m_nStatus, 0);
}
