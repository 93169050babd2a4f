#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "ga/CContainer.h"
#include "tests/ga/CScriptedDraws.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

std::vector<int> Keys(const CChromosome& chromosome) {
    std::vector<int> keys;
    for (const SGene& gene : chromosome.Genes()) {
        keys.push_back(gene.m_nOrder);
    }
    return keys;
}

void Prepare(CContainer& container, int nPolygons, unsigned int nPopulation) {
    container.m_Polygons.assign(static_cast<size_t>(nPolygons), support::MakeSquare(10));
    container.PrepareEverything(nPopulation);
}

TEST(FirstGeneration, HasAPermutationOfTheKeysAndOffsetsInTheStrip) {
    CContainer container;
    Prepare(container, 5, 3);
    std::srand(5);
    container.RandomlyGenerateFirstGeneration();
    for (const CChromosome& chromosome : container.m_Population) {
        EXPECT_THAT(Keys(chromosome), testing::UnorderedElementsAre(0, 1, 2, 3, 4));
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(chromosome.m_pGenes[i].m_nPolygon, i);
            EXPECT_GE(chromosome.m_pGenes[i].m_fX, 0.0F);
            EXPECT_LT(chromosome.m_pGenes[i].m_fX, 400.0F);
        }
    }
    EXPECT_NE(Keys(container.m_Population[0]), Keys(container.m_Population[1]));
}

TEST(FirstGeneration, DrawsTheKeyAndThenTheOffsetOfEachGene) {
    CContainer container;
    Prepare(container, 3, 1);
    // Keys from the pools 0 1 2, then 0 2, then 2.
    const CScriptedDraws draws({4, 1 << 30, 2, 0, 7, 3 << 29});
    container.RandomlyGenerateFirstGeneration();
    EXPECT_EQ(draws.Count(), 6);
    EXPECT_THAT(container.m_Population[0].Genes(),
                testing::ElementsAre(SGene{0, 1, 200}, SGene{1, 0, 0}, SGene{2, 2, 300}));
}

TEST(FirstGeneration, OffsetsAreProportionalToTheStripsWidth) {
    CContainer container;
    container.m_fContainerWidth = 77;
    Prepare(container, 1, 1);
    const CScriptedDraws draws({0, 123'456'789});
    container.RandomlyGenerateFirstGeneration();
    EXPECT_EQ(container.m_Population[0].m_pGenes[0].m_fX, static_cast<float>(77 * 0x1p-31 * 123'456'789));
}

TEST(FirstGeneration, OverwritesAnyPolygonIndexAndLeavesTheFitness) {
    CContainer container;
    Prepare(container, 2, 1);
    container.m_Population[0].m_pGenes[1].m_nPolygon = 99;
    container.m_Population[0].m_fFitness = 3;
    container.RandomlyGenerateFirstGeneration();
    EXPECT_EQ(container.m_Population[0].m_pGenes[1].m_nPolygon, 1);
    EXPECT_EQ(container.m_Population[0].m_fFitness, 3.0F);
}

TEST(FirstGeneration, OfAnEmptyPopulationOrSetDrawsNothing) {
    const CScriptedDraws draws;
    CContainer container;
    container.RandomlyGenerateFirstGeneration();
    Prepare(container, 0, 4);
    container.RandomlyGenerateFirstGeneration();
    EXPECT_EQ(draws.Count(), 0);
}

TEST(FirstGeneration, SurvivesAChromosomeWithMoreGenesThanPolygons) {
    CContainer container;
    Prepare(container, 3, 1);
    container.m_Polygons.resize(2);
    container.RandomlyGenerateFirstGeneration();
    EXPECT_THAT(Keys(container.m_Population[0]), testing::IsSupersetOf({0, 1}));
}

}  // namespace

}  // namespace nestrix
