#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "ga/CContainer.h"
#include "ga/CDecoder.h"
#include "packing/drop/Sweep.h"
#include "tests/ga/CPlacementWatch.h"
#include "tests/ga/CScriptedDraws.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/Pieces.h"

namespace nestrix {

// A search whose owner has no use for it any more: it leaves within the placement at hand, and says nothing.

namespace {

using support::PrintedBy;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int POPULATION = 4;
constexpr int PIECES = 5;
constexpr int GENERATIONS = 3;
constexpr unsigned int SEED = 5;  ///< of a run in which every child is placed

class CReports final : public support::CContainerSink {
public:
    CReports(CContainer& container, int nAbandonAt) : CContainerSink(container), m_nAbandonAt(nAbandonAt) {}

    void GenerationDone(int nGeneration) override {
        m_Best.push_back(m_Container.m_fBestFitness);
        for (const CChromosome& chromosome : m_Container.m_Population) {
            m_Fitness.push_back(chromosome.m_fFitness);
        }
        if (nGeneration == m_nAbandonAt) {
            m_Container.m_bAbandoned = true;
        }
    }

    std::vector<float> m_Best;     ///< at each report
    std::vector<float> m_Fitness;  ///< of all chromosomes reported, one generation after the other

private:
    int m_nAbandonAt;
};

class AbandonedSearch : public testing::Test {
protected:
    static constexpr int NEVER = -1;

    /// A search and what it printed, abandoned at one of its placements or from a report.
    struct SRun {
        explicit SRun(int nAbandonAtPlacement, int nAbandonAtReport = NEVER)
            : m_Reports(m_Container, nAbandonAtReport) {
            support::CSeededRandom random(41);
            for (int i = 0; i < PIECES; ++i) {
                m_Container.m_Polygons.push_back(support::MakePiece(random, support::EPiece::Star));
            }
            g_MutationProbability = 1.0F;
            const CPlacementWatch watch(nAbandonAtPlacement, [this] { m_Container.m_bAbandoned = true; });
            m_Printed = PrintedBy([&] { m_Container.RunSearch(POPULATION, GENERATIONS, SEED, m_Reports); });
            m_nPlacements = watch.Count();
        }

        CContainer m_Container;
        CReports m_Reports;
        std::string m_Printed;
        int m_nPlacements = 0;
    };

    void TearDown() override { g_MutationProbability = 0.01F; }

