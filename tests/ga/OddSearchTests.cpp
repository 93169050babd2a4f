#include <gmock/gmock.h>

#include <cmath>
#include <sstream>

#include "tests/ga/SearchFixture.h"
#include "tests/support/Chromosomes.h"

namespace nestrix {

// Populations and sets that nobody would search with, and what becomes of a container between searches.

namespace {

using support::MakeSquare;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class OddSearch : public support::SearchFixture {};

TEST_F(OddSearch, OfAnEmptyPopulationStillReportsAndPrintsEveryGeneration) {
    m_Container.m_Polygons = {MakeSquare(10)};
    const std::string printed = Run(0, 2);
    EXPECT_THAT(m_History.m_Generations, ElementsAre(0, 1, 2));
    EXPECT_THAT(printed, testing::StartsWith("Newly Created 0\n"
                                             "Generation 1 has been created with 0 many individuals\n"
                                             "Average fitness= "));
    EXPECT_TRUE(std::isnan(m_Container.m_fAverageFitness));
    EXPECT_THAT(m_Container.m_Population, IsEmpty());
}

TEST_F(OddSearch, OfAnEmptySetRunsToItsEnd) {
    Run(4, 3);
    EXPECT_THAT(m_History.m_Generations, ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(m_Container.m_fBestFitness, 0.0F);
    EXPECT_THAT(m_Container.m_Population, SizeIs(4));
    EXPECT_EQ(m_Container.m_BestChromosome.m_nGenes, 0);
}

TEST_F(OddSearch, OfOneChromosomeFindsNoSecondParentSaysSoAndGoesOn) {
    UseMixture(4);
    std::istringstream printed(Run(1, 1));
    std::string line;
    std::getline(printed, line);
    EXPECT_THAT(line, testing::MatchesRegex("P dint exists r=[0-9.]+,sum=0.000000 upper_boundary=0.000000"));
    std::getline(printed, line);
    EXPECT_EQ(line, "WRONG (LESSER) idx");
    std::getline(printed, line);
    EXPECT_EQ(line, " 0 , -1");
    std::getline(printed, line);
    EXPECT_EQ(line, "Newly Created 1");
    EXPECT_THAT(m_History.m_Generations, ElementsAre(0, 1));
}

TEST_F(OddSearch, AddsToAPopulationThatNobodyCleared) {
    UseMixture(4);
    Run(3, 1);
    Run(2, 1);
    EXPECT_THAT(m_Container.m_Population, SizeIs(5));
    EXPECT_EQ(m_Container.PopulationSize(), 5);
}

TEST_F(OddSearch, LeavesABestChromosomeThatCanStillBePlacedAfterTheSetWasEmptied) {
    UseMixture(6);
    Run(5, 5);
    m_Container.Clear();
    std::vector<CPolygon> placed;
    const CChromosome best = m_Container.CopyBestChromosome();
    EXPECT_EQ(best.m_nGenes, 6);
    support::PlaceChromosome(m_Container, best, placed, nullptr);
    EXPECT_THAT(placed, IsEmpty());
}

TEST_F(OddSearch, OfASetEmptiedBehindItsBackRunsToItsEnd) {
    UseMixture(6);
    Run(5, 5);
    m_Container.m_Polygons.clear();
    g_MutationProbability = 1;
    Run(5, 5);
    EXPECT_THAT(m_History.m_Generations, SizeIs(12));
    EXPECT_THAT(m_Container.m_Population, SizeIs(10));
}

TEST_F(OddSearch, OfAllBadPiecesRunsToItsEnd) {
    support::CSeededRandom random(32);
    for (const support::EPiece piece :
         {support::EPiece::Degenerate, support::EPiece::NotFinite, support::EPiece::Clockwise,
          support::EPiece::SelfCrossing, support::EPiece::Endless}) {
        m_Container.m_Polygons.push_back(support::MakePiece(random, piece));
    }
    Run(5, 5);
    EXPECT_THAT(m_History.m_Generations, SizeIs(6));
}

}  // namespace

}  // namespace nestrix
