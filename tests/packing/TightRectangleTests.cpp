#include <gtest/gtest.h>

#include <cmath>

#include "ga/CDecoder.h"
#include "tests/reference/Agreement.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// Sides that line up, and tops and rests that differ in the last bit: what the shortest way cannot settle.

namespace {

using support::CSeededRandom;

/// Of a height, and at a height, that leaves tops and rests a rounding apart, or of next to no height. Its
/// box may leave some of it out.
CPolygon MakeTightRectangle(CSeededRandom& random) {
    const float fWidth = 10.0F * static_cast<float>(random.Range(1, 3));
    float fHeight = 10.1F * static_cast<float>(random.Range(1, 3));
    if (random.Percent(30)) {
        fHeight = random.Pick({std::nextafter(fHeight, 100.0F), 1e-6F, 2.5e-6F, 1e-5F});
    }
    const float fY = random.Percent(50) ? 0.0F : 10.1F * static_cast<float>(random.Range(-2, 2));
    CPolygon polygon =
        support::MakePolygon(support::Moved(support::RectangleOutline(fWidth, fHeight), 0.0F, fY));
    if (random.Percent(40)) {
        float& fEdge = random.Percent(50) ? polygon.m_BoundingBoxMin.y : polygon.m_BoundingBoxMax.y;
        fEdge += random.Pick({-1e-6F, 1e-6F, -5.0F, -5.0F, 5.0F});
    }
    return polygon;
}

}  // namespace

TEST(TightRectangles, ArePlacedAsThePlainReferencePlacesThem) {
    size_t nShort = 0;
    size_t nWalked = 0;
    const int nLayouts = support::RandomCases(10000);
    for (int nSeed = 0; nSeed < nLayouts; ++nSeed) {
        CSeededRandom random(static_cast<uint64_t>(nSeed));
        CChromosome chromosome;
        chromosome.SetGeneCount(random.Range(2, 8));
        CContainer container;
        for (int i = 0; i < chromosome.m_nGenes; ++i) {
            container.m_Polygons.push_back(MakeTightRectangle(random));
            chromosome.m_pGenes[i] = {i, i, 10.0F * static_cast<float>(random.Range(0, 3))};
        }
        container.PrepareEverything(0);
        CDecoder decoder(container.m_Polygons, SStrip{container.m_fContainerWidth}, container.m_fTotalHeight);
        ASSERT_EQ(reference::FindPlacementDifference(container, chromosome, decoder), "") << "seed " << nSeed;
        nShort += decoder.Counts().m_nShort;
        nWalked += decoder.Counts().m_nWalked;
    }
    EXPECT_GT(nShort, nWalked);
    EXPECT_GT(nWalked, 0U);
}

}  // namespace nestrix