    const SRun m_Whole{NEVER};
};

TEST_F(AbandonedSearch, LeavesWithinThePlacementAtHand) {
    ASSERT_EQ(m_Whole.m_nPlacements, POPULATION * (1 + GENERATIONS));
    for (int nPlacement = 0; nPlacement < m_Whole.m_nPlacements; ++nPlacement) {
        EXPECT_EQ(SRun(nPlacement).m_nPlacements, nPlacement + 1);
    }
}

TEST_F(AbandonedSearch, ReportsAndPrintsNothingMore) {
    for (int nPlacement = 0; nPlacement < m_Whole.m_nPlacements; ++nPlacement) {
        const SRun run(nPlacement);
        const int nComplete = nPlacement / POPULATION;
        ASSERT_THAT(run.m_Reports.m_Best, SizeIs(static_cast<size_t>(nComplete))) << nPlacement;
        ASSERT_TRUE(m_Whole.m_Printed.starts_with(run.m_Printed)) << nPlacement;
        // Four lines for each generation after the first.
        ASSERT_EQ(std::ranges::count(run.m_Printed, '\n'), 4 * std::max(nComplete - 1, 0)) << nPlacement;
    }
}

TEST_F(AbandonedSearch, KeepsTheBestOfWhatWasPlaced) {
    for (int nPlacement = 1; nPlacement < m_Whole.m_nPlacements; ++nPlacement) {
        const SRun run(nPlacement);
        const auto placed = m_Whole.m_Reports.m_Fitness.begin();
        const float fBest = *std::max_element(placed, placed + nPlacement);
        ASSERT_EQ(run.m_Container.m_fBestFitness, fBest) << nPlacement;
        ASSERT_EQ(run.m_Container.m_BestChromosome.m_fFitness, fBest) << nPlacement;
        std::vector<CPolygon> layout;
        ASSERT_EQ(
            support::PlaceChromosome(run.m_Container, run.m_Container.m_BestChromosome, layout, nullptr),
            fBest);
    }
}

TEST_F(AbandonedSearch, HasNoBestBeforeItsFirstPlacement) {
    EXPECT_EQ(SRun(0).m_Container.m_BestChromosome.m_nGenes, 0);
}

TEST_F(AbandonedSearch, FromAReportDoesNotPrintThatGenerationsLines) {
    const SRun first(NEVER, 0);
    EXPECT_EQ(first.m_Printed, "");
    EXPECT_EQ(first.m_nPlacements, POPULATION);
    const SRun later(NEVER, 2);
    EXPECT_THAT(later.m_Reports.m_Best, SizeIs(3));
    EXPECT_EQ(later.m_nPlacements, 3 * POPULATION);
    EXPECT_TRUE(m_Whole.m_Printed.starts_with(later.m_Printed));
    EXPECT_TRUE(later.m_Printed.ends_with("Newly Created 4\n"));
}

TEST_F(AbandonedSearch, BeforeItBeginsMakesNothing) {
    CContainer container;
    container.m_Polygons = m_Whole.m_Container.m_Polygons;
    container.m_bAbandoned = true;
    CReports reports(container, NEVER);
    const CScriptedDraws draws;
    EXPECT_EQ(PrintedBy([&] { container.RunSearch(POPULATION, GENERATIONS, SEED, reports); }), "");
    EXPECT_THAT(reports.m_Best, IsEmpty());
    EXPECT_THAT(container.m_Population, IsEmpty());
    EXPECT_EQ(draws.Count(), 0);
    EXPECT_TRUE(container.m_bAbandoned) << "only its owner takes the request back";
}

TEST_F(AbandonedSearch, WhileTheFirstGenerationIsMadeDrawsNoMore) {
    CContainer container;
    container.m_Polygons = m_Whole.m_Container.m_Polygons;
    CReports reports(container, NEVER);
    CScriptedDraws draws;
    constexpr int DRAW = 7;
    draws.Before(DRAW, [&container] { container.m_bAbandoned = true; });
    container.RunSearch(POPULATION, GENERATIONS, SEED, reports);
    EXPECT_EQ(draws.Count(), DRAW + 1);
    EXPECT_THAT(reports.m_Best, IsEmpty());
}

TEST_F(AbandonedSearch, OfAnEmptyPopulationEndsToo) {
    CContainer container;
    CReports reports(container, 5);
    (void)PrintedBy([&] { container.RunSearch(0, 1'000'000'000, 1, reports); });
    EXPECT_THAT(reports.m_Best, SizeIs(6));
}

TEST_F(AbandonedSearch, CanBeRunAgainOnceTheRequestIsTakenBack) {
    SRun run(6);
    run.m_Container.m_bAbandoned = false;
    run.m_Container.m_Population.clear();
    CReports reports(run.m_Container, NEVER);
    EXPECT_EQ(PrintedBy([&] { run.m_Container.RunSearch(POPULATION, GENERATIONS, SEED, reports); }),
              m_Whole.m_Printed);
}

TEST(AbandonedPlacement, DropsNothingMore) {
    const std::vector<CPolygon> polygons(3, support::MakeSquare(10));
    CRelaxed<bool> bAbandoned = false;
    CDecoder decoder(polygons, SStrip{400.0F}, 30.0F, &bAbandoned);
    const CChromosome chromosome = support::MakeChromosome({{0, 0, 0}, {1, 1, 5}, {2, 2, 50}});
    EXPECT_EQ(decoder.Evaluate(chromosome.Genes()), 10.0F);
    EXPECT_THAT(decoder.Packing().m_Placed, SizeIs(3));
    bAbandoned = true;
    (void)decoder.Evaluate(chromosome.Genes());
    EXPECT_THAT(decoder.Packing().m_Placed, IsEmpty());
}

TEST(AbandonedPlacement, PreparesNoMoreProfiles) {
    const std::vector<CPolygon> polygons(3, support::MakeSquare(10));
    const CRelaxed<bool> bAbandoned = true;
    EXPECT_FALSE(CProfileSet(polygons, 400.0F, &bAbandoned).IsComplete());
}

}  // namespace

}  // namespace nestrix
