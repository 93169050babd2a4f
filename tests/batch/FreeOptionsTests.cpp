#include "batch/FreeOptions.h"

#include <gmock/gmock.h>

#include "batch/PackOptions.h"
#include "tests/batch/BatchProgram.h"

namespace nestrix {

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

void ExpectRefused(const std::string& options, const std::string& complaint) {
    const SBatchResult result = RunBatchProgram(NESTRIX_SAMPLES "/concave " + options);
    EXPECT_EQ(result.m_nStatus, 2) << options;
    EXPECT_EQ(result.m_Output, "") << options;
    EXPECT_THAT(result.m_Errors, HasSubstr(complaint)) << options;
}

/// What the program makes of these options.
SPackOptions Parsed(std::vector<std::string> words) {
    words.insert(words.begin(), "pieces");
    SPackOptions parsed;
    EXPECT_EQ(ParsePackOptions(words, parsed), std::nullopt);
    return parsed;
}

SFreeOptions Free(const std::vector<std::string>& options) {
    return Parsed(options).m_Free;
}

}  // namespace

TEST(Method, IsFreeUnlessAnotherIsGiven) {
    EXPECT_EQ(Parsed({}).m_eMethod, EPackMethod::FREE);
    EXPECT_EQ(Parsed({"--method", "free"}).m_eMethod, EPackMethod::FREE);
    EXPECT_EQ(Parsed({"--method", "drop"}).m_eMethod, EPackMethod::DROP);
}

TEST(Method, ThatIsUnknownIsRefused) {
    ExpectRefused("--method fall", "--method: 'fall' is not one of the methods");
    ExpectRefused("--method ''", "--method");
}

TEST(OptionOfDropping, IsRefusedByFreePacking) {
    for (char const* const pOption : {"--population 3", "--generations 3", "--mutation 0.5"}) {
        ExpectRefused(pOption, "only --method drop has this option");
        ExpectRefused(std::string("--method free ") + pOption, "only --method drop has this option");
    }
}

TEST(OptionOfFreePacking, IsRefusedByDropping) {
    for (char const* const pOption : {"--width 300", "--spacing 1", "--margin 1", "--turns any", "--mirror",
                                      "--keep-holes-empty", "--time 1s", "--steps 9", "--target-height 300",
                                      "--target-density 80", "--patience 1s", "--threads 1"}) {
        ExpectRefused(std::string("--method drop ") + pOption, "only --method free has this option");
    }
}

TEST(Strip, HasTheWidthSpacingAndMarginOfTheOptions) {
    const SFreeStrip strip = StripOf(Free({"--width", "62.5", "--spacing", "0.1", "--margin", "2"}), {});
    EXPECT_EQ(strip.m_Width, 62.5);
    EXPECT_EQ(strip.m_Spacing, 0.1);
    EXPECT_EQ(strip.m_Margin, 2.0);
}

TEST(Strip, IsFourHundredWideWithoutSpacingAndMarginByDefault) {
    const SFreeStrip strip = StripOf(Free({}), {});
    EXPECT_EQ(strip.m_Width, 400.0);
    EXPECT_EQ(strip.m_Spacing, 0.0);
    EXPECT_EQ(strip.m_Margin, 0.0);
}

TEST(Lengths, ThatAreNoneAreRefused) {
    for (char const* const pText :
         {"wide", "''", "nan", "inf", "1e400", "' 7'", "7mm", "0x10", "+7", "1,5"}) {
        for (char const* const pOption : {"--width", "--spacing", "--margin", "--target-height"}) {
            ExpectRefused(pOption + std::string(" ") + pText, std::string(pOption) + ": ");
        }
    }
    ExpectRefused("--width 0", "--width: '0' is not a number from 1e-14 to 1e28");
    ExpectRefused("--width -400", "--width: '-400' is not a number");
    ExpectRefused("--width 1e29", "--width");
    ExpectRefused("--spacing -1", "--spacing: '-1' is not a number from 0 to");
    ExpectRefused("--margin -0.5", "--margin: '-0.5' is not a number from 0 to");
    ExpectRefused("--target-height 0", "--target-height: '0' is not a number above 0");
}

