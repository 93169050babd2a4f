#include <gmock/gmock.h>

#include <filesystem>

#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::EntryCount;
using support::ReadFile;
using support::SquareFile;

using testing::HasSubstr;

namespace {

/// Runs with options that are at fault, on files that are not.
SBatchResult RunWithBadOptions(const std::string& options) {
    return RunBatchProgram(NESTRIX_SAMPLES "/squares " + options);
}

void ExpectRefused(const SBatchResult& result, const std::string& complaint) {
    EXPECT_EQ(result.m_nStatus, 2);
    EXPECT_EQ(result.m_Output, "");
    EXPECT_THAT(result.m_Errors, HasSubstr(complaint));
}

}  // namespace

TEST(CommandLine, HelpOfPackNamesEveryOptionAndExitsWithZero) {
    const SBatchResult result = RunBatchProgram("pack --help");
    EXPECT_EQ(result.m_nStatus, 0);
    for (char const* const pOption :
         {"INPUT", "--population", "--generations", "--mutation", "--seed", "--svg", "--csv", "--watch",
          "--quiet", "--unit", "--scale", "--lenient", "Ctrl-C"}) {
        EXPECT_THAT(result.m_Output, HasSubstr(pOption));
    }
    EXPECT_EQ(result.m_Errors, "");
}

TEST(CommandLine, WithoutAnInputIsRefused) {
    ExpectRefused(RunBatchProgram("--generations 1"), "INPUT: is required");
    ExpectRefused(RunBatchProgram("pack"), "INPUT: is required");
    ExpectRefused(RunBatchProgram(""), "INPUT: is required");
}

TEST(CommandLine, UnknownOptionIsRefused) {
    ExpectRefused(RunWithBadOptions("--speed 3"), "--speed");
}

TEST(CommandLine, OptionWithoutItsValueIsRefused) {
    ExpectRefused(RunWithBadOptions("--seed"), "--seed");
}

TEST(CommandLine, PopulationOutsideOneToAMillionIsRefused) {
    ExpectRefused(RunWithBadOptions("--population 0"), "--population");
    ExpectRefused(RunWithBadOptions("--population -3"), "--population");
    ExpectRefused(RunWithBadOptions("--population 1000001"), "--population");
}

TEST(CommandLine, NegativeGenerationsAreRefused) {
    ExpectRefused(RunWithBadOptions("--method drop --generations -1"), "--generations");
}

TEST(CommandLine, MutationThatIsNoProbabilityIsRefused) {
    ExpectRefused(RunWithBadOptions("--mutation 1.01"), "--mutation");
    ExpectRefused(RunWithBadOptions("--mutation -0.01"), "--mutation");
    ExpectRefused(RunWithBadOptions("--mutation nan"), "--mutation");
    ExpectRefused(RunWithBadOptions("--mutation often"), "--mutation");
}

TEST(CommandLine, SeedBeyondAnUnsignedIntIsRefused) {
    ExpectRefused(RunWithBadOptions("--seed 4294967296"), "--seed");
    ExpectRefused(RunWithBadOptions("--seed -1"), "--seed");
}

TEST(CommandLine, NumbersThatAreNotWrittenInDecimalDigitsAreRefused) {
    for (char const* const pNumber : {"''", "0x10", "1e2", "1.0", "' 7'", "'7 '", "+7", "7u", "seven"}) {
        ExpectRefused(RunWithBadOptions(std::string("--seed ") + pNumber), "--seed");
        ExpectRefused(RunWithBadOptions(std::string("--population ") + pNumber), "--population");
        ExpectRefused(RunWithBadOptions(std::string("--generations ") + pNumber), "--generations");
    }
    ExpectRefused(RunWithBadOptions("--seed="), "--seed");
    ExpectRefused(RunWithBadOptions("--mutation ''"), "--mutation");
}

TEST(CommandLine, ZerosInFrontOfANumberDoNotMakeItOctal) {
    const SBatchResult result =
        RunWithBadOptions("--method drop --population 010 --generations 008 --seed 0010");
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_EQ(result.ValueOf("Seed: "), "10");
    EXPECT_THAT(result.m_Output, HasSubstr("Generation 8 has been created with 10 many individuals"));
}

