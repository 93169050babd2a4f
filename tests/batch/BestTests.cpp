#include <gmock/gmock.h>

#include <filesystem>

#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

char const* const LEFT = R"({"name": "left", "outline": [[0,0],[10,0],[10,10],[0,10]]})";
char const* const RIGHT = R"({"name": "right", "outline": [[0,0],[10,0],[10,10],[0,10]]})";
char const* const STRIP = R"({"width": 30})";

/// Two squares of 10, the second so high.
std::string Pair(const std::string& y, const std::string& more = "", const std::string& strip = STRIP,
                 const std::string& second = RIGHT) {
    return "{" + more + R"("strip": )" + strip + R"(, "pieces": [)" + LEFT + ", " + second +
           R"(], "placements": [{"piece": 0, "x": 0, "y": 0}, {"piece": 1, "x": 12, "y": )" + y + "}]}";
}

std::string Seed(int nSeed) {
    return "\"seed\": " + std::to_string(nSeed) + ", ";
}

/// Compares a packing of height 10 with another.
SBatchResult CompareWith(const std::string& other) {
    const CTemporaryFolder folder;
    return RunBatchProgram("best " + folder.Write("job.json", Pair("0")) + " " +
                           folder.Write("other.json", other));
}

}  // namespace

TEST(Best, TellsThePackingsByHeightAndNamesTheLowest) {
    const CTemporaryFolder folder;
    const std::string high = folder.Write("high.json", Pair("5.25", Seed(11)));
    const std::string low = folder.Write("low.json", Pair("0", Seed(2)));
    const std::string middle = folder.Write("middle.json", Pair("2"));
    const SBatchResult result = RunBatchProgram("best " + high + " " + low + " " + middle);
    EXPECT_EQ(result.m_nStatus, 0) << result.m_Errors;
    EXPECT_EQ(result.m_Output,
              "height  density  seed  file\n"
              "    10  66.67 %     2  " +
                  low +
                  "\n"
                  "    12  55.56 %     -  " +
                  middle +
                  "\n"
                  " 15.25  43.72 %    11  " +
                  high +
                  "\n"
                  "Best: " +
                  low + "\n");
}

TEST(Best, OfEquallyHighPackingsIsTheFirst) {
    const CTemporaryFolder folder;
    const std::string first = folder.Write("b.json", Pair("0"));
    const std::string second = folder.Write("a.json", Pair("0"));
    EXPECT_EQ(RunBatchProgram("best " + first + " " + second).ValueOf("Best: "), first);
}

TEST(Best, IsWrittenInEveryFormat) {
    const CTemporaryFolder folder;
    const std::string low = folder.Write("low,\"1\".json", Pair("0", Seed(2) + R"("unit": "mm", )"));
    const std::string same = folder.Write("same.json", Pair("5", R"("unit": "mm", )"));
    const SBatchResult result =
        RunBatchProgram("best '" + low + "' " + same + " --json a.json --svg a.svg --dxf a.dxf --csv a.csv",
                        "cd " + folder.Path().native());
    EXPECT_EQ(result.m_nStatus, 0) << result.m_Errors;
    EXPECT_EQ(EntryCount(folder.Path()), 6);
    EXPECT_EQ(RunBatchProgram("certify a.json", "cd " + folder.Path().native()).m_Output,
              "a.json: valid, 2 pieces, height 10, density 66.67 %\n");
    EXPECT_THAT(ReadFile(folder.PathOf("a.json")), HasSubstr("\"seed\": 2"));
    EXPECT_THAT(ReadFile(folder.PathOf("a.svg")), HasSubstr("30mm"));
    EXPECT_EQ(RunBatchProgram("check --quiet " + folder.PathOf("a.dxf")).m_Errors, "");
    EXPECT_EQ(ReadFile(folder.PathOf("a.csv")), "file,height,density,seed\n\"" +
                                                    folder.PathOf("low,\"\"1\"\".json") +
                                                    "\",10,0.666667,2\n" + same + ",15,0.444444,\n");
}

