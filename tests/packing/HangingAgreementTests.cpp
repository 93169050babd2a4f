#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "ga/CDecoder.h"
#include "tests/reference/Agreement.h"
#include "tests/support/BenchmarkSets.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/FamilyParameter.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// Layouts in which polygons hang where they started to fall, and hold up so many others that these are found
// through a grid.

namespace {

using namespace support;
using enum EPiece;

constexpr int MANY = 20;  // more than twice those that are swept without a grid

constexpr std::array WITH_COMBS = {Star, Lobed, Star, Lobed, Comb};
constexpr std::array WITH_RECTANGLES = {Convex, Star, AlignedRectangle};
constexpr std::array UPRIGHT = {AlignedRectangle, Letter, Comb, Lattice};
constexpr std::array WITH_LOOSE_BOXES = {AlignedRectangle, Star, Lattice, LooseBox};
constexpr std::array WITH_LOCAL_ORIGINS = {NegativeLocal, Comb, AlignedRectangle};
constexpr std::array WITH_DISTANT = {Distant, AlignedRectangle, Comb, Star};
constexpr std::array WITH_INTRICATE = {Intricate, Comb, AlignedRectangle};
constexpr std::array WITH_SELF_CROSSING = {SelfCrossing, Comb, AlignedRectangle};

constexpr std::array FAMILIES = {
    SFamily{"combs among concave pieces", WITH_COMBS},
    SFamily{"rectangles among others", WITH_RECTANGLES},
    SFamily{"upright sides", UPRIGHT},
    SFamily{"loose boxes", WITH_LOOSE_BOXES},
    SFamily{"local origins", WITH_LOCAL_ORIGINS},
    SFamily{"distant local origins", WITH_DISTANT},
    SFamily{"intricate pieces", WITH_INTRICATE},
    SFamily{"self-crossing pieces", WITH_SELF_CROSSING},
    SFamily{"five upright pieces repeated", UPRIGHT, 5},
};

/// How many rest where polygons start to fall: the lower part of the way is free.
int CountAtStart(const SPacking& packing, float fTotalHeight) {
    return static_cast<int>(std::ranges::count_if(
        packing.m_Placed,
        [fTotalHeight](const SPlacedPiece& placed) { return placed.m_At.y > 1.9F * fTotalHeight; }));
}

class HangingLayouts : public testing::TestWithParam<SFamily> {};

TEST_P(HangingLayouts, ArePlacedAsThePlainReferencePlacesThem) {
    int nCrowded = 0;
    const int nLayouts = RandomCases(60);
    for (int nSeed = 0; nSeed < nLayouts; ++nSeed) {
        CSeededRandom random(static_cast<uint64_t>(nSeed));
        CContainer container;
        container.m_Polygons = MakeSet(random, GetParam(), random.Range(100, 250));
        container.m_fContainerWidth = random.Pick({100.0F, 150.0F, 400.0F});
        container.PrepareEverything(0);
        const int nPolygons = static_cast<int>(container.m_Polygons.size());
        CChromosome chromosome = MakeChromosome(
            random, nPolygons, container.m_fContainerWidth, EKeys::Permutation,
            random.Pick({EOffsets::Uniform, EOffsets::Beyond, EOffsets::Quarters}), EIndices::Own);
        container.ValidateChromosome(chromosome);
        CDecoder decoder(container.m_Polygons, container.Strip(), container.m_fTotalHeight);
        ASSERT_EQ(reference::FindPlacementDifference(container, chromosome, decoder), "") << "seed " << nSeed;
        nCrowded += CountAtStart(decoder.Packing(), container.m_fTotalHeight) >= MANY ? 1 : 0;
    }
    EXPECT_GT(4 * nCrowded, nLayouts) << "the layouts are to be of those that hang";
}

INSTANTIATE_TEST_SUITE_P(All, HangingLayouts, testing::ValuesIn(FAMILIES), FamilyTestName);

TEST(HangingSet, IsPlacedAsThePlainReferencePlacesIt) {
    CContainer container;
    container.m_Polygons = MakeBenchmarkPieces(HangingSet());
    container.PrepareEverything(0);
    CDecoder decoder(container.m_Polygons, container.Strip(), container.m_fTotalHeight);
    int nMost = 0;
    int nFewest = HangingSet().m_nPieces;
    for (uint64_t nSeed = 0; nSeed < 12; ++nSeed) {
        CSeededRandom random(nSeed);
        CChromosome chromosome = MakeChromosome(random, HangingSet().m_nPieces, container.m_fContainerWidth,
                                                EKeys::Permutation, EOffsets::Uniform, EIndices::Own);
        container.ValidateChromosome(chromosome);
        ASSERT_EQ(reference::FindPlacementDifference(container, chromosome, decoder), "") << "seed " << nSeed;
        const int nAtStart = CountAtStart(decoder.Packing(), container.m_fTotalHeight);
        nMost = std::max(nMost, nAtStart);
        nFewest = std::min(nFewest, nAtStart);
    }
    EXPECT_GT(nMost, 200);
    EXPECT_EQ(nFewest, 0) << "a layout without a piece that hangs is to be among them";
    EXPECT_LT(decoder.Counts().m_nWalked, 12U);
}

}  // namespace

}  // namespace nestrix
