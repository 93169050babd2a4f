#include "formats/json/Job.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/formats/json/JobTexts.h"
#include "tests/formats/json/TextReading.h"

using namespace nestrix;
using support::DROP_JOB;
using support::Replaced;
using support::WHOLE_JOB;
using testing::HasSubstr;

namespace {

SJob Read(const std::string& text) {
    const SReading<SJob> reading = support::ReadText(ReadJob, text);
    EXPECT_TRUE(reading.m_Value) << support::ListOf(reading.m_Findings);
    return reading.m_Value.value_or(SJob());
}

std::string FaultsOf(const std::string& text) {
    return support::FaultsOf(ReadJob, text);
}

TEST(Job, SaysAllThatThereIsToSayOfFreePacking) {
    const SJob job = Read(WHOLE_JOB);
    EXPECT_EQ(job.m_Strip.m_Width, 1200.0);
    EXPECT_EQ(job.m_Strip.m_Spacing, 2.0);
    EXPECT_EQ(job.m_Strip.m_Margin, 5.5);
    EXPECT_EQ(job.m_Unit, EUnit::MILLIMETRE);
    EXPECT_EQ(job.m_Scale, 25.4);
    EXPECT_EQ(job.m_eMethod, EPackMethod::FREE);
    EXPECT_EQ(job.m_nSeed, 7U);
    EXPECT_EQ(job.m_nThreads, 4);
    EXPECT_EQ(job.m_bKeepHolesEmpty, true);
    EXPECT_EQ(job.m_Limits.m_Seconds, 90.0);
    EXPECT_EQ(job.m_Limits.m_nSteps, 100000U);
    EXPECT_EQ(job.m_Limits.m_TargetHeight, 800.0);
    EXPECT_EQ(job.m_Limits.m_TargetDensity, 0.85);
    EXPECT_EQ(job.m_Limits.m_Patience, 30.0);
    EXPECT_EQ(job.m_Demand.m_Turns, (STurns{false, {0.0, 180.0}}));
    EXPECT_EQ(job.m_Demand.m_bMirror, false);
}

TEST(Job, SaysWhatItDemandsOfEachPiece) {
    const SJob job = Read(WHOLE_JOB);
    ASSERT_EQ(job.m_Pieces.size(), 2U);
    const SJobPiece& bracket = job.m_Pieces[0];
    EXPECT_EQ(bracket.m_Name, "bracket");
    EXPECT_EQ(bracket.m_nLine, 13);
    EXPECT_EQ(bracket.m_Demand.m_nQuantity, 12);
    EXPECT_EQ(bracket.m_Demand.m_Turns, (STurns{true, {}}));
    EXPECT_EQ(bracket.m_Demand.m_bMirror, true);
    const SJobPiece& wedge = job.m_Pieces[1];
    EXPECT_EQ(wedge.m_File, "");
    EXPECT_EQ(wedge.m_Shape.m_Outline, (CRing{{0, 0}, {30, 0}, {30, 20}}));
    EXPECT_EQ(wedge.m_Shape.m_Holes, (std::vector<CRing>{{{1, 1}, {2, 1}, {2, 2}}}));
    EXPECT_FALSE(wedge.m_Demand.m_nQuantity || wedge.m_Demand.m_Turns || wedge.m_Demand.m_bMirror);
}

TEST(Job, SaysHowToSearchForDropOrders) {
    const SJob job = Read(DROP_JOB);
    EXPECT_EQ(job.m_eMethod, EPackMethod::DROP);
    EXPECT_EQ(job.m_Drop.m_nPopulation, 50);
    EXPECT_EQ(job.m_Drop.m_nGenerations, 20);
    EXPECT_EQ(job.m_Drop.m_Mutation, 0.25);
}

TEST(Job, LeavesOpenWhatItDoesNotSay) {
    const SJob job = Read(R"({"pieces": [{"file": "a.dxf"}]})");
    EXPECT_FALSE(job.m_Strip.m_Width || job.m_Unit || job.m_Scale || job.m_eMethod || job.m_nSeed ||
                 job.m_nThreads || job.m_bKeepHolesEmpty || job.m_Limits.m_Seconds || job.m_Limits.m_nSteps ||
                 job.m_Demand.m_Turns || job.m_Demand.m_bMirror || job.m_Drop.m_nPopulation);
}

TEST(Job, NamesFilesFromItsOwnFolder) {
    const support::CTemporaryFolder folder;
    const SReading<SJob> reading = ReadJob(folder.Write("job.json", WHOLE_JOB));
    EXPECT_EQ(reading.m_Value->m_Pieces[0].m_File, folder.PathOf("bracket.dxf"));
    EXPECT_EQ(Read(DROP_JOB).m_Pieces[0].m_File, "/samples/star.pol");
}

TEST(Job, MayChooseOnePieceOfAFileByNameOrNumber) {
    const SJob job = Read(
        R"({"pieces": [{"file": "a.dxf", "piece": "leg"}, {"file": "a.dxf", "piece": 2},
            {"file": "a.dxf"}]})");
    EXPECT_EQ(job.m_Pieces[0].m_Choice, CPieceChoice("leg"));
    EXPECT_EQ(job.m_Pieces[1].m_Choice, CPieceChoice(2));
    EXPECT_EQ(job.m_Pieces[2].m_Choice, std::nullopt);
}

