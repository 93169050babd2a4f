#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "formats/CWholeFile.h"
#include "tests/support/COrdinaryUser.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::COrdinaryUser;
using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;

namespace fs = std::filesystem;

namespace {

/// Says why a file cannot be written, before or after the attempt; empty if it was written.
std::string WriteFile(const std::string& path, std::string_view content) {
    CWholeFile file(path);
    return file.Fault().empty() ? file.Write(content) : file.Fault();
}

std::string FaultOf(const std::string& path) {
    return CWholeFile(path).Fault();
}

bool g_bDiskFailsLate = false;

}  // namespace

extern "C" {

int __real_fsync(int nDescriptor);

/// As on a disk that takes all in, and keeps nothing.
int __wrap_fsync(int nDescriptor) {
    if (g_bDiskFailsLate) {
        errno = EIO;
        return -1;
    }
    return __real_fsync(nDescriptor);
}
}

TEST(WholeFile, ReplacesTheOldContent) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.svg", "old and longer");
    EXPECT_EQ(WriteFile(path, "new"), "");
    EXPECT_EQ(ReadFile(path), "new");
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(WholeFile, KeepsTheOldContentUntilTheNewIsOnTheDisk) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.svg", "old");
    g_bDiskFailsLate = true;
    EXPECT_EQ(WriteFile(path, "new"), "Input/output error");
    g_bDiskFailsLate = false;
    EXPECT_EQ(ReadFile(path), "old");
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(WholeFile, KeepsTheRightsOfTheFileItReplaces) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.svg", "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(WriteFile(path, "new"), "");
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST(WholeFile, GetsTheRightsThatTheUserGivesNewFiles) {
    const CTemporaryFolder folder;
    const mode_t nMask = umask(027);
    EXPECT_EQ(WriteFile(folder.PathOf("a.svg"), "new"), "");
    EXPECT_EQ(umask(nMask), 027U) << "the user's choice was changed";
    struct stat status = {};
    ASSERT_EQ(stat(folder.PathOf("a.svg").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST(WholeFile, GoesBehindASymbolicLink) {
    const CTemporaryFolder folder;
    const std::string target = folder.Write("target.svg", "old");
    fs::create_symlink(target, folder.PathOf("link.svg"));
    EXPECT_EQ(WriteFile(folder.PathOf("link.svg"), "new"), "");
    EXPECT_TRUE(fs::is_symlink(folder.PathOf("link.svg")));
    EXPECT_EQ(ReadFile(target), "new");
}

TEST(WholeFile, GoesBehindALinkToAFileThatDoesNotExistYet) {
    const CTemporaryFolder folder;
    fs::create_directory(folder.PathOf("inner"));
    fs::create_symlink("inner/second.svg", folder.PathOf("link.svg"));
    fs::create_symlink("../target.svg", folder.PathOf("inner/second.svg"));
    EXPECT_EQ(WriteFile(folder.PathOf("link.svg"), "new"), "");
    EXPECT_TRUE(fs::is_symlink(folder.PathOf("link.svg")));
    EXPECT_TRUE(fs::is_symlink(folder.PathOf("inner/second.svg")));
    EXPECT_EQ(ReadFile(folder.PathOf("target.svg")), "new");
}

TEST(WholeFile, GoesBehindALinkWithAWholePathToo) {
    const CTemporaryFolder folder;
    fs::create_symlink(folder.PathOf("target.svg"), folder.PathOf("link.svg"));
    EXPECT_EQ(WriteFile(folder.PathOf("link.svg"), "new"), "");
    EXPECT_TRUE(fs::is_symlink(folder.PathOf("link.svg")));
    EXPECT_EQ(ReadFile(folder.PathOf("target.svg")), "new");
}

TEST(WholeFile, CannotBeALinkToItselfOrIntoNowhere) {
    const CTemporaryFolder folder;
    fs::create_symlink("loop.svg", folder.PathOf("loop.svg"));
    fs::create_symlink("no/such/folder.svg", folder.PathOf("astray.svg"));
    EXPECT_EQ(FaultOf(folder.PathOf("loop.svg")), "Too many levels of symbolic links");
    EXPECT_EQ(FaultOf(folder.PathOf("astray.svg")), "No such file or directory");
    EXPECT_EQ(EntryCount(folder.Path()), 2);
}

// Devices are tried without the rights of root: a mistake would replace those of the whole machine.

TEST(WholeFile, LeavesADeviceADevice) {
    const COrdinaryUser ordinaryUser;
    EXPECT_EQ(WriteFile("/dev/null", "content"), "");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(WholeFile, IsRefusedBeforehandOnAFullDevice) {
    const COrdinaryUser ordinaryUser;
    EXPECT_EQ(FaultOf("/dev/full"), "No space left on device");
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(WholeFile, IsRefusedBeforehandWhereItsNameIsTooLong) {
    const CTemporaryFolder folder;
    EXPECT_EQ(FaultOf(folder.PathOf(std::string(300, 'x'))), "File name too long");
    fs::create_symlink(std::string(300, 'x'), folder.PathOf("link.svg"));
    EXPECT_EQ(FaultOf(folder.PathOf("link.svg")), "File name too long");
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(WholeFile, MakesNothingBeforeItIsWritten) {
    const CTemporaryFolder folder;
    const CWholeFile file(folder.PathOf("a.svg"));
    EXPECT_EQ(file.Fault(), "");
    EXPECT_EQ(EntryCount(folder.Path()), 0);
}

TEST(WholeFile, KnowsWhichFileItWouldReplace) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.svg", "old");
    const std::string other = folder.Write("b.svg", "old");
    fs::create_symlink(path, folder.PathOf("link.svg"));
    EXPECT_TRUE(CWholeFile(path).WouldReplace(path));
    EXPECT_TRUE(CWholeFile(path).WouldReplace(folder.PathOf("link.svg")));
    EXPECT_TRUE(CWholeFile(folder.PathOf("link.svg")).WouldReplace(path));
    EXPECT_FALSE(CWholeFile(path).WouldReplace(other));
    EXPECT_FALSE(CWholeFile(path).WouldReplace(folder.PathOf("missing.svg")));
    EXPECT_FALSE(CWholeFile(folder.PathOf("new.svg")).WouldReplace(path));
    const COrdinaryUser ordinaryUser;
    EXPECT_FALSE(CWholeFile("/dev/null").WouldReplace("/dev/null"));
}

TEST(WholeFile, DoesNotWaitForTheReaderOfAPipe) {
    const CTemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.PathOf("pipe").c_str(), 0600), 0);
    EXPECT_EQ(FaultOf(folder.PathOf("pipe")), "No such device or address");
}

TEST(WholeFile, ReachesTheReaderOfAPipeWhole) {
    const CTemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.PathOf("pipe").c_str(), 0600), 0);
    const int nReader = open(folder.PathOf("pipe").c_str(), O_RDONLY | O_NONBLOCK);
    CWholeFile file(folder.PathOf("pipe"));
    char nothing = 0;
    EXPECT_EQ(read(nReader, &nothing, 1), -1) << "the reader must not take the check for the end";
    EXPECT_EQ(file.Write("content"), "");
    char content[16] = {};
    EXPECT_EQ(read(nReader, content, sizeof content), 7);
    EXPECT_STREQ(content, "content");
    close(nReader);
}

TEST(WholeFile, CannotReplaceAFolder) {
    const CTemporaryFolder folder;
    EXPECT_EQ(FaultOf(folder.Path()), "Is a directory");
    EXPECT_NE(WriteFile(folder.Path(), "content"), "");
}

TEST(WholeFile, DoesNotReplaceAProtectedFile) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.svg", "old");
    fs::permissions(folder.Path(), fs::perms::all);
    fs::permissions(path, fs::perms(0444));
    const COrdinaryUser ordinaryUser;
    EXPECT_EQ(WriteFile(path, "new"), "Permission denied");
    EXPECT_EQ(ReadFile(path), "old");
}

TEST(WholeFile, IsRefusedInAnUnwritableFolder) {
    const CTemporaryFolder folder;
    fs::permissions(folder.Path(), fs::perms(0555));
    {
        const COrdinaryUser ordinaryUser;
        EXPECT_EQ(FaultOf(folder.PathOf("a.svg")), "Permission denied");
        EXPECT_EQ(WriteFile(folder.PathOf("a.svg"), "content"), "Permission denied");
    }
    fs::permissions(folder.Path(), fs::perms(0700));
    EXPECT_EQ(EntryCount(folder.Path()), 0);
}

TEST(WholeFile, IsRefusedWhereAnUnwritableDeviceIs) {
    const CTemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.PathOf("pipe").c_str(), 0400), 0);
    fs::permissions(folder.Path(), fs::perms(0755));
    const COrdinaryUser ordinaryUser;
    EXPECT_EQ(FaultOf(folder.PathOf("pipe")), "Permission denied");
    EXPECT_EQ(WriteFile(folder.PathOf("pipe"), "content"), "Permission denied");
}

}  // namespace nestrix
