#include <gmock/gmock.h>

#include <filesystem>

#include "formats/svg/ProfileSvg.h"
#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CountOf;
using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr char PNG_SIGNATURE[] = "\x89PNG\r\n\x1a\n";

/// How long and how high a PNG is, as its file says.
std::pair<int, int> SizeOfPng(const std::string& content) {
    const auto number = [&content](size_t nAt) {
        int nNumber = 0;
        for (size_t i = 0; i < 4; ++i) {
            nNumber = nNumber * 256 + static_cast<unsigned char>(content.at(nAt + i));
        }
        return nNumber;
    };
    return {number(16), number(20)};
}

/// How wide the sheet of a square of that name is, in units of the square.
double SheetWidth(const std::string& name) {
    const std::string picture =
        DrawProfilesSvg(std::vector<SProfiledPiece>{{name, support::MakeSquare(10.0F), {}}});
    const std::string before = "viewBox=\"0 0 ";
    return std::stod(picture.substr(picture.find(before) + before.size()));
}

}  // namespace

TEST(ProfileSvg, IsAsWideAsTheNamesUnderSmallPieces) {
    // Each of the letters is half as wide as the text is high, and that is more than a sixtieth of the
    // square.
    EXPECT_GT(SheetWidth(std::string(200, 'w')), SheetWidth("w") + 10.0);
}

TEST(ProfileSvg, HasTheFrontInRedAndTheBackInBlue) {
    const CPolygon square = support::MakeSquare(10.0F);
    const std::string picture = DrawProfilesSvg(std::vector<SProfiledPiece>{{"a", square, {}}});
    EXPECT_THAT(picture, HasSubstr("class=\"outline\" d=\"M0,0 10,0 10,10 0,10Z\" stroke=\"#999999\""));
    EXPECT_THAT(picture, HasSubstr("class=\"front\" d=\"M0,0L10,0"));
    EXPECT_THAT(picture, testing::ContainsRegex("class=\"front\" d=\"[^\"]*\" stroke=\"#ff0000\""));
    EXPECT_THAT(picture, testing::ContainsRegex("class=\"back\" d=\"M10,10L0,10\" stroke=\"#0000ff\""));
    EXPECT_THAT(picture, HasSubstr(">a</text>"));
    EXPECT_THAT(picture, HasSubstr(">10 x 10</text>"));
}

TEST(ProfileSvg, WritesNamesOfAnyCharacters) {
    const std::string picture =
        DrawProfilesSvg(std::vector<SProfiledPiece>{{"<a & b>", support::MakeSquare(10.0F), {}}});
    EXPECT_THAT(picture, HasSubstr(">&lt;a &amp; b>"));
}

TEST(ProfileSvg, OfWhatIsNotFiniteIsEmpty) {
    const CPolygon endless = support::MakeSquare(std::numeric_limits<float>::infinity());
    EXPECT_EQ(DrawProfilesSvg(std::vector<SProfiledPiece>{{"a", endless, {}}}), "");
}

TEST(Draw, PutsAllPiecesOnOneSheet) {
    const CTemporaryFolder folder;
    const std::string sheet = folder.PathOf("sheet.svg");
    const SBatchResult result =
        RunBatchProgram("draw " NESTRIX_SAMPLES "/squares " NESTRIX_SAMPLES "/concave --to " + sheet);
    EXPECT_EQ(result.m_nStatus, 0) << result.m_Errors;
    EXPECT_EQ(CountOf("class=\"piece\"", ReadFile(sheet)), 25);
}

TEST(Draw, PutsEachFileOnASheetOfItsOwnInAFolder) {
    const CTemporaryFolder folder;
    EXPECT_EQ(RunBatchProgram("draw " NESTRIX_SAMPLES "/squares --to " + folder.PathOf("new/")).m_nStatus, 0);
    EXPECT_EQ(EntryCount(folder.PathOf("new")), 5);
    EXPECT_EQ(CountOf("class=\"piece\"", ReadFile(folder.PathOf("new/1-square-90.svg"))), 1);
}

TEST(Draw, MakesPngsOfTheSizeAskedFor) {
    const CTemporaryFolder folder;
    // The library of fonts keeps what it has found out until the program ends; and it has a thread, whose
    // locks the sanitizer cannot see.
    const std::string environment =
        "export TSAN_OPTIONS=ignore_noninstrumented_modules=1 "
        "LSAN_OPTIONS=print_suppressions=0:suppressions=" +
        folder.Write("leaks", "leak:libfontconfig\n");
    const std::string squares = "draw " NESTRIX_SAMPLES "/squares --to ";
    const std::string sheet = folder.PathOf("sheet.PNG");
    EXPECT_EQ(RunBatchProgram(squares + sheet + " --pixels 300", environment).m_nStatus, 0);
    const std::string content = ReadFile(sheet);
    EXPECT_THAT(content, StartsWith(PNG_SIGNATURE));
    EXPECT_EQ(std::max(SizeOfPng(content).first, SizeOfPng(content).second), 300);
    const std::string into = folder.PathOf("pictures/");
    EXPECT_EQ(RunBatchProgram(squares + into + " --format png", environment).m_nStatus, 0);
    EXPECT_THAT(ReadFile(into + "1-square-90.png"), StartsWith(PNG_SIGNATURE));
}

TEST(Draw, DrawsPackingsFreeOrDropped) {
    const CTemporaryFolder folder;
    const std::string squares = NESTRIX_SAMPLES "/squares --seed 1 --json " + folder.PathOf("");
    ASSERT_EQ(RunBatchProgram("pack --steps 10 " + squares + "free.json").m_nStatus, 0);
    ASSERT_EQ(RunBatchProgram("pack --method drop --generations 1 " + squares + "drop.json").m_nStatus, 0);
    const std::string packings = folder.PathOf("free.json") + " " + folder.PathOf("drop.json");
    const SBatchResult result = RunBatchProgram("draw " + packings + " --to " + folder.PathOf("pictures/"));
    EXPECT_EQ(result.m_nStatus, 0) << result.m_Errors;
    for (char const* const pName : {"free", "drop"}) {
        EXPECT_THAT(ReadFile(folder.PathOf(std::string("pictures/") + pName + ".svg")),
                    HasSubstr("Packing of 5 pieces"));
    }
    const SBatchResult one = RunBatchProgram("draw " + packings + " --to " + folder.PathOf("one.svg"));
    EXPECT_EQ(one.m_nStatus, 2);
    EXPECT_THAT(one.m_Errors, HasSubstr("these are 2 pictures: --to must name a folder"));
}

TEST(Draw, RefusesTargetsThatAreNoneAndInputsThatAreFaulty) {
    const CTemporaryFolder folder;
    const std::string piece =
        folder.Write("a.svg", R"(<svg width="9mm" height="9mm"><rect width="5" height="5"/></svg>)");
    EXPECT_EQ(RunBatchProgram("draw " + piece).m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram("draw " + piece + " --to a.pdf").m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram("draw " + piece + " --to a.png --pixels 0").m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram("draw " + piece + " --to b/ --format gif").m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram("draw " + piece + " --to " + piece).m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram("draw /no/such.pol --to " + folder.PathOf("b.svg")).m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram("draw " + piece + " --to /no/such/b.svg").m_nStatus, 1);
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

}  // namespace nestrix
