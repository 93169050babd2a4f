#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

#include "tests/support/CCommaLocale.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Chromosomes.h"

namespace nestrix {

namespace {

using support::MakeChromosome;
using support::PrintedBy;
using testing::ElementsAre;
using testing::ElementsAreArray;

TEST(Gene, IsThreeFieldsOfFourBytesInOrder) {
    EXPECT_EQ(sizeof(SGene), 12U);
    EXPECT_EQ(offsetof(SGene, m_nPolygon), 0U);
    EXPECT_EQ(offsetof(SGene, m_nOrder), 4U);
    EXPECT_EQ(offsetof(SGene, m_fX), 8U);
    EXPECT_TRUE(std::is_trivially_copyable_v<SGene>);
}

TEST(Gene, IsZeroByDefault) {
    const SGene gene;
    EXPECT_EQ(gene.m_nPolygon, 0);
    EXPECT_EQ(gene.m_nOrder, 0);
    EXPECT_EQ(gene.m_fX, 0.0F);
}

TEST(FreshChromosome, HasNoGenesAndNoFitness) {
    const CChromosome chromosome;
    EXPECT_EQ(chromosome.m_pGenes, nullptr);
    EXPECT_EQ(chromosome.m_nGenes, 0);
    EXPECT_EQ(chromosome.m_fFitness, 0.0F);
    EXPECT_TRUE(chromosome.Genes().empty());
}

TEST(MutationProbability, IsOnePercentAtFirst) {
    EXPECT_EQ(g_MutationProbability, 0.01F);
}

TEST(SetGeneCount, MakesIndexedGenesThatAreZeroOtherwise) {
    CChromosome chromosome;
    chromosome.m_fFitness = 5;
    chromosome.SetGeneCount(3);
    EXPECT_THAT(chromosome.Genes(), ElementsAre(SGene{0, 0, 0}, SGene{1, 0, 0}, SGene{2, 0, 0}));
    EXPECT_EQ(chromosome.m_fFitness, 5.0F);
}

TEST(SetGeneCount, KeepsTheGenesWhenTheCountIsTheSame) {
    CChromosome chromosome = MakeChromosome({{7, 8, 9}, {4, 5, 6}});
    const SGene* pGenes = chromosome.m_pGenes;
    chromosome.SetGeneCount(2);
    EXPECT_EQ(chromosome.m_pGenes, pGenes);
    EXPECT_THAT(chromosome.Genes(), ElementsAre(SGene{7, 8, 9}, SGene{4, 5, 6}));
}

TEST(SetGeneCount, ReplacesAllGenesWhenTheCountDiffers) {
    for (const int nCount : {1, 3}) {
        CChromosome chromosome = MakeChromosome({{7, 8, 9}, {4, 5, 6}});
        chromosome.SetGeneCount(nCount);
        ASSERT_EQ(chromosome.m_nGenes, nCount);
        EXPECT_EQ(chromosome.m_pGenes[0], (SGene{0, 0, 0}));
    }
}

TEST(SetGeneCount, OfZeroEmptiesTheChromosome) {
    CChromosome chromosome = MakeChromosome({{7, 8, 9}});
    chromosome.SetGeneCount(0);
    EXPECT_EQ(chromosome.m_nGenes, 0);
    EXPECT_EQ(chromosome.m_pGenes, nullptr);
}

TEST(ChromosomeCopy, IsDeep) {
    CChromosome source = MakeChromosome({{0, 1, 2}, {1, 3, 4}});
    source.m_fFitness = 6;
    const CChromosome copy = source;
    source.m_pGenes[0].m_nOrder = 99;
    EXPECT_NE(copy.m_pGenes, source.m_pGenes);
    EXPECT_THAT(copy.Genes(), ElementsAre(SGene{0, 1, 2}, SGene{1, 3, 4}));
    EXPECT_EQ(copy.m_fFitness, 6.0F);
}

TEST(ChromosomeCopy, OfAnEmptyChromosomeIsEmpty) {
    const CChromosome empty;
    const CChromosome copy = empty;  // NOLINT: the copy is what is tested
    EXPECT_EQ(copy.m_pGenes, nullptr);
    EXPECT_EQ(copy.m_nGenes, 0);
}

TEST(ChromosomeAssignment, CopiesGenesAndFitnessWhateverTheTargetHeld) {
    const CChromosome source = [] {
        CChromosome chromosome = MakeChromosome({{0, 1, 2}, {1, 3, 4}});
        chromosome.m_fFitness = -7;
        return chromosome;
    }();
    for (const int nCount : {0, 1, 2, 5}) {
        CChromosome target;
        target.SetGeneCount(nCount);
        CChromosome& result = (target = source);
        EXPECT_EQ(&result, &target);
        EXPECT_THAT(target.Genes(), ElementsAreArray(source.Genes()));
        EXPECT_EQ(target.m_fFitness, -7.0F);
        target.m_pGenes[0].m_fX = 55;
        EXPECT_EQ(source.m_pGenes[0].m_fX, 2.0F);
    }
}

TEST(ChromosomeAssignment, OfAnEmptyChromosomeEmptiesTheTarget) {
    CChromosome target = MakeChromosome({{0, 1, 2}});
    target = CChromosome();
    EXPECT_TRUE(target.Genes().empty());
}

TEST(ChromosomeAssignment, ToItselfChangesNothing) {
    CChromosome chromosome = MakeChromosome({{0, 1, 2}});
    const CChromosome& same = chromosome;
    chromosome = same;
    EXPECT_THAT(chromosome.Genes(), ElementsAre(SGene{0, 1, 2}));
}

TEST(ChromosomeMove, HandsOverTheGenes) {
    CChromosome source = MakeChromosome({{0, 1, 2}});
    source.m_fFitness = 3;
    const SGene* pGenes = source.m_pGenes;
    CChromosome moved = std::move(source);
    EXPECT_EQ(moved.m_pGenes, pGenes);
    CChromosome target = MakeChromosome({{5, 5, 5}, {6, 6, 6}});
    target = std::move(moved);
    EXPECT_EQ(target.m_pGenes, pGenes);
    EXPECT_EQ(target.m_nGenes, 1);
    EXPECT_EQ(target.m_fFitness, 3.0F);
}

TEST(ChromosomesInAVector, AreCopiedByValue) {
    std::vector<CChromosome> first(3, MakeChromosome({{0, 1, 2}}));
    std::vector<CChromosome> second;
    second = first;
    first[1].m_pGenes[0].m_nOrder = 99;
    EXPECT_EQ(second[1].m_pGenes[0].m_nOrder, 1);
}

TEST(PrintInfo, PrintsTheGeneCountAndTheFitness) {
    CChromosome chromosome;
    chromosome.SetGeneCount(3);
    chromosome.m_fFitness = -12.5F;
    EXPECT_EQ(PrintedBy([&] { chromosome.PrintInfo(); }),
              "Chromosome Info ---\nnGenes: 3\nFitness: -12.500000\n");
}

TEST(PrintInfo, PrintsAPointUnderADecimalComma) {
    const support::CCommaLocale locale;
    CChromosome chromosome;
    chromosome.m_fFitness = 0.25F;
    EXPECT_EQ(PrintedBy([&] { chromosome.PrintInfo(); }),
              "Chromosome Info ---\nnGenes: 0\nFitness: 0.250000\n");
}

}  // namespace

}  // namespace nestrix
