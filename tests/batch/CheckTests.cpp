#include <gmock/gmock.h>

#include <filesystem>
#include <set>

#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CountOf;
using support::CTemporaryFolder;
using support::SquareFile;
using testing::HasSubstr;
using testing::MatchesRegex;

// Files that are each named for what is wrong with them.

namespace {

struct SFaultyInput {
    std::string m_Name;
    std::string m_Message;  ///< behind the file's name
    bool m_bRefused;        ///< it cannot be packed
};

void PrintTo(const SFaultyInput& input, std::ostream* pStream) {
    *pStream << input.m_Name;
}

const std::vector<SFaultyInput> FAULTY_INPUTS{
    {"a-job-and-no-instance.json", ": it is a job: \"pack --job\" packs it", true},
    {"box-that-does-not-enclose.pol", ":6: the bounding box does not enclose the outline", false},
    {"box-that-is-not-tight.pol", ":6: the bounding box is larger than the outline", false},
    {"box-with-its-corners-exchanged.pol", ":6: the bounding box does not name its upper-right corner first",
     true},
    {"clockwise.pol", ":2: clockwise: its outline runs clockwise", false},
    {"empty.pol", ":1: it does not begin with the number of vertices", true},
    {"fewer-vertices-than-announced.pol", ":5: the count says 4 vertices, but there are 3", true},
    {"missing-box.pol", ":6: the semicolon and the bounding box are missing", true},
    {"missing-comma.pol", ":3: no comma stands right behind the first number of vertex 2", true},
    {"missing-semicolon.pol", ":6: no semicolon stands before the bounding box", true},
    {"more-than-one-polygon.pol", ":8: what follows the bounding box is left out", false},
    {"more-vertices-than-announced.pol", ":5: the count says 3 vertices, but there are 4", true},
    {"no-area.pol", ":2: no-area: its outline has no inside", true},
    {"no-count.pol", ":1: it has fewer than three vertices", true},
    {"no-drawing.svg", ":2: not sound XML", true},
    {"no-outline.svg", ": no closed contour is in it", true},
    {"not-finite.pol", ":4: vertex 3 is not finite", true},
    {"open-contour.svg",
     ":3: an open line from (50, 47.5) to (50, 50) lies on no piece; there is a gap of 2.5", false},
    {"repeated-vertex.pol", ":2: repeated-vertex: a corner repeats the one before, at (20, 0)", false},
    {"self-crossing.pol", ":2: self-crossing: its outline crosses itself at (12, 12)", true},
    {"too-few-vertices.pol", ":1: it has fewer than three vertices", true},
    {"unfinished.json", ":1: syntax error", true},
    {"unknown-unit.dxf",
     ": no unit is named: its lengths are taken for units of the strip, so that unknown-unit "
     "measures 50 x 50.0989",
     false},
    {"unknown-unit.svg",
     ": no unit is named: its lengths are taken for units of the strip, so that plate measures "
     "40 x 30",
     false},
    {"vertex-in-the-middle-of-a-side.pol", ":2: vertex-in-the-middle-of-a-side: a corner lies in the middle",
     false},
    {"wider-than-the-strip.pol", ":2: wider-than-the-strip: it is 500 wide, and the strip has room for 400",
     true},
};

class FaultyInput : public testing::TestWithParam<SFaultyInput> {
protected:
    [[nodiscard]] std::string File() const { return "faulty/" + GetParam().m_Name; }
    [[nodiscard]] std::string Message() const { return File() + GetParam().m_Message; }
};

std::string TestName(const testing::TestParamInfo<SFaultyInput>& info) {
    std::string name;
    for (const char c : info.param.m_Name) {
        name += c == '-' || c == '.' ? '_' : c;
    }
    return name;
}

}  // namespace

TEST_P(FaultyInput, IsNamedByCheckWithFileAndLine) {
    const SBatchResult result = RunBatchProgram("check --quiet " + File());
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Output, HasSubstr(Message()));
    EXPECT_EQ(result.m_Errors, "");
}

TEST_P(FaultyInput, IsRefusedByPackWithTheSameMessageWhereItCannotBePacked) {
    const CTemporaryFolder folder;
    const std::string outputs = " --svg " + folder.PathOf("a.svg") + " --json " + folder.PathOf("a.json");
    const SBatchResult result = RunBatchProgram("pack --quiet --steps 0 " + File() + outputs);
    EXPECT_EQ(result.m_nStatus, GetParam().m_bRefused ? 2 : 0);
    EXPECT_EQ(support::EntryCount(folder.Path()), GetParam().m_bRefused ? 0 : 2);
    if (GetParam().m_bRefused) {
        EXPECT_EQ(result.m_Output, "");
        EXPECT_THAT(result.m_Errors, HasSubstr("nestrix-batch: " + Message()));
    }
}

