#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

#include "tests/ga/SearchFixture.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/Chromosomes.h"

namespace nestrix {

namespace {

using support::CHistory;
using support::MakeSquare;
using support::PrintedBy;
using testing::ElementsAre;
using testing::SizeIs;

class Search : public support::SearchFixture {};

std::vector<SGene> GenesOf(const CChromosome& chromosome) {
    return {chromosome.Genes().begin(), chromosome.Genes().end()};
}

std::vector<std::vector<SGene>> GenesOf(const std::vector<CChromosome>& population) {
    std::vector<std::vector<SGene>> genes;
    for (const CChromosome& chromosome : population) {
        genes.push_back(GenesOf(chromosome));
    }
    return genes;
}

TEST_F(Search, OfZeroGenerationsReportsTheFirstAndPrintsNothing) {
    UseMixture(5);
    EXPECT_EQ(Run(4, 0), "");
    EXPECT_THAT(m_History.m_Generations, ElementsAre(0));
    EXPECT_THAT(m_Container.m_Population, SizeIs(4));
}

TEST_F(Search, OfANegativeNumberOfGenerationsIsOneOfZero) {
    UseMixture(5);
    EXPECT_EQ(Run(4, -3), "");
    EXPECT_THAT(m_History.m_Generations, ElementsAre(0));
}

TEST_F(Search, PrintsFourLinesPerLaterGeneration) {
    m_Container.m_Polygons = {MakeSquare(10)};
    EXPECT_EQ(Run(2, 2),
              "Newly Created 2\n"
              "Generation 1 has been created with 2 many individuals\n"
              "Average fitness= 0.000000\n"
              "Best Chromosome so far is 0.000000\n"
              "Newly Created 2\n"
              "Generation 2 has been created with 2 many individuals\n"
              "Average fitness= 0.000000\n"
              "Best Chromosome so far is 0.000000\n");
    EXPECT_THAT(m_History.m_Generations, ElementsAre(0, 1, 2));
}

TEST_F(Search, ReportsAGenerationBetweenItsFirstLineAndTheOthers) {
    m_Container.m_Polygons = {MakeSquare(10)};
    m_History.m_Listener = [] { std::puts("report"); };
    EXPECT_EQ(Run(3, 1),
              "report\n"
              "Newly Created 3\n"
              "report\n"
              "Generation 1 has been created with 3 many individuals\n"
              "Average fitness= 0.000000\n"
              "Best Chromosome so far is 0.000000\n");
}

TEST_F(Search, PrintsPointsUnderADecimalComma) {
    UseMixture(6);
    const std::string expected = Run(5, 3);
    m_Container.Clear();
    UseMixture(6);
    const support::CCommaLocale locale;
    EXPECT_EQ(Run(5, 3), expected);
    EXPECT_THAT(expected, testing::HasSubstr("."));
}

TEST_F(Search, OfAPopulationOfTwoAlwaysTakesTheFirstAsSecondParent) {
    // Without mutation every gene of the children comes from the parents: the tail from number 0.
    g_MutationProbability = std::nanf("");
    UseMixture(6);
    std::vector<std::vector<SGene>> parents;
    m_History.m_Listener = [&] {
        if (m_History.m_Generations.size() == 1) {
            parents = GenesOf(m_Container.m_Population);
        }
    };
    const std::string printed = Run(2, 1, 3);
    EXPECT_THAT(printed, testing::HasSubstr(
                             "Newly Created 2\nGeneration 1 has been created with 2 many individuals\n"));
    for (const CChromosome& child : m_Container.m_Population) {
        // Whatever the first parent, a gene past the cut is number 0's.
        const auto fromSecond = std::mismatch(child.Genes().begin(), child.Genes().end(), parents[1].begin());
        EXPECT_TRUE(std::equal(fromSecond.first, child.Genes().end(),
                               parents[0].begin() + (fromSecond.first - child.Genes().begin())));
    }
}

TEST_F(Search, KeepsTheEarlierOfTwoEquallyGoodChromosomes) {
    // One polygon always has fitness 0.
    m_Container.m_Polygons = {MakeSquare(10)};
    g_MutationProbability = 1;
    std::vector<SGene> first;
    m_History.m_Listener = [&] {
        if (first.empty()) {
            first = GenesOf(m_Container.m_Population[0]);
        }
    };
    Run(6, 8);
    EXPECT_EQ(GenesOf(m_Container.m_BestChromosome), first);
    EXPECT_EQ(m_Container.m_fBestFitness, 0.0F);
    EXPECT_EQ(m_Container.m_fWorstFitness, 0.0F);
}

TEST_F(Search, OfAZeroTotalCopiesTheFirstChromosomeEverywhere) {
    m_Container.m_Polygons = {MakeSquare(10)};
    g_MutationProbability = std::nanf("");
    std::vector<SGene> first;
    m_History.m_Listener = [&] {
        if (first.empty()) {
            first = GenesOf(m_Container.m_Population[0]);
        }
    };
    Run(5, 1);
    for (const CChromosome& child : m_Container.m_Population) {
        EXPECT_EQ(GenesOf(child), first);
    }
}

TEST_F(Search, WithTheSameSeedHasTheSameHistory) {
    UseMixture(8);
    const std::string printed = Run(6, 10, 42);
    const auto population = GenesOf(m_Container.m_Population);
    CContainer again;
    again.m_Polygons = m_Container.m_Polygons;
    CHistory history;
    EXPECT_EQ(PrintedBy([&] { again.RunSearch(6, 10, 42, history); }), printed);
    EXPECT_EQ(GenesOf(again.m_Population), population);
    EXPECT_EQ(GenesOf(again.m_BestChromosome), GenesOf(m_Container.m_BestChromosome));
}

TEST_F(Search, WithAnotherSeedHasAnotherHistory) {
    UseMixture(8);
    const std::string printed = Run(6, 3, 42);
    m_Container.m_Population.clear();
    EXPECT_NE(Run(6, 3, 43), printed);
}

TEST_F(Search, AfterClearIsAsGoodAsNew) {
    UseMixture(8);
    const std::string printed = Run(6, 5, 7);
    m_Container.Clear();
    UseMixture(3);
    Run(4, 2, 8);
    m_Container.Clear();
    UseMixture(8);
    EXPECT_EQ(Run(6, 5, 7), printed);
    EXPECT_THAT(m_Container.m_Population, SizeIs(6));
}

TEST_F(Search, ForgetsTheBestOfAnEarlierRun) {
    UseMixture(8);
    m_Container.m_fBestFitness = 1e9F;
    m_Container.m_fWorstFitness = -1e9F;
    Run(6, 2);
    EXPECT_LT(m_Container.m_fBestFitness, 1e9F);
    EXPECT_GT(m_Container.m_fWorstFitness, -1e9F);
}

TEST_F(Search, NeverReadsTheCullThresholdOrTheHeight) {
    UseMixture(8);
    const std::string printed = Run(6, 5);
    m_Container.Clear();
    UseMixture(8);
    m_Container.m_fCullThreshold = 0;
    m_Container.m_fContainerHeight = 1;
    EXPECT_EQ(Run(6, 5), printed);
}

/// The statistics of a run, gathered again from the populations that it reported.
struct SStatistics {
    float m_fBest = -HUGE_VALF;
    float m_fWorst = HUGE_VALF;
    std::vector<SGene> m_BestGenes;