TEST(Job, MayNameItsSchemaForAnEditor) {
    EXPECT_EQ(FaultsOf(R"({"$schema": "job.schema.json", "pieces": [{"file": "a.dxf"}]})"), "");
}

TEST(Job, TakesWholeNumbersHoweverTheyAreWritten) {
    EXPECT_EQ(
        Read(Replaced(WHOLE_JOB, "\"quantity\": 12", "\"quantity\": 1.2e1")).m_Pieces[0].m_Demand.m_nQuantity,
        12);
}

TEST(FaultyJob, IsRefusedForAllOfItsFaultsAtOnce) {
    const std::string twice = Replaced(Replaced(WHOLE_JOB, "1200", "-1"), "\"seed\": 7", "\"seed\": true");
    EXPECT_EQ(FaultsOf(twice),
              "2: /strip/width: -1 is not a number from 1e-14 to 1e28\n"
              "6: /seed: true is not a whole number from 0 to 4294967295\n");
}

class FaultyJobPart : public testing::TestWithParam<support::STextFault> {};

TEST_P(FaultyJobPart, IsNamedWithItsLineAndPlace) {
    EXPECT_THAT(FaultsOf(Replaced(WHOLE_JOB, GetParam().m_Part, GetParam().m_Other)),
                HasSubstr(GetParam().m_Message));
}

INSTANTIATE_TEST_SUITE_P(Each, FaultyJobPart, testing::ValuesIn(support::JobFaults()),
                         support::FaultTestName);

TEST(FaultyJob, HasNoPieces) {
    EXPECT_THAT(FaultsOf(R"({"pieces": []})"), HasSubstr("1: /pieces: it is not a list of pieces"));
    EXPECT_THAT(FaultsOf(R"({"pieces": "a.dxf"})"), HasSubstr("1: /pieces: it is not a list of pieces"));
    EXPECT_THAT(FaultsOf(R"({"pieces": ["a.dxf"]})"),
                HasSubstr("1: /pieces/0: \"a.dxf\" is not an object {...}"));
}

TEST(FaultyJob, AsksTooMuchOfDropping) {
    EXPECT_THAT(FaultsOf(Replaced(DROP_JOB, "mutation", "mutations")),
                HasSubstr("4: /drop/mutations: there is no member \"mutations\"; is \"mutation\" meant?"));
    EXPECT_THAT(FaultsOf(Replaced(DROP_JOB, "0.25", "1.5")),
                HasSubstr("4: /drop/mutation: 1.5 is not a number from 0 to 1"));
    EXPECT_THAT(FaultsOf(Replaced(DROP_JOB, "50", "0")),
                HasSubstr("4: /drop/population: 0 is not a whole number from 1 to 1000000"));
    EXPECT_THAT(FaultsOf(Replaced(DROP_JOB, "\"quantity\"", "\"turns\": [90], \"quantity\"")),
                HasSubstr("5: /pieces/0/turns: only the method \"free\" has this"));
}

}  // namespace