INSTANTIATE_TEST_SUITE_P(Each, FaultyInput, testing::ValuesIn(FAULTY_INPUTS), TestName);

TEST(FaultyInputs, AreAllTested) {
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator("faulty")) {
        files.insert(entry.path().filename());
    }
    std::set<std::string> tested;
    for (const SFaultyInput& input : FAULTY_INPUTS) {
        tested.insert(input.m_Name);
    }
    EXPECT_EQ(files, tested);
}

TEST(Check, FindsNothingWrongWithTheSamples) {
    for (char const* const pSet : {"squares", "rectangles", "convex", "concave", "puzzle", "large"}) {
        const SBatchResult result = RunBatchProgram(std::string("check " NESTRIX_SAMPLES "/") + pSet);
        EXPECT_EQ(result.m_nStatus, 0) << pSet;
        EXPECT_EQ(result.m_Output, "") << pSet;
        EXPECT_THAT(result.m_Errors, MatchesRegex("[^\n]*: [0-9]+ files, [0-9]+ pieces, up to [^\n]*\n"));
    }
}

TEST(Check, NamesAllThatIsWrongInTheOrderOfFilesAndLines) {
    const SBatchResult result = RunBatchProgram(
        "check --quiet faulty/self-crossing.pol faulty/box-that-does-not-enclose.pol "
        "faulty/clockwise.pol /no/such.pol");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Output, MatchesRegex("faulty/self-crossing.pol:2: [^\n]*\n"
                                              "faulty/box-that-does-not-enclose.pol:6: [^\n]*\n"
                                              "faulty/clockwise.pol:2: [^\n]*\n"
                                              "/no/such.pol: No such file or directory\n"));
}

TEST(Check, AsksWhetherPiecesFitTheStripOfItsOptions) {
    const std::string wide = "check --quiet faulty/wider-than-the-strip.pol ";
    EXPECT_EQ(RunBatchProgram(wide + "--width 500").m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram(wide + "--width 500 --margin 1").m_nStatus, 1);
    EXPECT_EQ(RunBatchProgram(wide + "--turns 0,90").m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram(wide + "--scale 0.5").m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram(wide + "--mirror").m_nStatus, 1);
}

TEST(Check, OfADrawingWhoseUnitIsToldFindsNothingWrong) {
    const SBatchResult result = RunBatchProgram("check faulty/unknown-unit.dxf --unit cm --width 600");
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_THAT(result.m_Errors, HasSubstr("faulty/unknown-unit.dxf: 1 piece, 500 x 500."));
    EXPECT_THAT(result.m_Errors, HasSubstr(" mm, area "));
}

TEST(LenientReading, TakesFaultyFilesAsFarAsTheyGo) {
    const SBatchResult result = RunBatchProgram(
        "pack --lenient --steps 0 faulty/missing-semicolon.pol faulty/more-vertices-than-announced.pol");
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_EQ(result.ValueOf("Pieces: "), "2");
    EXPECT_THAT(result.m_Errors, HasSubstr("nestrix-batch: warning: faulty/missing-semicolon.pol:6: "));
}

TEST(LenientReading, DropsWhatCrossesItself) {
    const std::string search = "faulty/self-crossing.pol --method drop --population 2 --generations 0";
    EXPECT_EQ(RunBatchProgram(search).m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram(search + " --lenient").m_nStatus, 0);
}

TEST(LenientReading, CannotPackFreelyWhatCrossesItself) {
    const SBatchResult result = RunBatchProgram("faulty/self-crossing.pol --lenient --steps 0");
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, HasSubstr("faulty/self-crossing.pol:2: "));
}

TEST(LenientReading, CannotTakeWhatIsNotThere) {
    for (char const* const pMethod : {"free", "drop"}) {
        const SBatchResult result =
            RunBatchProgram(std::string("/no/such.pol --lenient --quiet --method ") + pMethod);
        EXPECT_EQ(result.m_nStatus, 2);
        EXPECT_EQ(result.m_Errors, "nestrix-batch: /no/such.pol: No such file or directory\n");
    }
}

}  // namespace nestrix