    void Add(const std::vector<CChromosome>& population) {
        for (const CChromosome& chromosome : population) {
            if (chromosome.m_fFitness > m_fBest) {
                m_fBest = chromosome.m_fFitness;
                m_BestGenes = GenesOf(chromosome);
            }
            m_fWorst = std::min(m_fWorst, chromosome.m_fFitness);
        }
    }
};

TEST_F(Search, KeepsTheBestAndTheWorstOfAllGenerations) {
    UseMixture(10);
    SStatistics statistics;
    m_History.m_Listener = [&] {
        statistics.Add(m_Container.m_Population);
        EXPECT_EQ(m_Container.m_fBestFitness, statistics.m_fBest);
        EXPECT_EQ(m_Container.m_fWorstFitness, statistics.m_fWorst);
        EXPECT_EQ(GenesOf(m_Container.m_BestChromosome), statistics.m_BestGenes);
        EXPECT_EQ(m_Container.m_BestChromosome.m_fFitness, statistics.m_fBest);
    };
    Run(10, 20);
    EXPECT_THAT(m_History.m_Generations, SizeIs(21));
}

TEST_F(Search, AveragesTheReportedPopulation) {
    UseMixture(10);
    m_History.m_Listener = [&] {
        float fTotal = 0.0F;
        for (const CChromosome& chromosome : m_Container.m_Population) {
            fTotal += chromosome.m_fFitness;
        }
        EXPECT_EQ(m_Container.m_fAverageFitness, fTotal / 7.0F);
    };
    Run(7, 10);
}

TEST_F(Search, KeepsThePopulationsSize) {
    UseMixture(5);
    m_History.m_Listener = [&] {
        EXPECT_THAT(m_Container.m_Population, SizeIs(9));
        EXPECT_EQ(m_Container.PopulationSize(), 9);
    };
    Run(9, 5);
}

TEST_F(Search, KeepsEveryPieceInItsGeneInTheStripAndEvaluated) {
    UseMixture(8);
    g_MutationProbability = 1;
    m_History.m_Listener = [&] {
        for (const CChromosome& chromosome : m_Container.m_Population) {
            for (int i = 0; i < 8; ++i) {
                const SGene& gene = chromosome.m_pGenes[i];
                const CPolygon& polygon = m_Container.m_Polygons[static_cast<size_t>(i)];
                EXPECT_EQ(gene.m_nPolygon, i);
                EXPECT_GE(polygon.m_BoundingBoxMin.x + gene.m_fX, -1e-4F);
                EXPECT_LE(polygon.m_BoundingBoxMax.x + gene.m_fX, 400.0F + 1e-4F);
            }
            std::vector<CPolygon> placed;
            EXPECT_EQ(chromosome.m_fFitness,
                      support::PlaceChromosome(m_Container, chromosome, placed, nullptr));
        }
    };
    Run(6, 6);
}

}  // namespace

}  // namespace nestrix
