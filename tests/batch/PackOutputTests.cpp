#include <gmock/gmock.h>

#include <filesystem>

#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CountOf;
using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string SQUARES = "pack --quiet --steps 20 --seed 1 --threads 1 " NESTRIX_SAMPLES "/squares ";

/// The file without what differs between two runs with the same work.
std::string WithoutTime(const std::string& record) {
    const size_t nTime = record.find("\"time\": {");
    return record.substr(0, nTime) + record.substr(record.find('}', nTime));
}

}  // namespace

TEST(Outputs, CanBeWrittenInEveryFormatAndEachAnyNumberOfTimes) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram(SQUARES +
                                                    "--json a.json --json b.json --svg a.svg --svg=b.svg "
                                                    "--dxf a.dxf --dxf b.dxf --csv a.csv --csv b.csv",
                                                "cd " + folder.Path().native());
    EXPECT_EQ(result.m_nStatus, 0) << result.m_Errors;
    for (char const* const pExtension : {"json", "svg", "dxf", "csv"}) {
        const std::string first = ReadFile(folder.PathOf(std::string("a.") + pExtension));
        EXPECT_NE(first, "");
        EXPECT_EQ(first, ReadFile(folder.PathOf(std::string("b.") + pExtension)));
    }
    EXPECT_THAT(ReadFile(folder.PathOf("a.csv")), StartsWith("seconds,step,height,density\n0.00"));
    EXPECT_EQ(EntryCount(folder.Path()), 8);
}

TEST(Outputs, CanBeWrittenOfADroppedPacking) {
    const CTemporaryFolder folder;
    const SBatchResult result =
        RunBatchProgram("pack --quiet --method drop --population 5 --generations 3 --seed 1 " NESTRIX_SAMPLES
                        "/squares --json a.json --svg a.svg --dxf a.dxf --csv a.csv",
                        "cd " + folder.Path().native());
    EXPECT_EQ(result.m_nStatus, 0) << result.m_Errors;
    EXPECT_EQ(EntryCount(folder.Path()), 4);
    EXPECT_THAT(ReadFile(folder.PathOf("a.json")), HasSubstr("\"method\": \"drop\""));
    EXPECT_EQ(RunBatchProgram("certify " + folder.PathOf("a.json")).m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram("check --quiet " + folder.PathOf("a.dxf")).m_Errors, "");
}

TEST(Outputs, OfADroppedPackingKeepTheHolesThatItsDensityLeavesOut) {
    const CTemporaryFolder folder;
    (void)folder.Write("washer.svg", R"(<svg width="99mm" height="99mm" viewBox="0 0 99 99">
        <path d="M0,0h50v50h-50z M10,10h30v30h-30z"/></svg>)");
    const SBatchResult result =
        RunBatchProgram("pack --method drop --population 2 --generations 0 --seed 1 washer.svg --json a.json",
                        "cd " + folder.Path().native());
    EXPECT_EQ(result.ValueOf("Density: "), "8.00 %") << result.m_Errors;
    EXPECT_THAT(RunBatchProgram("certify " + folder.PathOf("a.json")).m_Output,
                HasSubstr("valid, 1 piece, height 50, density 8.00 %"));
}

TEST(Outputs, HaveTheSameBytesForTheSameInputAndSeed) {
    const CTemporaryFolder folder;
    for (char const* const pName : {"a", "b"}) {
        const std::string path = folder.PathOf(pName);
        const SBatchResult result = RunBatchProgram(SQUARES + "--json " + path + ".json --svg " + path +
                                                    ".svg --dxf " + path + ".dxf");
        EXPECT_EQ(result.m_nStatus, 0);
    }
    EXPECT_EQ(ReadFile(folder.PathOf("a.svg")), ReadFile(folder.PathOf("b.svg")));
    EXPECT_EQ(ReadFile(folder.PathOf("a.dxf")), ReadFile(folder.PathOf("b.dxf")));
    EXPECT_EQ(WithoutTime(ReadFile(folder.PathOf("a.json"))), WithoutTime(ReadFile(folder.PathOf("b.json"))));
}

TEST(Outputs, TellTheOptionsThatWereGiven) {
    const CTemporaryFolder folder;
    const std::string path = folder.PathOf("a.json");
    EXPECT_EQ(
        RunBatchProgram(SQUARES + "--width 300 --turns 0,90 --keep-holes-empty --json " + path).m_nStatus, 0);
    const std::string record = ReadFile(path);
    for (char const* const pOption : {"\"width\": 300", "\"turns\": \"0,90\"", "\"keep-holes-empty\": true",
                                      "\"steps\": 20", "\"threads\": 1"}) {
        EXPECT_THAT(record, HasSubstr(pOption));
    }
    EXPECT_THAT(record, testing::Not(HasSubstr("quiet")));
    EXPECT_THAT(record, testing::Not(HasSubstr("a.json")));
}

