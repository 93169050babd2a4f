#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>

#include "tests/app/CBlockLimit.h"
#include "tests/app/RunFixture.h"
#include "tests/support/COrdinaryUser.h"

namespace nestrix {

namespace {

using testing::HasSubstr;
using testing::Not;

class RunLoading : public support::RunFixture {};

TEST_F(RunLoading, ReportsABadFileTwiceAndPacksTheOthers) {
    ListSquares(1);
    const std::string missing = m_Folder.PathOf("missing.pol");
    List().Append(missing);
    ListSquares(1);
    SetRun(2, 0);
    const std::string printed = RunToItsEnd();
    const std::string line = "Couldn't Load Polygon " + missing + "\n";
    EXPECT_THAT(printed, HasSubstr(line + line));
    EXPECT_EQ(Container().m_Polygons.size(), 2U);
}

TEST_F(RunLoading, ReportsWhatCannotBeReadAndPacksTheOthers) {
    std::filesystem::permissions(m_Folder.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(m_Folder.Write("unreadable.pol", "1\n0,0\n;0,0\n0,0\n"),
                                 std::filesystem::perms::none);
    std::filesystem::create_directory(m_Folder.PathOf("folder.pol"));
    std::filesystem::create_symlink("link.pol", m_Folder.PathOf("link.pol"));
    ASSERT_EQ(mkfifo(m_Folder.PathOf("pipe.pol").c_str(), 0600), 0);
    ListSquares(1);
    for (const char* pName : {"unreadable.pol", "folder.pol", "link.pol", "pipe.pol"}) {
        List().Append(m_Folder.PathOf(pName));
    }
    SetRun(2, 0);
    const support::COrdinaryUser ordinaryUser;
    const std::string printed = RunToItsEnd();
    for (const char* pName : {"unreadable.pol", "folder.pol", "link.pol", "pipe.pol"}) {
        const std::string line = "Couldn't Load Polygon " + m_Folder.PathOf(pName) + "\n";
        EXPECT_THAT(printed, HasSubstr(line + line));
    }
    EXPECT_EQ(Container().m_Polygons.size(), 1U);
}

TEST_F(RunLoading, GoesAheadWhenEveryFileIsBad) {
    List().Append(m_Folder.PathOf("missing.pol"));
    SetRun(3, 2);
    EXPECT_THAT(RunToItsEnd(), HasSubstr("Generation 2 has been created with 3 many individuals\n"));
    EXPECT_TRUE(Container().m_Polygons.empty());
    EXPECT_EQ(PointCount(), 3U);
}

TEST_F(RunLoading, LeavesOutAFileThatTheMemoryHasNoRoomForAndPacksTheOthers) {
    constexpr int VERTICES = 10'000;
    std::string text = std::to_string(VERTICES) + "\n";
    for (int i = 0; i < VERTICES; ++i) {
        text += "1,1\n";
    }
    ListSquares(1);
    const std::string large = m_Folder.Write("large.pol", text + ";1,1\n0,0\n");
    List().Append(large);
    ListSquares(1);
    SetRun(2, 1);
    std::string printed;
    {
        const support::CBlockLimit limit(VERTICES * sizeof(CPoint) - 1);
        printed = RunToItsEnd();
    }
    EXPECT_THAT(printed,
                HasSubstr("Not enough memory to read " + large + "\nCouldn't Load Polygon " + large + "\n"));
    EXPECT_THAT(printed, HasSubstr("Generation 1 has been created with 2 many individuals\n"));
    EXPECT_EQ(Container().m_Polygons.size(), 2U);
    EXPECT_THAT(RunToItsEnd(), Not(HasSubstr("Not enough memory"))) << "the file is at fault, not the memory";
    EXPECT_EQ(Container().m_Polygons.size(), 3U);
}

TEST_F(RunLoading, OpensAndPrintsPathsWithAnyCharacters) {
    const std::string square = "4\n0,0\n1,0\n1,1\n0,1\n;1,1\n0,0\n";
    for (const char* pName : {"Größe \xE6\xBC\xA2.pol", "two  blanks.pol", "100%s%n.pol", "quote\"s'.pol"}) {
        List().Append(wxString::FromUTF8(m_Folder.Write(pName, square)));
    }
    const std::string missing = m_Folder.PathOf("läßt %d fehlen.pol");
    List().Append(wxString::FromUTF8(missing));
    SetRun(2, 0);
    const std::string line = "Couldn't Load Polygon " + missing + "\n";
    EXPECT_THAT(RunToItsEnd(), HasSubstr(line + line));
    EXPECT_EQ(Container().m_Polygons.size(), 4U);
}

TEST_F(RunLoading, LoadsAFileTwiceThatIsListedTwice) {
    ListSquares(1);
    List().Append(List().GetString(0));
    SetRun(2, 0);
    RunToItsEnd();
    EXPECT_EQ(Container().m_Polygons.size(), 2U);
}

}  // namespace

}  // namespace nestrix