TEST(Best, RefusesWhatIsNotValidAndWritesTheBestOfTheOthers) {
    const CTemporaryFolder folder;
    const std::string overlapping = folder.Write(
        "overlapping.json", R"({"strip": {"width": 30}, "pieces": [)" + std::string(LEFT) + ", " + RIGHT +
                                R"(], "placements": [{"x": 0, "y": 0}, {"x": 9.5, "y": 0}]})");
    const std::string valid = folder.Write("valid.json", Pair("5"));
    const std::string written = folder.PathOf("best.json");
    const SBatchResult result = RunBatchProgram("best " + overlapping + " " + valid + " --json " + written);
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_EQ(result.m_Errors, "nestrix-batch: " + overlapping +
                                   ": refused: not valid: placements 1 and 2 overlap by 0.5 (left, right)\n");
    EXPECT_EQ(result.ValueOf("Best: "), valid);
    EXPECT_THAT(result.m_Output, Not(HasSubstr(overlapping)));
    EXPECT_EQ(RunBatchProgram("certify " + written).m_nStatus, 0);
}

TEST(Best, RefusesPackingsOfAnotherJobWithTheReason) {
    const std::vector<std::pair<std::string, std::string>> others{
        {Pair("0", "", R"({"width": 40})"), "the strip's width is 40, not 30"},
        {Pair("0", "", R"({"width": 30, "spacing": 1})"), "the spacing is 1, not 0"},
        {Pair("0", "", STRIP, R"({"name": "right", "outline": [[0,0],[9,0],[9,9]]})"),
         "it has another piece: right"},
        {Pair("0", "", STRIP, R"({"name": "right", "turns": [0], "outline": [[0,0],[10,0],[10,10],[0,10]]})"),
         "right may be turned or mirrored differently"},
        {Pair("0", R"("unit": "in", )"), "the unit is in, not unknown"},
        {Pair("0", R"("options": {"keep-holes-empty": true}, )"), "holes were to be kept empty"},
    };
    for (const auto& [other, reason] : others) {
        const SBatchResult result = CompareWith(other);
        EXPECT_EQ(result.m_nStatus, 1) << reason;
        EXPECT_THAT(result.m_Errors, HasSubstr("other.json: refused: another job: " + reason + "\n"));
        EXPECT_THAT(result.m_Output, HasSubstr("Best: "));
    }
}

TEST(Best, RefusesAnotherQuantityOrAnotherMargin) {
    const CTemporaryFolder folder;
    const auto pack = [&](const std::string& options, const std::string& name) {
        const std::string path = folder.PathOf(name);
        EXPECT_EQ(RunBatchProgram("pack --quiet --steps 20 --json " + path + " " NESTRIX_SAMPLES "/squares" +
                                  options)
                      .m_nStatus,
                  0);
        return " " + path;
    };
    const SBatchResult result = RunBatchProgram("best" + pack("", "job.json") + pack(":2", "twice.json") +
                                                pack(" --margin 1", "margin.json"));
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Errors,
                HasSubstr("twice.json: refused: another job: another quantity is asked for of "));
    EXPECT_THAT(result.m_Errors, HasSubstr("margin.json: refused: another job: the margin is 1, not 0\n"));
}

TEST(Best, TakesTheSamePiecesInAnotherOrder) {
    EXPECT_EQ(CompareWith(R"({"strip": {"width": 30}, "pieces": [)" + std::string(RIGHT) + ", " + LEFT +
                          R"(], "placements": [{"x": 0, "y": 0}, {"x": 10, "y": 0}]})")
                  .m_nStatus,
              0);
}

TEST(Best, ComparesFreePackingsOnly) {
    const SBatchResult result = CompareWith(Pair("0", R"("method": "drop", )"));
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Errors,
                HasSubstr("other.json: refused: it was dropped: only free packings are compared\n"));
}

TEST(Best, EndsWithTwoForAFileThatIsNoPackingAndWritesTheBestOfTheOthers) {
    const CTemporaryFolder folder;
    const std::string valid = folder.Write("valid.json", Pair("5"));
    const std::string cut = folder.Write("cut-off.json", Pair("0").substr(0, 90));
    const std::string written = folder.PathOf("best.json");
    const SBatchResult result = RunBatchProgram("best " + cut + " " + valid + " --json " + written);
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, StartsWith("nestrix-batch: " + cut + ":1: "));
    EXPECT_EQ(RunBatchProgram("certify " + written).m_nStatus, 0);
}

TEST(Best, OfNothingIsNothing) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram("best /no/such.json --json " + folder.PathOf("best.json"));
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, HasSubstr("nestrix-batch: there is no packing to choose\n"));
    EXPECT_EQ(result.m_Output, "");
    EXPECT_EQ(EntryCount(folder.Path()), 0);
}

