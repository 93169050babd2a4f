#include <gtest/gtest.h>

#include "ga/CDecoder.h"
#include "ga/GeneticSearch.h"
#include "tests/ga/CPlacementWatch.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/FamilyParameter.h"
#include "tests/support/Pieces.h"
#include "tests/support/SameBits.h"

namespace nestrix {

namespace {

using support::CStdoutCapture;
using support::SameBits;

constexpr SSearchSize SIZE{6, 8};

void ExpectThatOfTheBestChromosome(const SPacking& packing, const CSearchState& state,
                                   const std::vector<CPolygon>& polygons) {
    CDecoder decoder(polygons, SStrip(), StackedHeight(polygons));
    EXPECT_TRUE(
        SameBits(decoder.Evaluate(state.m_BestChromosome.Genes()), state.m_BestChromosome.m_fFitness));
    const SPacking expected = decoder.Packing();
    EXPECT_TRUE(SameBits(packing.m_fHeight, expected.m_fHeight));
    ASSERT_EQ(packing.m_Placed.size(), expected.m_Placed.size());
    for (size_t i = 0; i < expected.m_Placed.size(); ++i) {
        EXPECT_EQ(packing.m_Placed[i].m_nPiece, expected.m_Placed[i].m_nPiece);
        EXPECT_TRUE(SameBits(packing.m_Placed[i].m_At.x, expected.m_Placed[i].m_At.x));
        EXPECT_TRUE(SameBits(packing.m_Placed[i].m_At.y, expected.m_Placed[i].m_At.y));
    }
}

class BestPacking : public testing::TestWithParam<support::SFamily> {};

TEST_P(BestPacking, IsThatOfTheBestChromosome) {
    for (unsigned int nSeed = 1; nSeed <= 25; ++nSeed) {
        support::CSeededRandom random(nSeed);
        const std::vector<CPolygon> polygons = support::MakeSet(random, GetParam(), 8);
        CSearchState state;
        support::CNobody nobody;
        std::optional<SPacking> packing;
        {
            const CStdoutCapture silence;
            packing = RunGeneticSearch(polygons, SStrip(), SIZE, nSeed, state, nobody);
        }
        ASSERT_TRUE(packing.has_value());
        ExpectThatOfTheBestChromosome(*packing, state, polygons);
    }
}

// Sets with endless boxes have a fitness that is not a number, for which copies of parents become the best.
INSTANTIATE_TEST_SUITE_P(All, BestPacking,
                         testing::Values(support::FamilyNamed("sound mixture"),
                                         support::FamilyNamed("nearly level rectangles"),
                                         support::FamilyNamed("infinities among others"),
                                         support::FamilyNamed("endless boxes among aligned rectangles")),
                         support::FamilyTestName);

class CAbandoningSink final : public support::CSilentSink {
public:
    [[nodiscard]] const CRelaxed<bool>* AbandonRequest() const override { return &m_bAbandoned; }

    CRelaxed<bool> m_bAbandoned = false;
};

/// Runs a search that is abandoned within the placement of this number.
std::optional<SPacking> Abandon(int nPlacement, const std::vector<CPolygon>& polygons, CSearchState& state) {
    CAbandoningSink sink;
    const CStdoutCapture silence;
    const CPlacementWatch watch(nPlacement, [&sink] { sink.m_bAbandoned = true; });
    return RunGeneticSearch(polygons, SStrip(), SIZE, 1, state, sink);
}

TEST(BestPackingOfAnAbandonedSearch, IsTheBestOfWhatWasPlaced) {
    support::CSeededRandom random(3);
    const std::vector<CPolygon> polygons = support::MakeSet(random, support::FamilyNamed("sound mixture"), 8);
    for (int nPlacement = 1; nPlacement < 30; ++nPlacement) {
        CSearchState state;
        const std::optional<SPacking> packing = Abandon(nPlacement, polygons, state);
        ASSERT_TRUE(packing.has_value()) << nPlacement;
        ExpectThatOfTheBestChromosome(*packing, state, polygons);
    }
}

TEST(BestPackingOfAnAbandonedSearch, IsNoneBeforeTheFirstPlacementIsComplete) {
    support::CSeededRandom random(3);
    const std::vector<CPolygon> polygons = support::MakeSet(random, support::FamilyNamed("sound mixture"), 8);
    CSearchState state;
    EXPECT_FALSE(Abandon(0, polygons, state).has_value());
    EXPECT_EQ(state.m_BestChromosome.m_nGenes, 0);
}

}  // namespace

}  // namespace nestrix
