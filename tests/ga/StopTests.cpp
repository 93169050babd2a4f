#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>

#include "ga/CContainer.h"
#include "tests/ga/CPrintListener.h"
#include "tests/ga/CScriptedDraws.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Pieces.h"

namespace nestrix {

// When a search notices the request to stop, and what it leaves behind.

namespace {

using support::PrintedBy;

constexpr int POPULATION = 4;
constexpr int PIECES = 5;
constexpr int GENERATIONS = 3;
constexpr unsigned int SEED = 3;  ///< of a run in which a child improves on the first generation

/// Two draws per gene of the first generation; without mutation four per child: two parents, a cut and the
/// lot that decides against mutating.
constexpr int FIRST_DRAWS = 2 * POPULATION * PIECES;
constexpr int DRAWS_PER_CHILD = 4;

std::vector<std::vector<SGene>> GenesOf(const std::vector<CChromosome>& population) {
    std::vector<std::vector<SGene>> genes;
    for (const CChromosome& chromosome : population) {
        genes.emplace_back(chromosome.Genes().begin(), chromosome.Genes().end());
    }
    return genes;
}

/// What a search has reported at one generation.
struct SReport {
    int m_nGeneration = 0;
    std::vector<std::vector<SGene>> m_Population;
    std::vector<float> m_Fitness;
    float m_fBest = 0.0F;
    float m_fWorst = 0.0F;
    float m_fAverage = 0.0F;
};

class CReports final : public support::CContainerSink {
public:
    CReports(CContainer& container, int nStopAt) : CContainerSink(container), m_nStopAt(nStopAt) {}

    void GenerationDone(int nGeneration) override {
        SReport report{nGeneration,
                       GenesOf(m_Container.m_Population),
                       {},
                       m_Container.m_fBestFitness,
                       m_Container.m_fWorstFitness,
                       m_Container.m_fAverageFitness};
        for (const CChromosome& chromosome : m_Container.m_Population) {
            report.m_Fitness.push_back(chromosome.m_fFitness);
        }
        m_Reports.push_back(std::move(report));
        if (nGeneration == m_nStopAt) {
            m_Container.m_bStop = true;
        }
    }

    std::vector<SReport> m_Reports;

private:
    int m_nStopAt;
};

class StoppedSearch : public testing::Test {
protected:
    static constexpr int NEVER = -1;

    /// A search and what it printed, stopped from its report of a generation or before one of its draws.
    struct SRun {
        explicit SRun(int nStopAtGeneration = NEVER, int nStopBeforeDraw = NEVER)
            : m_Reports(m_Container, nStopAtGeneration) {
            support::CSeededRandom random(41);
            for (int i = 0; i < PIECES; ++i) {
                m_Container.m_Polygons.push_back(support::MakePiece(random, support::EPiece::Star));
            }
            g_MutationProbability = std::nanf("");
            CScriptedDraws draws;
            draws.Before(nStopBeforeDraw, [this] { m_Container.m_bStop = true; });
            m_Printed = PrintedBy([&] { m_Container.RunSearch(POPULATION, GENERATIONS, SEED, m_Reports); });
            m_nDraws = draws.Count();
        }

        CContainer m_Container;
        CReports m_Reports;
        std::string m_Printed;
        int m_nDraws = 0;
    };

    void TearDown() override { g_MutationProbability = 0.01F; }