TEST(Best, NeverTakesThePlaceOfAPackingThatItReads) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.json", Pair("0"));
    const SBatchResult result = RunBatchProgram("best " + path + " --json " + path);
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, HasSubstr("would take the place of " + path));
    EXPECT_EQ(ReadFile(path), Pair("0"));
}

TEST(Best, TriesItsFilesBeforehand) {
    const CTemporaryFolder folder;
    const SBatchResult result =
        RunBatchProgram("best " + folder.Write("a.json", Pair("0")) + " --json /no/such/folder/best.json");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Errors, HasSubstr("cannot write /no/such/folder/best.json"));
    EXPECT_EQ(result.m_Output, "");
}

TEST(Best, IsCutWithItsCurvesOnceTheDrawingsAreNamedAgain) {
    const CTemporaryFolder folder;
    const std::string run = "cd " + folder.Path().native();
    const std::string drawing =
        folder.Write("disc.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="40mm"
        height="40mm" viewBox="0 0 40 40"><circle cx="20" cy="20" r="10"/></svg>)");
    const std::string pack = "pack --quiet --width 50 --seed 1 disc.svg:3 ";
    EXPECT_EQ(RunBatchProgram(pack + "--steps 100 --json 1.json --dxf 1.dxf", run).m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram("best 1.json --json best.json", run).m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram(pack + "--steps 0 --from best.json --dxf 2.dxf", run).m_nStatus, 0);
    EXPECT_EQ(ReadFile(folder.PathOf("2.dxf")), ReadFile(folder.PathOf("1.dxf")));
}

TEST(Best, IsCutAsItIsWithoutTheOptionsThatItWasFoundWith) {
    const CTemporaryFolder folder;
    const std::string run = "cd " + folder.Path().native();
    std::filesystem::create_directory(folder.PathOf("drawings"));
    const std::string hook = folder.Write(
        "drawings/hook.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="40mm" height="40mm"
        viewBox="0 0 40 40"><path d="M0,0 h30 v8 h-20 a10,10 0 0 0 -10,10 z"/></svg>)");
    std::filesystem::copy_file(hook, folder.PathOf("drawings/two.svg"));
    const std::string options =
        "--width 34 --spacing 1 --margin 1.5 --turns 30,210 --mirror --seed 1 --steps 300 ";
    EXPECT_EQ(
        RunBatchProgram("pack drawings/ " + options + "--quiet --json 1.json --dxf 1.dxf", run).m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram("best 1.json --json best.json", run).m_nStatus, 0);
    const SBatchResult cut = RunBatchProgram("pack drawings/ --from best.json --steps 0 --dxf cut.dxf", run);
    EXPECT_EQ(cut.m_nStatus, 0);
    EXPECT_THAT(cut.m_Errors, Not(HasSubstr("warning")));
    EXPECT_EQ(ReadFile(folder.PathOf("cut.dxf")), ReadFile(folder.PathOf("1.dxf")));
}

TEST(Best, IsSearchedOnFrom) {
    const CTemporaryFolder folder;
    std::string files;
    for (int nSeed = 1; nSeed <= 2; ++nSeed) {
        const std::string path = folder.PathOf(std::to_string(nSeed) + ".json");
        const std::string options = "--quiet --threads 1 --steps 50 --seed " + std::to_string(nSeed);
        EXPECT_EQ(
            RunBatchProgram("pack " NESTRIX_SAMPLES "/concave " + options + " --json " + path).m_nStatus, 0);
        files += path + " ";
    }
    const std::string best = folder.PathOf("best.json");
    EXPECT_EQ(RunBatchProgram("best " + files + "--json " + best).m_nStatus, 0);
    const auto goOn = [&](int nSteps) {
        const SBatchResult result = RunBatchProgram("pack --quiet --threads 1 --seed 3 --from " + best +
                                                    " --steps " + std::to_string(nSteps));
        EXPECT_EQ(result.m_nStatus, 0) << result.m_Errors;
        return std::stod(result.ValueOf("Best height: "));
    };
    const std::string verdict = RunBatchProgram("certify " + best).m_Output;
    const double height = std::stod(verdict.substr(verdict.find("height ") + 7));
    EXPECT_EQ(goOn(0), height);
    EXPECT_LT(goOn(4000), height);
}

}  // namespace nestrix
