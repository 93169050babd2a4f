#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "tests/ga/CScriptedDraws.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Chromosomes.h"

namespace nestrix {

// Mutation and crossover, draw by draw.

namespace {

using support::MakeChromosome;
using support::PrintedBy;
using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr int ORDER_KIND = 49;   ///< the last draw, modulo 100, that mutates an order key
constexpr int OFFSET_KIND = 50;  ///< the first one that mutates an offset

class Mutation : public testing::Test {
protected:
    void TearDown() override { g_MutationProbability = 0.01F; }

    /// Whether a draw lets a chromosome mutate.
    static bool MutatesAt(float fProbability, int nDraw) {
        g_MutationProbability = fProbability;
        CChromosome chromosome = MakeChromosome({{0, 0, 0}});
        const CScriptedDraws draws({nDraw, ORDER_KIND, 0, 0});
        const int nMutated = chromosome.Mutate(0, 0, 0, 400);
        EXPECT_EQ(draws.Count(), nMutated == 1 ? 4 : 1);
        return nMutated == 1;
    }
};

TEST_F(Mutation, OfProbabilityZeroStillHappensOnceInAThousand) {
    EXPECT_TRUE(MutatesAt(0, 0));
    EXPECT_TRUE(MutatesAt(0, 1000));
    EXPECT_FALSE(MutatesAt(0, 1));
    EXPECT_FALSE(MutatesAt(0, 1999));
}

TEST_F(Mutation, OfProbabilityOneAlwaysHappens) {
    EXPECT_TRUE(MutatesAt(1, 0));
    EXPECT_TRUE(MutatesAt(1, 999));
    EXPECT_TRUE(MutatesAt(1, RAND_MAX));
}

TEST_F(Mutation, HappensWhenTheDrawEqualsTheProbability) {
    EXPECT_TRUE(MutatesAt(0.5F, 500));
    EXPECT_FALSE(MutatesAt(0.5F, 501));
}

TEST_F(Mutation, ComparesInDoubleSoThatOnePercentStaysJustBelowTen) {
    EXPECT_TRUE(MutatesAt(0.01F, 9));
    EXPECT_FALSE(MutatesAt(0.01F, 10));
}

TEST_F(Mutation, OfAProbabilityThatIsNoNumberNeverHappens) {
    EXPECT_FALSE(MutatesAt(std::nanf(""), 0));
}

TEST_F(Mutation, OfANegativeProbabilityNeverHappens) {
    EXPECT_FALSE(MutatesAt(-1, 0));
}

TEST_F(Mutation, OfProbabilityZeroHappensAboutOnceInAThousandRealDraws) {
    g_MutationProbability = 0;
    std::srand(1);
    CChromosome chromosome = MakeChromosome({{0, 0, 0}});
    int nMutated = 0;
    for (int i = 0; i < 100'000; ++i) {
        nMutated += chromosome.Mutate(0, 0, 0, 400);
    }
    EXPECT_GT(nMutated, 60);
    EXPECT_LT(nMutated, 140);
}

TEST_F(Mutation, OfAnOrderKeyDrawsFromTheWholeRange) {
    g_MutationProbability = 1;
    for (int nDraw = 0; nDraw < 14; ++nDraw) {
        CChromosome chromosome = MakeChromosome({{0, 50, 1}, {1, 60, 2}});
        const CScriptedDraws draws({0, ORDER_KIND, 1, nDraw});
        EXPECT_EQ(chromosome.Mutate(-3, 3, 0, 400), 1);
        EXPECT_THAT(chromosome.Genes(), ElementsAre(SGene{0, 50, 1}, SGene{1, -3 + nDraw % 7, 2}));
    }
}

TEST_F(Mutation, OfAnOrderKeyInARangeOfZeroWritesZero) {
    g_MutationProbability = 1;
    CChromosome chromosome = MakeChromosome({{0, 50, 1}});
    const CScriptedDraws draws({0, 0, 0, 123'456'789});
    chromosome.Mutate(0, 0, 0, 400);
    EXPECT_EQ(chromosome.m_pGenes[0].m_nOrder, 0);
}

TEST_F(Mutation, OfAnOrderKeyWithoutAnyToChooseFromKeepsIt) {
    g_MutationProbability = 1;
    CChromosome chromosome = MakeChromosome({{0, 50, 1}});
    const CScriptedDraws draws({0, 0, 0, 7});
    EXPECT_EQ(chromosome.Mutate(0, -1, 0, 400), 1);
    EXPECT_THAT(chromosome.Genes(), ElementsAre(SGene{0, 50, 1}));
    EXPECT_EQ(draws.Count(), 4);
}

TEST_F(Mutation, PicksTheGeneByTheThirdDraw) {
    g_MutationProbability = 1;
    for (int nDraw = 0; nDraw < 7; ++nDraw) {
        CChromosome chromosome = MakeChromosome({{0, 5, 0}, {1, 5, 0}, {2, 5, 0}});
        const CScriptedDraws draws({0, ORDER_KIND, nDraw, 0});
        chromosome.Mutate(0, 2, 0, 400);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(chromosome.m_pGenes[i].m_nOrder, i == nDraw % 3 ? 0 : 5);
        }
    }
}

TEST_F(Mutation, PicksItsKindByTheSecondDraw) {
    g_MutationProbability = 1;
    for (const int nDraw : {0, 49, 50, 99, 149, 150}) {
        CChromosome chromosome = MakeChromosome({{0, 50, 7}});
        const CScriptedDraws draws({0, nDraw, 0, 0});
        chromosome.Mutate(0, 2, 0, 400);
        const bool bOffset = nDraw % 100 >= 50;
        EXPECT_EQ(chromosome.m_pGenes[0].m_nOrder, bOffset ? 50 : 0) << nDraw;
        EXPECT_EQ(chromosome.m_pGenes[0].m_fX, bOffset ? -193.0F : 7.0F) << nDraw;
    }
}

/// An offset after a mutation within 0 .. 400 with the given last draw.
float MutatedOffset(float fX, int nDraw) {
    g_MutationProbability = 1;
    CChromosome chromosome = MakeChromosome({{0, 0, fX}});
    const CScriptedDraws draws({0, OFFSET_KIND, 0, nDraw});
    chromosome.Mutate(0, 0, 0, 400);
    return chromosome.m_pGenes[0].m_fX;
}

TEST_F(Mutation, OfAnOffsetMovesItByUpToHalfTheWidthEitherWayUnclamped) {
    EXPECT_EQ(MutatedOffset(100, 0), -100.0F);
    EXPECT_EQ(MutatedOffset(300, 1 << 30), 300.0F);
    EXPECT_EQ(MutatedOffset(100, 1 << 29), 0.0F);
    EXPECT_EQ(MutatedOffset(390, 3 << 29), 490.0F);
}

TEST_F(Mutation, OfAnOffsetIsComputedInDoubleAndRoundedOnce) {
    // Single precision would lose the draw's last bits before it is added to −200 + 200.
    const double fExpected = 400.0 * 0x1p-31 * 1'234'567;
    EXPECT_EQ(MutatedOffset(200, 1'234'567), static_cast<float>(fExpected));
}

TEST_F(Mutation, OfAChromosomeWithoutGenesDoesNothingAndDrawsNothing) {
    g_MutationProbability = 1;
    CChromosome chromosome;
    const CScriptedDraws draws;
    EXPECT_EQ(chromosome.Mutate(0, -1, 0, 400), 0);
    EXPECT_EQ(draws.Count(), 0);
}

TEST_F(Mutation, LeavesTheFitnessAlone) {
    g_MutationProbability = 1;
    CChromosome chromosome = MakeChromosome({{0, 0, 0}});
    chromosome.m_fFitness = 12;
    chromosome.Mutate(0, 0, 0, 400);
    EXPECT_EQ(chromosome.m_fFitness, 12.0F);
}

CChromosome Mother() {
    return MakeChromosome({{0, 10, 11}, {1, 12, 13}, {2, 14, 15}});
}

CChromosome Father() {
    return MakeChromosome({{0, 20, 21}, {1, 22, 23}, {2, 24, 25}});
}

TEST(Crossover, TakesTheHeadUpToTheCutFromOneParentAndTheTailFromTheOther) {
    CChromosome mother = Mother();
    CChromosome father = Father();
    CChromosome children[2];
    const CScriptedDraws draws({4});  // cut after gene 4 mod 3 = 1
    mother.CrossOver(father, children, 2);
    EXPECT_EQ(draws.Count(), 1);
    EXPECT_THAT(children[0].Genes(), ElementsAre(SGene{0, 10, 11}, SGene{1, 12, 13}, SGene{2, 24, 25}));
    EXPECT_THAT(children[1].Genes(), ElementsAre(SGene{0, 20, 21}, SGene{1, 22, 23}, SGene{2, 14, 15}));
}

TEST(Crossover, ChangesNeitherParent) {
    CChromosome mother = Mother();
    CChromosome father = Father();
    CChromosome children[2];
    mother.CrossOver(father, children, 2);
    EXPECT_THAT(mother.Genes(), ElementsAreArray(Mother().Genes()));
    EXPECT_THAT(father.Genes(), ElementsAreArray(Father().Genes()));
}

TEST(Crossover, AtTheLastGeneCopiesTheFirstParent) {
    CChromosome mother = Mother();
    CChromosome father = Father();
    CChromosome child;
    const CScriptedDraws draws({2});
    mother.CrossOver(father, &child, 1);
    EXPECT_THAT(child.Genes(), ElementsAreArray(mother.Genes()));
}

TEST(Crossover, OfOneGeneCopiesEachParent) {
    CChromosome mother = MakeChromosome({{0, 1, 2}});
    CChromosome father = MakeChromosome({{0, 3, 4}});
    CChromosome children[2];
    mother.CrossOver(father, children, 2);
    EXPECT_THAT(children[0].Genes(), ElementsAre(SGene{0, 1, 2}));
    EXPECT_THAT(children[1].Genes(), ElementsAre(SGene{0, 3, 4}));
}

TEST(Crossover, OfOneChildNeitherReadsNorResizesTheSecond) {
    CChromosome mother = Mother();
    CChromosome father = Father();
    CChromosome children[2];
    children[1] = MakeChromosome({{9, 9, 9}});
    const SGene* pGenes = children[1].m_pGenes;
    mother.CrossOver(father, children, 1);
    EXPECT_EQ(children[0].m_nGenes, 3);
    EXPECT_EQ(children[1].m_pGenes, pGenes);
    EXPECT_THAT(children[1].Genes(), ElementsAre(SGene{9, 9, 9}));
}

TEST(Crossover, OfNoChildrenDrawsNothing) {
    CChromosome mother = Mother();
    CChromosome father = MakeChromosome({{0, 1, 2}});
    const CScriptedDraws draws;
    EXPECT_EQ(PrintedBy([&] { mother.CrossOver(father, nullptr, 0); }), "");
    EXPECT_EQ(draws.Count(), 0);
}

TEST(Crossover, LeavesTheChildrensFitnessAlone) {
    CChromosome mother = Mother();
    CChromosome father = Father();
    CChromosome children[2];
    children[0].m_fFitness = 5;
    children[1].m_fFitness = 6;
    mother.CrossOver(father, children, 2);
    EXPECT_EQ(children[0].m_fFitness, 5.0F);
    EXPECT_EQ(children[1].m_fFitness, 6.0F);
}

TEST(Crossover, OfDifferentLengthsIsReportedAndLeavesTheChildrenUnchanged) {
    CChromosome mother = Mother();
    CChromosome father;
    father.SetGeneCount(4);
    father.m_fFitness = 1.5F;
    CChromosome children[2] = {MakeChromosome({{9, 9, 9}}), CChromosome()};
    const CScriptedDraws draws;
    EXPECT_EQ(PrintedBy([&] { mother.CrossOver(father, children, 2); }),
              "PANIC\n"
              "Chromosome Info ---\nnGenes: 3\nFitness: 0.000000\n"
              "Chromosome Info ---\nnGenes: 4\nFitness: 1.500000\n");
    EXPECT_EQ(draws.Count(), 0);
    EXPECT_THAT(children[0].Genes(), ElementsAre(SGene{9, 9, 9}));
    EXPECT_TRUE(children[1].Genes().empty());
}

TEST(Crossover, OfParentsWithoutGenesChangesNothingAndDrawsNothing) {
    CChromosome mother;
    CChromosome father;
    CChromosome child = MakeChromosome({{9, 9, 9}});
    const CScriptedDraws draws;
    EXPECT_EQ(PrintedBy([&] { mother.CrossOver(father, &child, 1); }), "");
    EXPECT_EQ(draws.Count(), 0);
    EXPECT_THAT(child.Genes(), ElementsAre(SGene{9, 9, 9}));
}

TEST(Crossover, OfAChromosomeWithItselfCopiesIt) {
    CChromosome mother = Mother();
    CChromosome children[2];
    mother.CrossOver(mother, children, 2);
    EXPECT_THAT(children[0].Genes(), ElementsAreArray(mother.Genes()));
    EXPECT_THAT(children[1].Genes(), ElementsAreArray(mother.Genes()));
}

}  // namespace

}  // namespace nestrix
