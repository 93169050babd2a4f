#include "batch/InputPaths.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "tests/batch/BatchProgram.h"
#include "tests/support/COrdinaryUser.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::COrdinaryUser;
using support::CTemporaryFolder;
using support::SquareFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

namespace {

/// The files that the words stand for, with ":2" behind them for two copies.
std::vector<std::string> FoundFor(const std::vector<std::string>& words) {
    const SInputPaths found = FindInputs(words);
    EXPECT_THAT(found.m_Findings, IsEmpty());
    std::vector<std::string> files;
    for (const SInputPath& path : found.m_Files) {
        files.push_back(path.m_File);
        if (path.m_nCopies > 1) {
            files.back().append(":").append(std::to_string(path.m_nCopies));
        }
    }
    return files;
}

std::vector<std::string> FaultsFor(const std::vector<std::string>& words) {
    std::vector<std::string> faults;
    for (const SFinding& finding : FindInputs(words).m_Findings) {
        faults.push_back(InWords(finding));
    }
    return faults;
}

}  // namespace

TEST(Folder, IsTakenByNameWithNumbersAsNumbers) {
    const CTemporaryFolder folder;
    std::vector<std::string> expected;
    for (char const* const pName : {"a.pol", "part 9.pol", "part 10.pol", "part 010b.pol", "z.pol"}) {
        expected.push_back(folder.Write(pName, SquareFile(10.0F)));
    }
    EXPECT_EQ(FoundFor({folder.Path()}), expected);
}

TEST(Names, AreOrderedWithNumbersAsNumbers) {
    const std::vector<std::string> ordered{"",
                                           "01",
                                           "1",
                                           "2",
                                           "2a",
                                           "2a1",
                                           "2a10",
                                           "10",
                                           "a",
                                           "a 2",
                                           "a 10",
                                           "a b",
                                           "b",
                                           "b18446744073709551616",
                                           "b18446744073709551617"};
    for (size_t i = 0; i < ordered.size(); ++i) {
        for (size_t j = 0; j < ordered.size(); ++j) {
            EXPECT_EQ(IsNameBefore(ordered[i], ordered[j]), i < j) << ordered[i] << " and " << ordered[j];
        }
    }
}

TEST(Folder, IsTakenWithoutOtherFilesHiddenOnesAndFolders) {
    const CTemporaryFolder folder;
    const std::string polygon = folder.Write("a.pol", SquareFile(10.0F));
    const std::string capital = folder.Write("B.POL", SquareFile(10.0F));
    fs::create_directory(folder.PathOf("deeper"));
    for (char const* const pName : {"notes.txt", "a.pol.orig", ".hidden.pol", "deeper/b.pol"}) {
        (void)folder.Write(pName, "no polygon");
    }
    EXPECT_THAT(FoundFor({folder.Path()}), ElementsAre(capital, polygon));
}

TEST(Words, KeepTheirOrder) {
    const CTemporaryFolder folder;
    fs::create_directory(folder.PathOf("inner"));
    const std::string inside = folder.Write("inner/b.pol", SquareFile(20.0F));
    const std::string beside = folder.Write("a.pol", SquareFile(10.0F));
    EXPECT_THAT(FoundFor({folder.PathOf("inner"), beside, inside}), ElementsAre(inside, beside, inside));
}

TEST(Word, WithANumberBehindItMeansCopies) {
    const CTemporaryFolder folder;
    const std::string polygon = folder.Write("a.pol", SquareFile(10.0F));
    EXPECT_THAT(FoundFor({polygon + ":12"}), ElementsAre(polygon + ":12"));
    EXPECT_THAT(FoundFor({polygon + ":0012"}), ElementsAre(polygon + ":12"));
    EXPECT_THAT(FoundFor({folder.Path().native() + ":10000"}), ElementsAre(polygon + ":10000"));
}

TEST(Word, ThatReallyIsANameWithANumberMeansThatFile) {
    const CTemporaryFolder folder;
    (void)folder.Write("a.pol", SquareFile(10.0F));
    const std::string odd = folder.Write("a.pol:12", SquareFile(20.0F));
    EXPECT_THAT(FindInputs(std::array{odd}).m_Files, ElementsAre(SInputPath{odd, 1, 0}));
    EXPECT_THAT(FindInputs(std::array{odd + ":3"}).m_Files, ElementsAre(SInputPath{odd, 3, 0}));
}

TEST(Word, WithoutANumberBehindItsColonMeansAFile) {
    EXPECT_THAT(FoundFor({"C:a.pol", "a.pol:", ":12", "a:12b"}),
                ElementsAre("C:a.pol", "a.pol:", ":12", "a:12b"));
}

TEST(Copies, BeyondTenThousandAndNoneAreRefused) {
    for (char const* const pCopies : {"0", "10001", "99999999999999999999"}) {
        const std::string word = std::string("a.pol:") + pCopies;
        EXPECT_THAT(FaultsFor({word}), ElementsAre(word + ": the number of copies is not from 1 to 10000"));
    }
}

TEST(BadPath, ThatDoesNotExistIsNamedWithTheReason) {
    const SBatchResult result = RunBatchProgram("/no/such/piece.pol");
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, HasSubstr("/no/such/piece.pol: No such file or directory"));
}

TEST(BadPath, ToAFolderWithoutPiecesIsNamed) {
    const CTemporaryFolder folder;
    (void)folder.Write("readme.txt", "nothing here");
    const SBatchResult result = RunBatchProgram(folder.Path());
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors,
                HasSubstr(folder.Path().native() + ": the folder holds no files of a known format: .pol"));
}

TEST(BadPath, ToAFolderThatCannotBeListedIsNamedWithTheReason) {
    const CTemporaryFolder folder;
    const std::string locked = folder.PathOf("locked");
    fs::create_directory(locked);
    fs::permissions(locked, fs::perms::none);
    fs::permissions(folder.Path(), fs::perms(0755));
    const COrdinaryUser ordinaryUser;
    EXPECT_THAT(FaultsFor({locked}), ElementsAre(locked + ": Permission denied"));
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

}  // namespace nestrix