TEST(Turns, AreNoneByDefaultSoThatPiecesKeepTheirGrain) {
    const std::vector<SPiece> pieces = WithDemands({SPiece()}, Free({}));
    EXPECT_FALSE(pieces[0].m_Turns.m_bAny);
    EXPECT_THAT(pieces[0].m_Turns.m_Degrees, ElementsAre(0.0));
}

TEST(Turns, AreAListOrAny) {
    EXPECT_THAT(Free({"--turns", "0,90,180,270"}).m_Turns->m_Degrees, ElementsAre(0.0, 90.0, 180.0, 270.0));
    EXPECT_THAT(Free({"--turns", "12.5"}).m_Turns->m_Degrees, ElementsAre(12.5));
    EXPECT_TRUE(Free({"--turns", "any"}).m_Turns->m_bAny);
}

TEST(Turns, AreTakenWithinOneTurnAndOnce) {
    EXPECT_THAT(Free({"--turns", "-90,360,270,450,-0"}).m_Turns->m_Degrees, ElementsAre(270.0, 0.0, 90.0));
    EXPECT_THAT(Free({"--turns", "-1e-30"}).m_Turns->m_Degrees, ElementsAre(0.0));
}

TEST(Turns, ThatAreNoneAreRefused) {
    for (char const* const pText :
         {"up", "0,,90", "0,90,", ",0", "''", "0 ,90", "0,any", "Any", "nan", "inf"}) {
        ExpectRefused(std::string("--turns '") + pText + "'", "--turns");
    }
}

TEST(Mirroring, AndHolesThatStayEmptyAreChosenByTheirOptions) {
    EXPECT_FALSE(Free({}).m_bMirror);
    EXPECT_TRUE(Free({"--mirror"}).m_bMirror);
    EXPECT_FALSE(Free({}).m_bKeepHolesEmpty);
    EXPECT_TRUE(Free({"--keep-holes-empty"}).m_bKeepHolesEmpty);
}

TEST(Time, IsReadInAnyUnit) {
    EXPECT_EQ(Free({"--time", "60s"}).m_Limits.m_Seconds, 60.0);
    EXPECT_EQ(Free({"--time", "500ms"}).m_Limits.m_Seconds, 0.5);
    EXPECT_EQ(Free({"--time", "2m"}).m_Limits.m_Seconds, 120.0);
    EXPECT_EQ(Free({"--time", "1.5h"}).m_Limits.m_Seconds, 5400.0);
    EXPECT_EQ(Free({"--time", "7"}).m_Limits.m_Seconds, 7.0);
    EXPECT_EQ(Free({"--patience", "250ms"}).m_Limits.m_Patience, 0.25);
}

TEST(Time, ThatIsNoneIsRefused) {
    for (char const* const pText :
         {"0", "0s", "-1s", "s", "ms", "5d", "1m30s", "'5 s'", "nan", "1e308h", "''"}) {
        ExpectRefused(std::string("--time ") + pText, "--time");
        ExpectRefused(std::string("--patience ") + pText, "--patience");
    }
}

TEST(Limits, AreAMinuteWhereNoneIsGiven) {
    EXPECT_EQ(LimitsOf(Free({})).m_Seconds, 60.0);
    for (char const* const pOption : {"--steps", "--target-height", "--target-density", "--patience"}) {
        EXPECT_EQ(LimitsOf(Free({pOption, "50"})).m_Seconds, std::nullopt) << pOption;
    }
    EXPECT_EQ(LimitsOf(Free({"--time", "9", "--steps", "50"})).m_Seconds, 9.0);
}