TEST(Outputs, OverEachOtherAreRefusedUnderAnyName) {
    const CTemporaryFolder folder;
    std::filesystem::create_symlink(folder.PathOf("a"), folder.PathOf("link"));
    std::filesystem::create_directory(folder.PathOf("inner"));
    for (char const* const pOther : {"a", "./a", "inner/../a", "link"}) {
        const SBatchResult result =
            RunBatchProgram(SQUARES + "--json a --svg " + pOther, "cd " + folder.Path().native());
        EXPECT_EQ(result.m_nStatus, 2) << pOther;
        EXPECT_THAT(result.m_Errors, HasSubstr("would take the place of --json a"));
    }
    EXPECT_EQ(EntryCount(folder.Path()), 2);
}

TEST(Outputs, MayGoToOneDeviceTogether) {
    EXPECT_EQ(RunBatchProgram(SQUARES + "--json /dev/null --svg /dev/null --csv /dev/null").m_nStatus, 0);
}

TEST(Outputs, OverAnInputAJobOrAnEarlierPackingAreRefused) {
    const CTemporaryFolder folder;
    const std::string piece = folder.Write("a.pol", support::SquareFile(10.0F));
    const std::string job = folder.Write("job.json", R"({"pieces": [{"file": "a.pol"}]})");
    ASSERT_EQ(RunBatchProgram(piece + " --steps 0 --json " + folder.PathOf("r.json")).m_nStatus, 0);
    const std::string record = ReadFile(folder.PathOf("r.json"));
    for (const std::string& words :
         {piece + " --csv " + piece, "--job " + job + " --json " + job, "--job " + job + " --svg " + piece,
          piece + " --from " + folder.PathOf("r.json") + " --json " + folder.PathOf("r.json")}) {
        const SBatchResult result = RunBatchProgram("pack --steps 0 " + words);
        EXPECT_EQ(result.m_nStatus, 2) << words;
        EXPECT_THAT(result.m_Errors, HasSubstr("would take the place of "));
    }
    EXPECT_EQ(ReadFile(piece), support::SquareFile(10.0F));
    EXPECT_EQ(ReadFile(folder.PathOf("r.json")), record);
}

TEST(Outputs, ThatCannotBeWrittenAreAllNamedBeforeTheSearch) {
    const SBatchResult result = RunBatchProgram("pack --time 10m " NESTRIX_SAMPLES
                                                "/squares --json /no/such/a.json --csv /no/such/b.csv");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_EQ(result.m_Output, "");
    EXPECT_THAT(result.m_Errors, HasSubstr("cannot write /no/such/a.json: No such file or directory"));
    EXPECT_THAT(result.m_Errors, HasSubstr("cannot write /no/such/b.csv: No such file or directory"));
}

TEST(Outputs, ThatCanBeWrittenAreWrittenWhereOthersFail) {
    const CTemporaryFolder folder;
    const SBatchResult result =
        RunBatchProgram(SQUARES + "--csv /dev/full --json " + folder.PathOf("a.json"));
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_EQ(EntryCount(folder.Path()), result.m_Output.empty() ? 0 : 1);
}

TEST(EarlierPacking, IsSearchedOnFrom) {
    const CTemporaryFolder folder;
    const std::string first = folder.PathOf("first.json");
    const std::string concave = NESTRIX_SAMPLES "/concave ";
    const SBatchResult searched =
        RunBatchProgram("pack " + concave + "--steps 3000 --seed 1 --spacing 1 --json " + first);
    ASSERT_EQ(searched.m_nStatus, 0);
    const std::string height = searched.ValueOf("Best height: ");
    // Without any step, what it begins with is the result.
    const SBatchResult alone = RunBatchProgram("pack --from " + first + " --steps 0");
    EXPECT_EQ(alone.m_nStatus, 0) << alone.m_Errors;
    EXPECT_EQ(alone.ValueOf("Best height: "), height);
    EXPECT_EQ(alone.ValueOf("Pieces: "), "20");
    const SBatchResult withPieces =
        RunBatchProgram("pack " + concave + "--spacing 1 --from " + first + " --steps 0");
    EXPECT_EQ(withPieces.ValueOf("Best height: "), height);
    EXPECT_NE(RunBatchProgram("pack " + concave + "--spacing 1 --steps 0").ValueOf("Best height: "), height);
}

TEST(EarlierPacking, MayBeOfOtherPiecesInAnotherStrip) {
    const CTemporaryFolder folder;
    const std::string first = folder.PathOf("first.json");
    ASSERT_EQ(RunBatchProgram("pack " NESTRIX_SAMPLES "/concave --steps 500 --json " + first).m_nStatus, 0);
    const SBatchResult other = RunBatchProgram("pack " NESTRIX_SAMPLES "/concave " NESTRIX_SAMPLES
                                               "/squares --width 3000 --steps 10 --from " +
                                               first);
    EXPECT_EQ(other.m_nStatus, 0) << other.m_Errors;
    EXPECT_EQ(other.ValueOf("Pieces: "), "25");
}

