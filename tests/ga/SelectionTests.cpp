#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <numeric>
#include <optional>

#include "ga/CContainer.h"
#include "tests/ga/CScriptedDraws.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Pieces.h"

namespace nestrix {

// Which chromosomes of a generation become parents, to the last bit of their shares.

namespace {

using support::CSeededRandom;
using support::PrintedBy;
using testing::HasSubstr;

constexpr int POPULATION = 6;

std::vector<SGene> GenesOf(const CChromosome& chromosome) {
    return {chromosome.Genes().begin(), chromosome.Genes().end()};
}

class Selection : public testing::Test {
protected:
    void SetUp() override { g_MutationProbability = std::nanf(""); }
    void TearDown() override { g_MutationProbability = 0.01F; }

    /// Draws for the first generation.
    [[nodiscard]] std::vector<int> DrawFirstGeneration(unsigned int nSeed) const {
        CSeededRandom random(nSeed);
        std::vector<int> draws(2 * m_Polygons.size() * POPULATION);
        for (int& nDraw : draws) {
            nDraw = random.Range(0, RAND_MAX);
        }
        return draws;
    }

    /// The generation after the first, and what was printed.
    std::vector<CChromosome> Breed(int nGenerations, std::vector<int> draws) {
        CContainer container;
        container.m_Polygons = m_Polygons;
        support::CNobody nobody;
        const CScriptedDraws script(std::move(draws));
        m_Printed = PrintedBy([&] { container.RunSearch(POPULATION, nGenerations, 1, nobody); });
        return container.m_Population;
    }

    std::vector<CPolygon> m_Polygons;
    std::string m_Printed;
};

/// A draw that chooses differently with one list of shares and with the other, and what it chooses.
struct STellingDraw {
    int m_nDraw;
    int m_nFirst;
    int m_nSecond;
};

std::optional<STellingDraw> FindTellingDraw(std::vector<float> first, std::vector<float> second) {
    CContainer container;
    double upperEnd = 0.0;
    for (const float fShare : first) {
        upperEnd += static_cast<double>(fShare) * 100.0;
        // A slice is one percent wider than its share.
        const int nBoundary = DrawOfPercent(std::min(upperEnd + 1.0, 99.9));
        for (int nDraw = nBoundary - 400; nDraw < nBoundary + 400; ++nDraw) {
            const auto choose = [&](std::vector<float>& shares) {
                const CScriptedDraws script({nDraw});
                return container.RandomEventCore(shares.data(), static_cast<int>(shares.size()));
            };
            const STellingDraw draw{nDraw, choose(first), choose(second)};
            if (draw.m_nFirst != draw.m_nSecond) {
                return draw;
            }
        }
    }
    return std::nullopt;
}

TEST_F(Selection, TakesSharesThatWereMultipliedByTheReciprocalAndNotDivided) {
    CSeededRandom random(5);
    for (int i = 0; i < 7; ++i) {
        m_Polygons.push_back(support::MakePiece(random, support::EPiece::Star));
    }
    int nTold = 0;
    for (unsigned int nSeed = 1; nSeed <= 20; ++nSeed) {
        std::vector<int> draws = DrawFirstGeneration(nSeed);
        const std::vector<CChromosome> parents = Breed(0, draws);
        float fTotal = 0.0F;
        for (const CChromosome& parent : parents) {
            fTotal += parent.m_fFitness;
        }
        std::vector<float> multiplied;
        std::vector<float> divided;
        for (const CChromosome& parent : parents) {
            multiplied.push_back(parent.m_fFitness * (1.0F / fTotal));
            divided.push_back(parent.m_fFitness / fTotal);
        }
        const std::optional<STellingDraw> telling = FindTellingDraw(multiplied, divided);
        if (!telling) {
            continue;
        }
        ++nTold;
        // The first child: first parent, second parent, and a cut behind the last gene.
        draws.insert(draws.end(), {telling->m_nDraw, 0, static_cast<int>(m_Polygons.size()) - 1});
        const std::vector<CChromosome> children = Breed(1, draws);
        EXPECT_EQ(GenesOf(children[0]), GenesOf(parents[static_cast<size_t>(telling->m_nFirst)]));
        EXPECT_NE(GenesOf(children[0]), GenesOf(parents[static_cast<size_t>(telling->m_nSecond)]));
    }
    EXPECT_GE(nTold, 3);
}

TEST(SecondParent, IsDrawnFromSharesMultipliedByTheReciprocalOfTheirSum) {
    CSeededRandom random(9);
    int nTold = 0;
    for (int i = 0; i < 30; ++i) {
        std::vector<float> rest;
        float fSum = 0.0F;
        for (int j = 0; j < POPULATION; ++j) {
            rest.push_back(random.Between(0.05F, 0.2F));
            fSum += rest.back();
        }
        std::vector<float> multiplied = rest;
        std::vector<float> divided = rest;
        for (float& fShare : multiplied) {
            fShare *= 1.0F / fSum;
        }
        for (float& fShare : divided) {
            fShare /= fSum;
        }
        if (const std::optional<STellingDraw> telling = FindTellingDraw(multiplied, divided)) {
            ++nTold;
            std::vector<float> all = rest;
            all.insert(all.begin() + 2, 0.3F);
            CContainer container;
            const CScriptedDraws script({telling->m_nDraw});
            EXPECT_EQ(container.RandomEvent(all.data(), POPULATION + 1, 2), telling->m_nFirst);
        }
    }
    EXPECT_GE(nTold, 3);
}

TEST_F(Selection, TakesTheFirstChromosomeForAParentThatTheWheelDidNotFind) {
    // Each fitness is finite, but their sum is not: all shares are 0.
    m_Polygons = {support::MakeRectangle(20, 0.8e38F), support::MakeRectangle(30, 0.8e38F)};
    const std::vector<int> draws = DrawFirstGeneration(2);
    const std::vector<CChromosome> parents = Breed(0, draws);
    ASSERT_TRUE(std::isfinite(parents[0].m_fFitness));
    ASSERT_NE(GenesOf(parents.front()), GenesOf(parents.back()));
    std::vector<int> ofChildren;
    for (int i = 0; i < POPULATION; ++i) {
        ofChildren.insert(ofChildren.end(), {DrawOfPercent(50), DrawOfPercent(60), i, 0});
    }
    std::vector<int> all = draws;
    all.insert(all.end(), ofChildren.begin(), ofChildren.end());
    for (const CChromosome& child : Breed(1, all)) {
        EXPECT_EQ(GenesOf(child), GenesOf(parents.front()));
    }
    EXPECT_THAT(m_Printed, HasSubstr("WRONG (LESSER) idx\n -1 , -1\n"));
}

}  // namespace

}  // namespace nestrix
