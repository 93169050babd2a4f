#include <gmock/gmock.h>

#include <filesystem>

#include "BatchProgram.h"
#include "CTemporaryFolder.h"
#include "PolygonPaths.h"
#include "TextFiles.h"

using support::CTemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

TEST(PolygonFiles, OfAFolderAreTakenByName) {
    const CTemporaryFolder folder;
    const std::string second = folder.Write("b.pol", SquareFile(20.0F));
    const std::string third = folder.Write("c.pol", SquareFile(30.0F));
    const std::string first = folder.Write("a.pol", SquareFile(10.0F));
    const std::vector<std::string> paths{folder.Path()};
    EXPECT_THAT(FindPolygonFiles(paths).m_Files, ElementsAre(first, second, third));
}

TEST(PolygonFiles, KeepTheOrderOfThePaths) {
    const CTemporaryFolder folder;
    fs::create_directory(folder.PathOf("inner"));
    const std::string inside = folder.Write("inner/b.pol", SquareFile(20.0F));
    const std::string beside = folder.Write("a.pol", SquareFile(10.0F));
    const std::vector<std::string> paths{folder.PathOf("inner"), beside, inside};
    EXPECT_THAT(FindPolygonFiles(paths).m_Files, ElementsAre(inside, beside, inside));
}

TEST(PolygonFiles, OfAFolderAreOnlyThoseWithTheExtension) {
    const CTemporaryFolder folder;
    const std::string polygon = folder.Write("a.pol", SquareFile(10.0F));
    fs::create_directory(folder.PathOf("deeper"));
    for (char const* const pName : {"notes.txt", "a.pol.orig", ".hidden.pol", "deeper/b.pol"}) {
        (void)folder.Write(pName, "no polygon");
    }
    const std::vector<std::string> paths{folder.Path()};
    const SPolygonPaths found = FindPolygonFiles(paths);
    EXPECT_THAT(found.m_Files, ElementsAre(polygon));
    EXPECT_THAT(found.m_Faults, IsEmpty());
}

TEST(PolygonFiles, NamedOutrightNeedNoExtension) {
    const CTemporaryFolder folder;
    const std::vector<std::string> paths{folder.Write("square.txt", SquareFile(10.0F))};
    EXPECT_THAT(FindPolygonFiles(paths).m_Faults, IsEmpty());
}

TEST(PolygonFiles, AreSearchedInTheOrderOfTheirNames) {
    const CTemporaryFolder named;
    (void)named.Write("1.pol", SquareFile(50.0F));
    (void)named.Write("2.pol", SquareFile(20.0F));
    const std::string options = " --population 5 --generations 2 --seed 3";
    const SBatchResult asFolder = RunBatchProgram(named.Path().native() + options);
    const SBatchResult asFiles =
        RunBatchProgram(named.PathOf("1.pol") + " " + named.PathOf("2.pol") + options);
    EXPECT_EQ(asFolder.m_nStatus, 0);
    EXPECT_EQ(asFolder.m_Output, asFiles.m_Output);
}

TEST(BadPath, ThatDoesNotExistIsNamedWithTheReason) {
    const SBatchResult result = RunBatchProgram("/no/such/piece.pol");
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, HasSubstr("/no/such/piece.pol: No such file or directory"));
}

TEST(BadPath, ToAFolderWithoutPolygonsIsNamed) {
    const CTemporaryFolder folder;
    (void)folder.Write("readme.txt", "nothing here");
    const SBatchResult result = RunBatchProgram(folder.Path());
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, HasSubstr(folder.Path().native() + ": the folder holds no .pol files"));
}

TEST(BadPath, ToADeviceIsNamedInsteadOfReadForEver) {
    const SBatchResult result = RunBatchProgram("/dev/zero");
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, HasSubstr("/dev/zero: not a regular file"));
}

TEST(BadPath, ToAFolderThatLooksLikeAPolygonIsNamed) {
    const CTemporaryFolder folder;
    (void)folder.Write("a.pol", SquareFile(10.0F));
    fs::create_directory(folder.PathOf("b.pol"));
    const SBatchResult result = RunBatchProgram(folder.Path());
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, HasSubstr("b.pol: not a regular file"));
}

TEST(BadFiles, AreAllNamedBeforeAnySearch) {
    const CTemporaryFolder folder;
    const std::string sound = folder.Write("sound.pol", SquareFile(10.0F));
    const std::string shortened = folder.Write("short.pol", "4\n0,0\n1,0\n");
    const std::string boxless = folder.Write("boxless.pol", "3\n0,0\n1,0\n0,1\n");
    const std::string infinite = folder.Write("infinite.pol", "3\n0,0\ninf,0\n0,1\n;1,1\n0,0\n");
    const SBatchResult result =
        RunBatchProgram(shortened + " " + sound + " " + boxless + " " + infinite + " /no/such.pol");
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_EQ(result.m_Output, "");
    for (const std::string& file : {shortened, boxless, infinite, std::string("/no/such.pol")}) {
        EXPECT_THAT(result.m_Errors, HasSubstr(file + ": "));
    }
    EXPECT_EQ(CountOf("\n", result.m_Errors), 4);
}

TEST(BadFiles, LeaveNoPictureBehind) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram("/no/such.pol --svg " + folder.PathOf("packing.svg"));
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_EQ(EntryCount(folder.Path()), 0);
}
