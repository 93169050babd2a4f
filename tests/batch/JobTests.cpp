#include <gmock/gmock.h>

#include "batch/PackOptions.h"
#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CTemporaryFolder;
using support::ReadFile;
using testing::HasSubstr;

namespace {

SPackOptions Parsed(const std::vector<std::string>& words) {
    SPackOptions options;
    EXPECT_EQ(ParsePackOptions(words, options), std::nullopt);
    return options;
}

constexpr char WHOLE_JOB[] = R"({
  "strip": {"width": 10, "spacing": 0.1, "margin": 0.2},
  "unit": "cm", "scale": 2, "seed": 9, "threads": 3, "keep_holes_empty": true,
  "limits": {"time": 90, "steps": 5, "target_height": 4, "target_density": 0.5, "patience": 6},
  "pieces": [{"file": "a.pol"}]
})";

}  // namespace

TEST(Job, SaysWhatTheOptionsCouldSay) {
    const CTemporaryFolder folder;
    const SPackOptions options = Parsed({"--job", folder.Write("job.json", WHOLE_JOB)});
    EXPECT_EQ(options.m_Free.m_Strip.m_Width, 100.0);
    EXPECT_EQ(options.m_Free.m_Strip.m_Spacing, 1.0);
    EXPECT_EQ(options.m_Free.m_Strip.m_Margin, 2.0);
    EXPECT_EQ(options.m_Inputs.m_Reading.m_Unit, EUnit::CENTIMETRE);
    EXPECT_EQ(options.m_Inputs.m_Reading.m_Scale, 2.0);
    EXPECT_EQ(options.m_Seed, 9U);
    EXPECT_EQ(options.m_Free.m_nThreads, 3);
    EXPECT_TRUE(options.m_Free.m_bKeepHolesEmpty);
    EXPECT_EQ(options.m_Free.m_Limits.m_Seconds, 90.0);
    EXPECT_EQ(options.m_Free.m_Limits.m_nSteps, 5U);
    EXPECT_EQ(options.m_Free.m_Limits.m_TargetHeight, 40.0);
    EXPECT_EQ(options.m_Free.m_Limits.m_TargetDensity, 0.5);
    EXPECT_EQ(options.m_Free.m_Limits.m_Patience, 6.0);
}

TEST(Job, GivesWayToTheOptions) {
    const CTemporaryFolder folder;
    const SPackOptions options = Parsed(
        {"--job", folder.Write("job.json", WHOLE_JOB), "--width", "50", "--seed", "1", "--unit", "mm"});
    EXPECT_EQ(options.m_Free.m_Strip.m_Width, 50.0);
    EXPECT_EQ(options.m_Free.m_Strip.m_Spacing, 1.0);
    EXPECT_EQ(options.m_Seed, 1U);
    EXPECT_EQ(options.m_Inputs.m_Reading.m_Unit, EUnit::MILLIMETRE);
}

/// Or else a search that is to be repeated by its steps could be ended by the job's time.
TEST(Job, LosesAllItsLimitsToOneOfTheOptions) {
    const CTemporaryFolder folder;
    const SPackLimits limits =
        Parsed({"--job", folder.Write("job.json", WHOLE_JOB), "--steps", "77"}).m_Free.m_Limits;
    EXPECT_EQ(limits.m_nSteps, 77U);
    EXPECT_EQ(limits.m_Seconds, std::nullopt);
    EXPECT_EQ(limits.m_TargetHeight, std::nullopt);
}

TEST(Job, MayBeToDrop) {
    const CTemporaryFolder folder;
    const std::string job = folder.Write(
        "job.json", R"({"method": "drop", "drop": {"population": 7, "generations": 8, "mutation": 0.25},
            "pieces": [{"outline": [[0,0],[9,0],[9,9]], "name": "a"}]})");
    const SPackOptions options = Parsed({"--job", job});
    EXPECT_EQ(options.m_eMethod, EPackMethod::DROP);
    EXPECT_EQ(options.m_Drop.m_nPopulation, 7);
    EXPECT_EQ(options.m_Drop.m_nGenerations, 8);
    EXPECT_EQ(options.m_Drop.m_fMutation, 0.25F);
    EXPECT_EQ(Parsed({"--job", job, "--method", "free"}).m_eMethod, EPackMethod::FREE);
    EXPECT_EQ(RunBatchProgram("--job " + job + " --population 2 --generations 0").ValueOf("Best height: "),
              "9.000000");
}

