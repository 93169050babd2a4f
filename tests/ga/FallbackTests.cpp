#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "CPlacement.h"
#include "Chromosomes.h"
#include "PolygonMaking.h"
#include "ReferencePlacement.h"

namespace {

using support::MakeChromosome;
using support::MakePolygon;
using support::MakeRectangle;
using support::MakeSquare;

constexpr float STRIP_WIDTH = 400.0F;

/// Places the genes, holds the result against the plain reference and tells which ways the drops took.
CPlacement::SCounts CountWays(const std::vector<CPolygon>& polygons, const CChromosome& chromosome,
                              CContactSink* pContacts = nullptr) {
    const float fTotalHeight = reference::TotalHeight(polygons);
    CPlacement placement(polygons, fTotalHeight, STRIP_WIDTH);
    const float fFitness = placement.Place(chromosome.Genes(), pContacts);
    const reference::SPacking plain = reference::Place(chromosome.Genes(), polygons, fTotalHeight);
    EXPECT_EQ(fFitness, plain.m_fFitness);
    for (size_t i = 0; i < plain.m_Placed.size(); ++i) {
        EXPECT_EQ(placement.Drops()[i].m_ReferencePoint, plain.m_Placed[i].m_ReferencePoint) << "drop " << i;
    }
    return placement.Counts();
}

class CContacts final : public CContactSink {
public:
    void ContactFound(const mgVector3& contact) override { m_Contacts.push_back(contact); }
    std::vector<mgVector3> m_Contacts;
};

}  // namespace

TEST(ShortCut, IsTakenByOrdinaryDrops) {
    const CPlacement::SCounts counts =
        CountWays({MakeSquare(10), MakeSquare(10)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}));
    EXPECT_EQ(counts.m_nShort, 2U);
    EXPECT_EQ(counts.m_nWalked, 0U);
    EXPECT_EQ(counts.m_nWalkedLayouts, 0U);
}

TEST(ShortCut, IsTakenByAHangingDrop) {
    const CPlacement::SCounts counts =
        CountWays({MakeSquare(10), MakeSquare(10)}, MakeChromosome({{0, 0, 7.0F}, {1, 1, 7.0F}}));
    EXPECT_EQ(counts.m_nShort, 2U);
}

TEST(ShortCut, IsTakenWhereAYoungerPieceCoversTheCornerThatWouldHangTheDrop) {
    const std::vector<CPolygon> polygons = {MakeSquare(10), MakeRectangle(30, 5), MakeSquare(10)};
    const CPlacement::SCounts counts =
        CountWays(polygons, MakeChromosome({{0, 0, 10.0F}, {1, 1, 0.0F}, {2, 2, 10.0F}}));
    EXPECT_EQ(counts.m_nShort, 3U);
}

TEST(ShortCut, IsNotTakenWhereContactsAreAskedFor) {
    CContacts contacts;
    const CPlacement::SCounts counts =
        CountWays({MakeSquare(10), MakeSquare(10)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}), &contacts);
    EXPECT_EQ(counts.m_nWalked, 2U);
    EXPECT_EQ(counts.m_nWalkedLayouts, 1U);
    EXPECT_EQ(contacts.m_Contacts.size(), 2U);
}

TEST(ShortCut, IsNotTakenWithACoordinateThatIsNotFinite) {
    const float fNotANumber = std::numeric_limits<float>::quiet_NaN();
    const CPolygon broken = MakePolygon({{0, 0, 0}, {10, fNotANumber, 0}, {5, 10, 0}}, {}, {10, 10, 0});
    const CPlacement::SCounts counts =
        CountWays({MakeSquare(10), broken}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}));
    EXPECT_EQ(counts.m_nWalkedLayouts, 1U);
}

TEST(ShortCut, IsNotTakenWithAHugeCoordinate) {
    const CPlacement::SCounts counts =
        CountWays({MakeSquare(10), MakeRectangle(2e18F, 5)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}));
    EXPECT_EQ(counts.m_nWalkedLayouts, 1U);
}

TEST(ShortCut, IsNotTakenWithAnOffsetFarOutsideTheStrip) {
    const CPlacement::SCounts counts =
        CountWays({MakeSquare(10), MakeSquare(10)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5000.0F}}));
    EXPECT_EQ(counts.m_nWalkedLayouts, 1U);
}

TEST(ShortCut, IsNotTakenWithAnEdgeThatTheAnalysisWouldNotMake) {
    CPolygon forged = MakeSquare(10);
    forged.m_BackLines[0].m_Direction.x = 10.0F;
    const CPlacement::SCounts counts =
        CountWays({MakeSquare(10), forged}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}));
    EXPECT_EQ(counts.m_nWalkedLayouts, 1U);
}

TEST(ShortCut, IsLeftForOneDropWhereABoxLeavesOutWhatStopsTheFall) {
    CPolygon understated = MakeSquare(10);
    understated.m_BoundingBoxMax.y = 2.0F;
    const CPlacement::SCounts counts =
        CountWays({understated, MakeSquare(10)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}));
    EXPECT_EQ(counts.m_nShort, 1U);
    EXPECT_EQ(counts.m_nWalked, 1U);
    EXPECT_EQ(counts.m_nWalkedLayouts, 0U);
}

TEST(ShortCut, IsLeftForOneDropWhereTwoObstaclesGiveRestsARoundingApart) {
    size_t nWalked = 0;
    for (int i = 0; i < 200; ++i) {
        const float fHeight = 10.0F + 0.137F * static_cast<float>(i);
        const float fNextHeight = std::nextafter(fHeight, 100.0F);
        const std::vector<CPolygon> polygons = {MakeRectangle(20, fNextHeight), MakeRectangle(20, fHeight),
                                                MakeRectangle(30, 5)};
        nWalked +=
            CountWays(polygons, MakeChromosome({{0, 0, 0.0F}, {1, 1, 30.0F}, {2, 2, 10.0F}})).m_nWalked;
    }
    EXPECT_GT(nWalked, 0U);
}