    const SRun m_Whole;  ///< the same search without a stop
};

TEST_F(StoppedSearch, DrawsAsOftenAsTheTestsAssume) {
    EXPECT_EQ(m_Whole.m_nDraws, FIRST_DRAWS + GENERATIONS * POPULATION * DRAWS_PER_CHILD);
    EXPECT_EQ(m_Whole.m_Reports.m_Reports.size(), 1U + GENERATIONS);
}

TEST_F(StoppedSearch, FromItsFirstReportReturnsWithTheFirstGenerationAndWithoutALine) {
    const SRun run(0);
    EXPECT_EQ(run.m_Reports.m_Reports.size(), 1U);
    EXPECT_EQ(run.m_Printed, "");
    EXPECT_EQ(run.m_nDraws, FIRST_DRAWS);
    EXPECT_EQ(GenesOf(run.m_Container.m_Population), m_Whole.m_Reports.m_Reports[0].m_Population);
}

TEST_F(StoppedSearch, FromALaterReportPrintsThatGenerationsLinesAndReturns) {
    const SRun run(2);
    EXPECT_EQ(run.m_Reports.m_Reports.size(), 3U);
    EXPECT_EQ(run.m_nDraws, FIRST_DRAWS + 2 * POPULATION * DRAWS_PER_CHILD);
    EXPECT_THAT(run.m_Printed, testing::HasSubstr("Generation 2 has been created"));
    EXPECT_THAT(run.m_Printed, testing::Not(testing::HasSubstr("Newly Created 4\nGeneration 3")));
    EXPECT_TRUE(m_Whole.m_Printed.starts_with(run.m_Printed));
    EXPECT_EQ(GenesOf(run.m_Container.m_Population), m_Whole.m_Reports.m_Reports[2].m_Population);
}

TEST_F(StoppedSearch, WhileTheFirstGenerationIsMadeStillReportsIt) {
    const SRun run(NEVER, FIRST_DRAWS / 2);
    EXPECT_EQ(run.m_Reports.m_Reports.size(), 1U);
    EXPECT_EQ(run.m_Printed, "");
}

/// Stops before each draw of the children in turn.
TEST_F(StoppedSearch, DuringAGenerationReportsNothingMoreAndKeepsTheGenerationBefore) {
    for (int nDraw = FIRST_DRAWS; nDraw < m_Whole.m_nDraws; ++nDraw) {
        const SRun run(NEVER, nDraw);
        const int nReported = (nDraw - FIRST_DRAWS) / (POPULATION * DRAWS_PER_CHILD);
        ASSERT_EQ(run.m_Reports.m_Reports.size(), static_cast<size_t>(nReported) + 1) << nDraw;
        ASSERT_EQ(GenesOf(run.m_Container.m_Population),
                  m_Whole.m_Reports.m_Reports[static_cast<size_t>(nReported)].m_Population)
            << nDraw;
        ASSERT_EQ(run.m_Container.PopulationSize(), POPULATION);
        ASSERT_TRUE(m_Whole.m_Printed.starts_with(run.m_Printed)) << nDraw;
    }
}

TEST_F(StoppedSearch, FinishesThePlacementAtHandAndNoOther) {
    for (int nDraw = FIRST_DRAWS; nDraw < m_Whole.m_nDraws; ++nDraw) {
        const SRun run(NEVER, nDraw);
        const int nChild = (nDraw - FIRST_DRAWS) / DRAWS_PER_CHILD;
        ASSERT_EQ(run.m_nDraws, FIRST_DRAWS + (nChild + 1) * DRAWS_PER_CHILD) << nDraw;
    }
}

TEST_F(StoppedSearch, CountsTheChildrenBeforeTheRequestAndLosesTheOneAtHand) {
    for (int nDraw = FIRST_DRAWS; nDraw < m_Whole.m_nDraws; ++nDraw) {
        const SRun run(NEVER, nDraw);
        const int nChildren = (nDraw - FIRST_DRAWS) / DRAWS_PER_CHILD;
        const SReport& last = run.m_Reports.m_Reports.back();
        const SReport& unfinished = m_Whole.m_Reports.m_Reports[static_cast<size_t>(last.m_nGeneration) + 1];
        float fBest = last.m_fBest;
        float fWorst = last.m_fWorst;
        for (int i = 0; i < nChildren % POPULATION; ++i) {
            fBest = std::max(fBest, unfinished.m_Fitness[static_cast<size_t>(i)]);
            fWorst = std::min(fWorst, unfinished.m_Fitness[static_cast<size_t>(i)]);
        }
        ASSERT_EQ(run.m_Container.m_fBestFitness, fBest) << nDraw;
        ASSERT_EQ(run.m_Container.m_BestChromosome.m_fFitness, fBest) << nDraw;
        ASSERT_EQ(run.m_Container.m_fWorstFitness, fWorst) << nDraw;
    }
}

TEST_F(StoppedSearch, MayAlreadyHaveKeptAChildOfTheUnfinishedGenerationAsItsBest) {
    int nKept = 0;
    for (int nDraw = FIRST_DRAWS; nDraw < m_Whole.m_nDraws; ++nDraw) {
        const SRun run(NEVER, nDraw);
        nKept += run.m_Container.m_fBestFitness > run.m_Reports.m_Reports.back().m_fBest ? 1 : 0;
    }
    EXPECT_GT(nKept, 0);
}

TEST_F(StoppedSearch, WhenThePopulationHasJustBeenReplacedKeepsTheNewOneWithoutReportingIt) {
    CContainer container;
    container.m_Polygons = m_Whole.m_Container.m_Polygons;
    g_MutationProbability = std::nanf("");
    CReports reports(container, NEVER);
    const CPrintListener listener([&](std::string_view line) {
        if (line.starts_with("Newly Created") && reports.m_Reports.size() == 2) {
            container.m_bStop = true;
        }
    });
    container.RunSearch(POPULATION, GENERATIONS, SEED, reports);
    EXPECT_EQ(reports.m_Reports.size(), 2U);
    EXPECT_EQ(GenesOf(container.m_Population), m_Whole.m_Reports.m_Reports[2].m_Population);
    EXPECT_EQ(container.m_fAverageFitness, reports.m_Reports[1].m_fAverage);
    EXPECT_TRUE(listener.Text().ends_with("Newly Created 4\n"));
}

TEST_F(StoppedSearch, CanBeRunAgainOnceTheRequestIsTakenBack) {
    SRun run(0);
    ASSERT_TRUE(run.m_Container.m_bStop);
    run.m_Container.m_bStop = false;
    run.m_Container.m_Population.clear();
    CReports reports(run.m_Container, NEVER);
    EXPECT_EQ(PrintedBy([&] { run.m_Container.RunSearch(POPULATION, GENERATIONS, SEED, reports); }),
              m_Whole.m_Printed);
}

TEST_F(StoppedSearch, BeforeItBeganReportsItsFirstGenerationAndLeavesTheRequestAlone) {
    SRun run(0);
    run.m_Container.m_Population.clear();
    CReports reports(run.m_Container, NEVER);
    run.m_Container.RunSearch(POPULATION, GENERATIONS, SEED, reports);
    EXPECT_EQ(reports.m_Reports.size(), 1U);
    EXPECT_TRUE(run.m_Container.m_bStop);
}

TEST_F(StoppedSearch, OfAnEmptyPopulationEndsAtOnce) {
    CContainer container;
    CReports reports(container, 5);
    const std::string printed = PrintedBy([&] { container.RunSearch(0, 1'000'000'000, 1, reports); });
    EXPECT_EQ(reports.m_Reports.size(), 6U);
}

}  // namespace

}  // namespace nestrix