TEST(Job, IsPackedWithItsFilesOutlinesQuantitiesTurnsAndMirroring) {
    const CTemporaryFolder folder;
    (void)folder.Write("bar.pol", "4\n0,0\n50,0\n50,9\n0,9\n;50,9\n0,0\n");
    const std::string job = folder.Write("job.json", R"({
        "strip": {"width": 60}, "turns": [0, 180],
        "pieces": [{"file": "bar.pol", "quantity": 3, "name": "rail"},
                   {"file": "bar.pol", "turns": [90], "mirror": true},
                   {"outline": [[0,0],[30,0],[0,30]], "name": "wedge", "quantity": 2}]})");
    // From another folder: the job's files lie beside it.
    const SBatchResult result = RunBatchProgram("pack --job " + job + " --steps 50 --json " +
                                                folder.PathOf("r.json") + " --csv " + folder.PathOf("r.csv"));
    ASSERT_EQ(result.m_nStatus, 0) << result.m_Errors;
    EXPECT_EQ(result.ValueOf("Pieces: "), "6");
    const std::string record = ReadFile(folder.PathOf("r.json"));
    EXPECT_THAT(record, HasSubstr("\"strip\": {\"width\": 60,"));
    for (char const* const pPart : {"\"name\": \"rail\"", "\"quantity\": 3", "\"turns\": [90]",
                                    "\"mirror\": true", "\"name\": \"wedge\"", "\"turns\": [0, 180]"}) {
        EXPECT_THAT(record, HasSubstr(pPart));
    }
    EXPECT_EQ(RunBatchProgram("certify " + folder.PathOf("r.json")).m_nStatus, 0);
}

TEST(Job, DemandsTheSameOfAllPiecesOfAFile) {
    const CTemporaryFolder folder;
    (void)folder.Write("two.svg", R"(<svg width="99mm" height="99mm" viewBox="0 0 99 99">
        <rect id="a" width="5" height="5"/><rect id="b" x="10" width="5" height="5"/></svg>)");
    const std::string job =
        folder.Write("job.json", R"({"pieces": [{"file": "two.svg", "turns": [90], "quantity": 2}]})");
    const std::string record = folder.PathOf("r.json");
    EXPECT_EQ(RunBatchProgram("pack --job " + job + " --steps 0 --json " + record).ValueOf("Pieces: "), "4");
    EXPECT_EQ(support::CountOf("\"turns\": [90]", ReadFile(record)), 2);
}

TEST(Job, MayTakeOnePieceOfAFile) {
    const CTemporaryFolder folder;
    (void)folder.Write("three.svg", R"(<svg width="99mm" height="99mm" viewBox="0 0 99 99">
        <rect id="leg" width="5" height="5"/><rect x="10" width="6" height="6"/>
        <rect id="arm" x="20" width="7" height="7"/></svg>)");
    const std::string job = folder.Write("job.json", R"({"pieces": [
        {"file": "three.svg", "piece": "arm", "quantity": 2, "turns": [90]},
        {"file": "three.svg", "piece": 2, "name": "plate"}]})");
    const std::string record = folder.PathOf("r.json");
    const SBatchResult result = RunBatchProgram("pack --job " + job + " --steps 0 --json " + record);
    EXPECT_EQ(result.ValueOf("Pieces: "), "3") << result.m_Errors;
    EXPECT_THAT(result.m_Errors, HasSubstr("three.svg: 1 piece (2 with copies), 7 x 7 mm"));
    EXPECT_THAT(result.m_Errors, HasSubstr("three.svg: 1 piece, 6 x 6 mm"));
    EXPECT_THAT(ReadFile(record), HasSubstr("\"name\": \"plate\""));
}

TEST(Job, ThatTakesAPieceThatAFileHasNotIsRefused) {
    const CTemporaryFolder folder;
    (void)folder.Write("two.svg", R"(<svg width="99mm" height="99mm" viewBox="0 0 99 99"
        xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape">
        <rect inkscape:label="a" width="5" height="5"/>
        <rect inkscape:label="a" x="10" width="5" height="5"/></svg>)");
    const auto errorsOf = [&folder](const std::string& choice) {
        const SBatchResult result = RunBatchProgram(
            "pack --steps 0 --job " +
            folder.Write("job.json", R"({"pieces": [{"file": "two.svg", "piece": )" + choice + "}]}"));
        EXPECT_EQ(result.m_nStatus, 2);
        return result.m_Errors;
    };
    EXPECT_THAT(errorsOf("3"), HasSubstr("two.svg: it has no piece 3; it holds 2\n"));
    EXPECT_THAT(errorsOf("\"b\""), HasSubstr("two.svg: it has no piece \"b\"; it holds 2\n"));
    EXPECT_THAT(errorsOf("\"a\""),
                HasSubstr("two.svg: more than one piece of it has the name \"a\": their numbers tell\n"));
}

TEST(Job, IsPackedTogetherWithWhatTheCommandLineNames) {
    const CTemporaryFolder folder;
    const std::string piece = folder.Write("a.pol", support::SquareFile(10.0F));
    const std::string job = folder.Write("job.json", R"({"pieces": [{"file": "a.pol", "quantity": 2}]})");
    EXPECT_EQ(RunBatchProgram("pack --job " + job + " " + piece + ":3 --steps 0").ValueOf("Pieces: "), "5");
}

TEST(Job, ThatIsFaultyIsRefusedWithItsLine) {
    const CTemporaryFolder folder;
    const std::string job = folder.Write("job.json", "{\n\"stripe\": {}, \"pieces\": []}");
    const SBatchResult result = RunBatchProgram("pack --job " + job);
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_THAT(result.m_Errors, HasSubstr("nestrix-batch: " + job + ":2: "));
    EXPECT_EQ(RunBatchProgram("pack --job /no/such.json").m_nStatus, 2);
}

}  // namespace nestrix
