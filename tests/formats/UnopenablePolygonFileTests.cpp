#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "formats/PolygonFile.h"
#include "tests/support/COrdinaryUser.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

using support::CTemporaryFolder;

/// What reading the path prints, and whether it succeeded: it must not.
std::string PrintedByFailure(const std::string& path) {
    CPolygon polygon = support::MakeSquare(20);
    std::string printed = support::PrintedBy([&] { EXPECT_FALSE(polygon.ReadPolygon(path.c_str())); });
    EXPECT_EQ(polygon, support::MakeSquare(20)) << "the polygon was touched";
    return printed;
}

TEST(MissingFile, IsNamed) {
    const CTemporaryFolder folder;
    const std::string path = folder.PathOf("missing.pol");
    EXPECT_EQ(PrintedByFailure(path), "Couldn't read polyon file " + path + "\n");
    EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Fault, "No such file or directory");
}

TEST(Folder, IsNoPolygonFile) {
    const CTemporaryFolder folder;
    const std::string path = folder.Path();
    EXPECT_EQ(PrintedByFailure(path), "Couldn't read polyon file " + path + "\n");
    EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Fault, "not a regular file");
}

TEST(NamedPipe, IsNoPolygonFileAndNobodyWaitsForItsWriter) {
    const CTemporaryFolder folder;
    const std::string path = folder.PathOf("pipe.pol");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(PrintedByFailure(path), "Couldn't read polyon file " + path + "\n");
    EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Fault, "not a regular file");
}

TEST(EndlessDevice, IsNoPolygonFile) {
    EXPECT_EQ(PrintedByFailure("/dev/zero"), "Couldn't read polyon file /dev/zero\n");
    EXPECT_EQ(ReadPolygonFile("/dev/zero").m_Fault, "not a regular file");
}

TEST(UnreadableFile, IsNamed) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("secret.pol", "3 0,0 9,0 9,9 ;9,9 0,0");
    ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    const support::COrdinaryUser ordinary;
    EXPECT_EQ(PrintedByFailure(path), "Couldn't read polyon file " + path + "\n");
    EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Fault, "Permission denied");
}

TEST(LinkToItself, IsNamed) {
    const CTemporaryFolder folder;
    const std::string path = folder.PathOf("loop.pol");
    ASSERT_EQ(symlink("loop.pol", path.c_str()), 0);
    EXPECT_EQ(PrintedByFailure(path), "Couldn't read polyon file " + path + "\n");
}

TEST(EmptyPath, NamesNoFile) {
    EXPECT_EQ(PrintedByFailure(""), "Couldn't read polyon file \n");
}

TEST(PathWithAnyCharacters, IsRead) {
    const CTemporaryFolder folder;
    CPolygon polygon;
    EXPECT_TRUE(polygon.ReadPolygon(folder.Write("\xC3\xA9 %s\n'\".pol", "0 ;9,9 0,0").c_str()));
    EXPECT_EQ(polygon.m_BoundingBoxMax, (mgVector3{9, 9, 0}));
}

/// While it lives, the process cannot open any further file.
class CNoMoreDescriptors {
public:
    CNoMoreDescriptors() {
        getrlimit(RLIMIT_NOFILE, &m_Previous);
        const rlimit none = {0, m_Previous.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~CNoMoreDescriptors() { setrlimit(RLIMIT_NOFILE, &m_Previous); }
    CNoMoreDescriptors(const CNoMoreDescriptors&) = delete;
    CNoMoreDescriptors& operator=(const CNoMoreDescriptors&) = delete;

private:
    rlimit m_Previous = {};
};

TEST(FileWithoutADescriptorLeft, IsRefusedAndCanBeReadLater) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("square.pol", support::PolygonFileText(support::MakeSquare(20)));
    std::string fault;
    {
        const CNoMoreDescriptors none;
        fault = ReadPolygonFile(path.c_str()).m_Fault;
    }
    EXPECT_EQ(fault, "Too many open files");
    EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Fault, "");
}

}  // namespace

}  // namespace nestrix
