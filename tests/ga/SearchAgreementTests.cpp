#include <gtest/gtest.h>

#include <limits>

#include "tests/reference/ReferenceOperators.h"
#include "tests/reference/SearchAgreement.h"
#include "tests/support/BenchmarkSets.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/FamilyParameter.h"
#include "tests/support/RandomCases.h"
#include "tests/support/SameBits.h"

namespace nestrix {

// The search and its operators against the plain reference: same draws, same lines, same history.

namespace {

using namespace support;
using reference::SIndividual;
using reference::SSearchCase;

class RandomSearches : public testing::TestWithParam<SFamily> {};

SSearchCase MakeSearchCase(CSeededRandom& random, const SFamily& family) {
    SSearchCase searchCase;
    searchCase.m_Polygons =
        MakeSet(random, family, random.Percent(80) ? random.Range(1, 12) : random.Range(0, 60));
    searchCase.m_fContainerWidth = random.Percent(60) ? 400.0F : random.Pick({50.0F, 120.0F, 1000.0F});
    searchCase.m_fMutationProbability =
        random.Pick({0.0F, 0.01F, 0.3F, 1.0F, -1.0F, std::numeric_limits<float>::quiet_NaN()});
    searchCase.m_nPopulation = random.Percent(80) ? random.Range(2, 15) : random.Range(0, 3);
    searchCase.m_nGenerations = random.Range(-1, 12);
    searchCase.m_nSeed = static_cast<unsigned int>(random.Range(0, 1'000'000));
    searchCase.m_nStopAt = random.Percent(80) ? -1 : random.Range(0, 5);
    return searchCase;
}

TEST_P(RandomSearches, HaveTheHistoryOfThePlainReference) {
    CSeededRandom random(6);
    const int nSearches = RandomCases(60);
    for (int i = 0; i < nSearches; ++i) {
        const SSearchCase searchCase = MakeSearchCase(random, GetParam());
        ASSERT_EQ(reference::FindSearchDifference(searchCase), "") << "search " << i;
    }
}

TEST_P(RandomSearches, OverManyGenerationsHaveTheHistoryOfThePlainReference) {
    CSeededRandom random(7);
    SSearchCase searchCase;
    searchCase.m_Polygons = MakeSet(random, GetParam(), 15);
    searchCase.m_fMutationProbability = 0.3F;
    searchCase.m_nPopulation = 20;
    searchCase.m_nGenerations = 60;
    EXPECT_EQ(reference::FindSearchDifference(searchCase), "");
}

INSTANTIATE_TEST_SUITE_P(All, RandomSearches, testing::ValuesIn(AllFamilies().begin(), AllFamilies().end()),
                         FamilyTestName);

TEST(BenchmarkSearches, HaveTheHistoryOfThePlainReference) {
    for (const SBenchmarkSet& set : BenchmarkSets()) {
        SSearchCase searchCase;
        searchCase.m_Polygons = MakeBenchmarkPieces(set.m_Kind, std::min(set.m_nPieces, 150));
        searchCase.m_nPopulation = 4;
        searchCase.m_nGenerations = 3;
        EXPECT_EQ(reference::FindSearchDifference(searchCase), "") << set.m_Kind.m_Name;
    }
}

/// Shares of one wheel: sound, short, overlong, negative, or not finite.
std::vector<float> MakeShares(CSeededRandom& random) {
    std::vector<float> shares(random.Index(8));
    const float fScale = random.Pick({1.0F, 1.0F, 0.5F, 1.5F, -1.0F});
    for (float& fShare : shares) {
        fShare = fScale * random.Unit() * 2.0F / static_cast<float>(shares.size());
        if (random.Percent(3)) {
            constexpr float INFINITE = std::numeric_limits<float>::infinity();
            fShare =
                random.Pick({INFINITE, -INFINITE, std::numeric_limits<float>::quiet_NaN(), 1e38F, -1e30F});
        }
    }
    return shares;
}

std::string WithoutSignOfNan(std::string text) {
    const size_t nAt = text.find("-nan");
    return nAt == std::string::npos ? text : WithoutSignOfNan(text.erase(nAt, 1));
}

TEST(RandomRoulettes, ChooseAsInThePlainReference) {
    CSeededRandom random(8);
    CContainer container;
    const int nCases = RandomCases(5000);
    for (int i = 0; i < nCases; ++i) {
        std::vector<float> shares = MakeShares(random);
        const int nShares = static_cast<int>(shares.size());
        const int nExclude = random.Range(-1, std::max(nShares, 1) - 1);
        const auto nSeed = static_cast<unsigned int>(i);
        std::string console;
        std::srand(nSeed);
        const int nPlain = reference::RandomEvent(shares, nExclude, console);
        const int nNextDraw = std::rand();
        std::srand(nSeed);
        int nEngine = 0;
        const std::string printed =
            PrintedBy([&] { nEngine = container.RandomEvent(shares.data(), nShares, nExclude); });
        ASSERT_EQ(nEngine, nPlain) << "case " << i;
        ASSERT_EQ(WithoutSignOfNan(printed), WithoutSignOfNan(console)) << "case " << i;
        ASSERT_EQ(std::rand(), nNextDraw) << "case " << i;
    }
}

SIndividual PlainCopyOf(const CChromosome& chromosome) {
    return {{chromosome.Genes().begin(), chromosome.Genes().end()}, chromosome.m_fFitness};
}

::testing::AssertionResult SameGenes(const CChromosome& engine, const SIndividual& plain) {
    if (engine.m_nGenes != static_cast<int>(plain.m_Genes.size())) {
        return ::testing::AssertionFailure() << "different numbers of genes";
    }
    for (size_t i = 0; i < plain.m_Genes.size(); ++i) {
        const SGene& a = engine.Genes()[i];
        const SGene& b = plain.m_Genes[i];
        if (a.m_nPolygon != b.m_nPolygon || a.m_nOrder != b.m_nOrder || !SameBits(a.m_fX, b.m_fX)) {
            return ::testing::AssertionFailure() << "gene " << i << " differs";
        }
    }
    return ::testing::AssertionSuccess();
}

TEST(RandomMutations, ChangeTheSameGeneAsInThePlainReference) {
    CSeededRandom random(9);
    const int nCases = RandomCases(20'000);
    for (int i = 0; i < nCases; ++i) {
        const float fWidth = random.Pick({400.0F, 0.0F, 77.25F, 1e30F, -50.0F});
        const int nGenes = random.Range(0, 12);
        CChromosome engine = MakeChromosome(random, nGenes, 400.0F);
        SIndividual plain = PlainCopyOf(engine);
        const float fProbability = random.Pick({1.0F, 0.5F, 0.01F, 0.0F});
        const int nOrderLow = random.Range(-3, 3);
        const int nOrderHigh = nOrderLow + random.Range(0, 20);
        std::srand(static_cast<unsigned int>(i));
        const bool bPlain = reference::Mutate(plain, fProbability, nOrderLow, nOrderHigh, 0.0F, fWidth);
        const int nNextDraw = std::rand();
        std::srand(static_cast<unsigned int>(i));
        g_MutationProbability = fProbability;
        ASSERT_EQ(engine.Mutate(nOrderLow, nOrderHigh, 0.0F, fWidth), bPlain ? 1 : 0) << "case " << i;
        ASSERT_TRUE(SameGenes(engine, plain)) << "case " << i;
        ASSERT_EQ(std::rand(), nNextDraw) << "case " << i;
    }
}

TEST(RandomCrossovers, MakeTheChildrenOfThePlainReference) {
    CSeededRandom random(10);
    const int nCases = RandomCases(5000);
    for (int i = 0; i < nCases; ++i) {
        const int nGenes = random.Range(0, 12);
        const int nChildren = random.Range(0, 2);
        CChromosome mother = MakeChromosome(random, nGenes, 400.0F);
        CChromosome father = MakeChromosome(random, nGenes, 400.0F);
        CChromosome children[2] = {MakeChromosome(random, random.Range(0, 12), 400.0F),
                                   MakeChromosome(random, random.Range(0, 12), 400.0F)};
        SIndividual plain[2] = {PlainCopyOf(children[0]), PlainCopyOf(children[1])};
        std::srand(static_cast<unsigned int>(i));
        reference::CrossOver(PlainCopyOf(mother), PlainCopyOf(father), plain, nChildren);
        const int nNextDraw = std::rand();
        std::srand(static_cast<unsigned int>(i));
        mother.CrossOver(father, children, nChildren);
        ASSERT_TRUE(SameGenes(children[0], plain[0])) << "case " << i;
        ASSERT_TRUE(SameGenes(children[1], plain[1])) << "case " << i;
        ASSERT_EQ(std::rand(), nNextDraw) << "case " << i;
    }
}

}  // namespace

}  // namespace nestrix