TEST(EarlierPacking, SaysWhatTheStripIsWhereNothingElseDoes) {
    const CTemporaryFolder folder;
    const std::string first = folder.PathOf("first.json");
    const std::string concave = NESTRIX_SAMPLES "/concave";
    ASSERT_EQ(
        RunBatchProgram("pack " + concave + " --width 600 --spacing 2 --margin 3 --steps 9 --json " + first)
            .m_nStatus,
        0);
    const auto stripWith = [&](const std::string& words) {
        const std::string next = folder.PathOf("next.json");
        EXPECT_EQ(
            RunBatchProgram("pack " + words + " --steps 0 --from " + first + " --json " + next).m_nStatus, 0);
        const std::string json = ReadFile(next);
        const size_t nBegin = json.find("\"strip\"");
        return json.substr(nBegin, json.find('\n', nBegin) - nBegin);
    };
    EXPECT_THAT(stripWith(concave), HasSubstr(R"("width": 600, "spacing": 2, "margin": 3)"));
    EXPECT_THAT(stripWith(concave + " --width 700 --spacing 0"),
                HasSubstr(R"("width": 700, "spacing": 0, "margin": 3)"));
    const std::string job =
        folder.Write("job.json", R"({"strip": {"margin": 4}, "pieces": [{"file": ")" + concave + R"("}]})");
    EXPECT_THAT(stripWith("--job " + job), HasSubstr(R"("width": 600, "spacing": 2, "margin": 4)"));
}

TEST(EarlierPacking, OfWhichSomethingCannotBeKeptIsToldSo) {
    const CTemporaryFolder folder;
    const std::string one = folder.Write("one.json", R"({"strip": {"width": 30}, "pieces": [
        {"name": "bar", "quantity": 2, "turns": [90], "outline": [[0,0],[20,0],[20,5],[0,5]],
         "holes": [[[1,1],[4,1],[4,4],[1,4]]]}], "placements": [
        {"piece": 0, "x": 5, "y": 0, "turn": 90}, {"piece": 0, "x": 11, "y": 0, "turn": 90}]})");
    const auto warnings = [&](const std::string& words) {
        const SBatchResult result = RunBatchProgram("pack --quiet --steps 0 --from " + one + " " + words);
        EXPECT_EQ(result.m_nStatus, 0);
        return result.m_Errors;
    };
    EXPECT_EQ(warnings(""), "");
    EXPECT_EQ(warnings("--keep-holes-empty"), "");
    EXPECT_THAT(warnings("--turns 0"),
                HasSubstr("turned or mirrored as its piece does not allow (bar), and 1 more"));
    EXPECT_THAT(warnings("--spacing 2"), HasSubstr("nearer than the spacing by 1 (bar, bar)\n"));
    EXPECT_THAT(warnings("--margin 1"), HasSubstr("out of the strip or into its margin (bar)"));
    const std::string other = warnings(NESTRIX_SAMPLES "/concave --width 400");
    EXPECT_THAT(other, HasSubstr("warning: " + one + ": 2 pieces of it left out"));
    EXPECT_THAT(other, HasSubstr("warning: " + one + ": 20 pieces to be packed not in it"));
}

TEST(EarlierPacking, ThatIsNoneIsRefused) {
    const CTemporaryFolder folder;
    EXPECT_EQ(RunBatchProgram("pack --from /no/such.json").m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram("pack --from " + folder.Write("a.json", "{}")).m_nStatus, 2);
    EXPECT_EQ(RunBatchProgram("pack --method drop --from a.json").m_nStatus, 2);
    const std::string dropped = folder.PathOf("dropped.json");
    ASSERT_EQ(
        RunBatchProgram(
            "pack --method drop --population 2 --generations 0 " NESTRIX_SAMPLES "/squares --json " + dropped)
            .m_nStatus,
        0);
    const SBatchResult result = RunBatchProgram("pack --from " + dropped);
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, HasSubstr("it was dropped"));
}

TEST(WholeWay, FromADrawingWithHolesAndArcsEndsInOneThatOthersFindFreeOfOverlap) {
    const CTemporaryFolder folder;
    const std::string drawing = folder.PathOf("drawing.dxf");
    const std::string packed = folder.PathOf("packed.dxf");
    ASSERT_EQ(std::system(("./whole-way draw " + drawing).c_str()), 0);
    const SBatchResult result =
        RunBatchProgram("pack " + drawing +
                        ":4 --method free --spacing 2 --width 250 --turns 0,90,180,270 "
                        "--steps 2000 --seed 1 --dxf " +
                        packed);
    ASSERT_EQ(result.m_nStatus, 0) << result.m_Errors;
    EXPECT_THAT(result.m_Errors,
                HasSubstr(drawing + ":4: 3 pieces (12 with copies), 2 holes, up to 100 x 60 mm"));
    EXPECT_EQ(std::system(("./whole-way examine " + packed + " 12 2 250").c_str()), 0);
}

}  // namespace nestrix