TEST(CommandLine, ArgumentInBracketsIsTakenWhole) {
    const support::CTemporaryFolder folder;
    std::filesystem::create_directory(folder.PathOf("[set 1]"));
    (void)folder.Write("[set 1]/a.pol", SquareFile(10.0F));
    (void)folder.Write("[b,c]", SquareFile(20.0F));
    const SBatchResult result = RunBatchProgram(
        "'[set 1]' '[b,c]' '[set 1]/a.pol' --method drop --population 3 --generations 0 --quiet --svg '[x, "
        "y]'",
        "cd " + folder.Path().native());
    EXPECT_EQ(result.m_Errors, "");
    EXPECT_THAT(ReadFile(folder.PathOf("[x, y]")), HasSubstr("Packing of 3 pieces"));
    EXPECT_EQ(EntryCount(folder.Path()), 3);
    EXPECT_THAT(RunBatchProgram("'[no, such]'").m_Errors, HasSubstr(": [no, such]: No such file"));
}

TEST(CommandLine, EmptyNameForThePictureIsRefused) {
    ExpectRefused(RunWithBadOptions("--svg ''"), "--svg");
}

TEST(CommandLine, BothEndsOfTheProbabilityAreAccepted) {
    EXPECT_EQ(RunWithBadOptions("--method drop --generations 1 --population 4 --mutation 0").m_nStatus, 0);
    EXPECT_EQ(RunWithBadOptions("--method drop --generations 1 --population 4 --mutation 1").m_nStatus, 0);
}

TEST(CommandLine, GreatestSeedIsAcceptedAndPrinted) {
    const SBatchResult result = RunWithBadOptions("--method drop --generations 0 --seed 4294967295");
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_EQ(result.ValueOf("Seed: "), "4294967295");
}

TEST(CommandLine, WithoutACommandMeansToPack) {
    const std::string words =
        NESTRIX_SAMPLES "/squares --method drop --population 4 --generations 1 --seed 1";
    const SBatchResult packed = RunBatchProgram("pack " + words);
    EXPECT_EQ(packed.m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram(words).ValueOf("Best height: "), packed.ValueOf("Best height: "));
}

TEST(CommandLine, HelpNamesEveryCommandAndTheStatuses) {
    const SBatchResult result = RunBatchProgram("--help");
    EXPECT_EQ(result.m_nStatus, 0);
    for (char const* const pWord :
         {"pack", "check", "certify", "best", "draw", "convert", "Exit status", "130"}) {
        EXPECT_THAT(result.m_Output, HasSubstr(pWord));
    }
    EXPECT_EQ(RunBatchProgram("-h").m_Output, result.m_Output);
}

TEST(CommandLine, EveryCommandHasItsHelp) {
    for (char const* const pCommand : {"pack", "check", "certify", "best", "draw", "convert"}) {
        const SBatchResult result = RunBatchProgram(std::string(pCommand) + " --help");
        EXPECT_EQ(result.m_nStatus, 0) << pCommand;
        EXPECT_THAT(result.m_Output, HasSubstr(std::string("Usage: nestrix-batch ") + pCommand));
        EXPECT_EQ(RunBatchProgram(std::string(pCommand) + " --no-such-option").m_nStatus, 2) << pCommand;
        EXPECT_EQ(RunBatchProgram(pCommand).m_nStatus, 2) << pCommand << " needs something to work on";
    }
}

TEST(CommandLine, TellsTheProgramsVersion) {
    const SBatchResult result = RunBatchProgram("--version");
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_THAT(result.m_Output, testing::MatchesRegex("nestrix-batch [0-9]+\\.[0-9]+\n"));
}

TEST(CommandLine, HelpOnAFullDiskFails) {
    EXPECT_EQ(RunBatchProgram("--help >/dev/full").m_nStatus, 1);
}

}  // namespace nestrix