TEST(TargetDensity, IsAPercentage) {
    EXPECT_EQ(Free({"--target-density", "85"}).m_Limits.m_TargetDensity, 0.85);
    EXPECT_EQ(Free({"--target-density", "85%"}).m_Limits.m_TargetDensity, 0.85);
    EXPECT_EQ(Free({"--target-density", "100"}).m_Limits.m_TargetDensity, 1.0);
    for (char const* const pText : {"0", "-5", "100.1", "'85 %'", "%", "85%%", "dense"}) {
        ExpectRefused(std::string("--target-density ") + pText, "--target-density");
    }
}

TEST(Steps, AreAWholeNumber) {
    EXPECT_EQ(Free({"--steps", "18446744073709551615"}).m_Limits.m_nSteps, UINT64_MAX);
    EXPECT_EQ(Free({"--steps", "0"}).m_Limits.m_nSteps, 0U);
    EXPECT_EQ(Free({"--steps", "010"}).m_Limits.m_nSteps, 10U);
    for (char const* const pText : {"-1", "1.5", "1e6", "18446744073709551616", "many"}) {
        ExpectRefused(std::string("--steps ") + pText, "--steps");
    }
}

TEST(Threads, AreAsManyAsGivenOrAtLeastOne) {
    EXPECT_EQ(ThreadsOf(Free({"--threads", "3"})), 3);
    EXPECT_GE(ThreadsOf(Free({})), 1);
    for (char const* const pText : {"0", "-1", "1025", "two"}) {
        ExpectRefused(std::string("--threads ") + pText, "--threads");
    }
}

TEST(Strip, IsAsWideAsAnInputAsksForUnlessTheOptionsSayOtherwise) {
    EXPECT_EQ(StripOf(Free({}), {38.0, {}, {}}).m_Width, 38.0);
    EXPECT_EQ(StripOf(Free({"--width", "50"}), {38.0, {}, {}}).m_Width, 50.0);
}

TEST(Demands, OfThePiecesHoldUnlessTheOptionsSayOtherwise) {
    SPiece piece;
    piece.m_Turns = {false, {0.0, 180.0}};
    piece.m_bMirrored = true;
    const SPiece own = WithDemands({piece}, Free({}))[0];
    EXPECT_THAT(own.m_Turns.m_Degrees, ElementsAre(0.0, 180.0));
    EXPECT_TRUE(own.m_bMirrored);
    EXPECT_TRUE(WithDemands({piece}, Free({"--turns", "any"}))[0].m_Turns.m_bAny);
    EXPECT_TRUE(WithDemands({SPiece()}, Free({"--mirror"}))[0].m_bMirrored);
}

TEST(RepeatingCommand, HasTheWordsButThoseThatSayWhenToEnd) {
    const SInvocation invocation{"bin/nestrix-batch",
                                 {"a.pol", "--time", "5s", "--turns", "0,90", "--time=3", "--patience", "1s",
                                  "--target-height=9", "--target-density", "50%", "--seed", "1",
                                  "--threads=4", "--steps", "9", "--watch", "w.svg", "--mirror"}};
    EXPECT_EQ(RepeatingCommand(invocation, " --seed 7 --steps 123"),
              "bin/nestrix-batch pack a.pol --turns 0,90 --mirror --seed 7 --steps 123");
}

TEST(RepeatingCommand, IsReadByAShellAsItWasGiven) {
    const SInvocation invocation{"my nestrix", {"it's.pol", "a b.pol", "$HOME", "", "*", "#1", "~"}};
    EXPECT_EQ(RepeatingCommand(invocation, ""),
              "'my nestrix' pack 'it'\\''s.pol' 'a b.pol' '$HOME' '' '*' '#1' '~'");
}

TEST(RepeatingCommand, LeavesWordsAloneThatAreNoOptions) {
    const SInvocation invocation{"nestrix-batch", {"a.pol", "--", "--time", "9"}};
    EXPECT_EQ(RepeatingCommand(invocation, " --seed 1"), "nestrix-batch pack a.pol --seed 1 -- --time 9");
}

TEST(Help, StaysOnOneScreen) {
    const std::string help = RunBatchProgram("pack --help").m_Output;
    EXPECT_LT(std::count(help.begin(), help.end(), '\n'), 60);
}

}  // namespace nestrix
