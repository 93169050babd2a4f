#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "ga/CDecoder.h"
#include "tests/reference/ReferencePlacement.h"
#include "tests/support/CContactLog.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

using support::MakeChromosome;
using support::MakePolygon;
using support::MakeRectangle;
using support::MakeSquare;
using support::Outline;

constexpr float STRIP_WIDTH = 400.0F;

/// Places the genes, holds the result against the plain reference and tells which ways the drops took.
CDropPlacement::SCounts CountWays(const std::vector<CPolygon>& polygons, const CChromosome& chromosome,
                                  CContactSink* pContacts = nullptr, float fStripWidth = STRIP_WIDTH) {
    const float fTotalHeight = reference::TotalHeight(polygons);
    CDecoder decoder(polygons, SStrip{fStripWidth}, fTotalHeight);
    const float fFitness = decoder.Evaluate(chromosome.Genes(), pContacts);
    const reference::SPlainPacking plain = reference::Place(chromosome.Genes(), polygons, fTotalHeight);
    EXPECT_EQ(fFitness, plain.m_fFitness);
    for (size_t i = 0; i < plain.m_Placed.size(); ++i) {
        EXPECT_EQ(decoder.Packing().m_Placed[i].m_At, plain.m_Placed[i].m_ReferencePoint) << "drop " << i;
    }
    return decoder.Counts();
}

}  // namespace

TEST(ShortCut, IsTakenByOrdinaryDrops) {
    const CDropPlacement::SCounts counts =
        CountWays({MakeSquare(10), MakeSquare(10)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}));
    EXPECT_EQ(counts.m_nShort, 2U);
    EXPECT_EQ(counts.m_nWalked, 0U);
    EXPECT_EQ(counts.m_nWalkedLayouts, 0U);
}

TEST(ShortCut, IsTakenByAHangingDrop) {
    const CDropPlacement::SCounts counts =
        CountWays({MakeSquare(10), MakeSquare(10)}, MakeChromosome({{0, 0, 7.0F}, {1, 1, 7.0F}}));
    EXPECT_EQ(counts.m_nShort, 2U);
}

TEST(ShortCut, IsTakenByManyHangingDrops) {
    const std::vector<CPolygon> squares(40, MakeSquare(10));
    CChromosome chromosome;
    chromosome.SetGeneCount(40);
    for (int i = 0; i < 40; ++i) {
        chromosome.m_pGenes[i] = {i, i, 7.0F + static_cast<float>(i % 3)};
    }
    EXPECT_EQ(CountWays(squares, chromosome).m_nShort, 40U);
}

TEST(ShortCut, IsTakenWhereAYoungerPieceCoversTheCornerThatWouldHangTheDrop) {
    const std::vector<CPolygon> polygons = {MakeSquare(10), MakeRectangle(30, 5), MakeSquare(10)};
    const CDropPlacement::SCounts counts =
        CountWays(polygons, MakeChromosome({{0, 0, 10.0F}, {1, 1, 0.0F}, {2, 2, 10.0F}}));
    EXPECT_EQ(counts.m_nShort, 3U);
}

TEST(ShortCut, IsTakenWhereFlatLiesOnFlatHoweverTheRestIsRounded) {
    const std::vector<CPolygon> polygons(6, MakeRectangle(20, 10.1F));
    for (int i = 0; i < 100; ++i) {
        const float fX = 0.37F * static_cast<float>(i);
        const CDropPlacement::SCounts counts = CountWays(polygons, MakeChromosome({{0, 0, fX},
                                                                                   {1, 1, fX + 3.1F},
                                                                                   {2, 2, fX + 1.7F},
                                                                                   {3, 3, fX + 4.9F},
                                                                                   {4, 4, fX + 2.3F},
                                                                                   {5, 5, fX + 0.9F}}));
        EXPECT_EQ(counts.m_nWalked, 0U);
    }
}

TEST(ShortCut, IsTakenByAnOutlineTooNarrowToBeCutIntoCells) {
    Outline outline;
    for (int i = 0; i < 20; ++i) {
        outline.push_back({static_cast<float>(i) * 1e-40F, 0.1F * static_cast<float>(i % 3), 0.0F});
    }
    for (int i = 20; i-- > 0;) {
        outline.push_back({static_cast<float>(i) * 1e-40F, 10.0F + 0.1F * static_cast<float>(i % 3), 0.0F});
    }
    const std::vector<CPolygon> polygons = {MakeSquare(10), MakePolygon(outline), MakePolygon(outline)};
    const CDropPlacement::SCounts counts =
        CountWays(polygons, MakeChromosome({{0, 0, 0.0F}, {1, 1, 0.0F}, {2, 2, 0.0F}}));
    EXPECT_EQ(counts.m_nWalkedLayouts, 0U);
}

TEST(ShortCut, FindsWhatTouchesAtTheHeightOfZero) {
    // Thirteen edges on the lower side; the box tells nothing of them.
    Outline ragged = {{0, -40, 0}, {20, -40, 0}};
    for (int i = 1; i <= 12; ++i) {
        const auto fStep = static_cast<float>(i);
        ragged.push_back({20 + fStep, -40 + fStep * fStep / 4, 0});
    }
    ragged.push_back({32, 8, 0});
    ragged.push_back({0, 8, 0});
    const Outline sunk = {{4, -5, 0}, {6, -5, 0}, {6, 0, 0}, {4, 0, 0}};
    const std::vector<CPolygon> polygons = {MakePolygon(sunk, {4, 0, 0}, {6, 10, 0}),
                                            MakePolygon(ragged, {0, 0, 0}, {32, 10, 0})};
    const CDropPlacement::SCounts counts = CountWays(polygons, MakeChromosome({{0, 0, 0.0F}, {1, 1, 0.0F}}));
    EXPECT_EQ(counts.m_nWalkedLayouts, 0U);
}

TEST(ShortCut, IsNotTakenWhereContactsAreAskedFor) {
    support::CContactLog contacts;
    const CDropPlacement::SCounts counts =
        CountWays({MakeSquare(10), MakeSquare(10)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}), &contacts);
    EXPECT_EQ(counts.m_nWalked, 2U);
    EXPECT_EQ(counts.m_nWalkedLayouts, 1U);
    EXPECT_EQ(contacts.m_Contacts.size(), 2U);
}

TEST(ShortCut, IsNotTakenWithAnOffsetFarOutsideTheStrip) {
    const CDropPlacement::SCounts counts =
        CountWays({MakeSquare(10), MakeSquare(10)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5000.0F}}));
    EXPECT_EQ(counts.m_nWalkedLayouts, 1U);
}

TEST(ShortCut, IsNotTakenInAStripOfHugeWidth) {
    const CDropPlacement::SCounts counts = CountWays(
        {MakeSquare(10), MakeSquare(10)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}), nullptr, 2e18F);
    EXPECT_EQ(counts.m_nWalkedLayouts, 1U);
}

TEST(ShortCut, IsNotTakenInAStripOfNextToNoWidth) {
    for (const float fWidth : {0.0F, 1e-39F}) {
        const CDropPlacement::SCounts counts = CountWays(
            {MakeSquare(10), MakeSquare(10)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}), nullptr, fWidth);
        EXPECT_EQ(counts.m_nWalkedLayouts, 1U);
    }
}

TEST(ShortCut, IsLeftForOneDropWhereABoxLeavesOutWhatStopsTheFall) {
    CPolygon understated = MakeSquare(10);
    understated.m_BoundingBoxMax.y = 2.0F;
    const CDropPlacement::SCounts counts =
        CountWays({understated, MakeSquare(10)}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}));
    EXPECT_EQ(counts.m_nShort, 1U);
    EXPECT_EQ(counts.m_nWalked, 1U);
    EXPECT_EQ(counts.m_nWalkedLayouts, 0U);
}

TEST(ShortCut, IsLeftForOneDropWhereABoxLeavesOutWhatHoldsItAboveACornerInLine) {
    CPolygon understated = MakeRectangle(8, 30);
    understated.m_BoundingBoxMax.y = 10.0F;
    // The last piece's right side is in line with the second one's corner, which is reached only because the
    // third one is not asked after the fourth.
    const std::vector<CPolygon> polygons = {MakeRectangle(8, 40), MakeRectangle(10, 20), understated,
                                            MakeRectangle(7, 15), MakeRectangle(40, 5)};
    const CDropPlacement::SCounts counts = CountWays(
        polygons, MakeChromosome({{0, 0, 1.0F}, {1, 1, 30.0F}, {2, 2, 11.0F}, {3, 3, 21.0F}, {4, 4, 0.0F}}));
    EXPECT_EQ(counts.m_nWalked, 1U);
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

namespace {

/// A change to a sound piece, after which its profiles are not to be swept.
struct SForgery {
    const char* m_pName;
    void (*m_pForge)(CPolygon& piece);
};

CLine& WideFrontEdge(CPolygon& piece) {
    return *std::ranges::find_if(piece.m_FrontLines,
                                 [](const CLine& line) { return line.m_Direction.x != 0.0F; });
}

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float HUGE_COORDINATE = 2e18F;

constexpr std::array FORGERIES = {
    SForgery{"AHugeBoxBottom", [](CPolygon& piece) { piece.m_BoundingBoxMin.y = -HUGE_COORDINATE; }},
    SForgery{"AHugeBoxTop", [](CPolygon& piece) { piece.m_BoundingBoxMax.y = HUGE_COORDINATE; }},
    SForgery{"AHugeBoxWidth", [](CPolygon& piece) { piece.m_BoundingBoxMax.x = HUGE_COORDINATE; }},
    SForgery{"AHugeVertex", [](CPolygon& piece) { piece.m_Points[0].m_Position.y = HUGE_COORDINATE; }},
    SForgery{"AVertexThatIsNotANumber",
             [](CPolygon& piece) { piece.m_Points[0].m_Position.y = NOT_A_NUMBER; }},
    SForgery{"AHugeFrontPoint",
             [](CPolygon& piece) { piece.m_FrontPoints[0].m_Position.y = -HUGE_COORDINATE; }},
    SForgery{"AHugeBackPoint", [](CPolygon& piece) { piece.m_BackPoints[0].m_Position.y = HUGE_COORDINATE; }},
    SForgery{"AHugeFrontDirection",
             [](CPolygon& piece) { WideFrontEdge(piece).m_Direction.y = HUGE_COORDINATE; }},
    SForgery{"AHugeBackDirection",
             [](CPolygon& piece) { piece.m_BackLines[0].m_Direction.y = HUGE_COORDINATE; }},
    SForgery{"ADirectionShorterThanItsEdge",
             [](CPolygon& piece) {
                 piece.m_BackLines[0].m_Direction = {-1.0F, 1.0F, 0.0F};
             }},
    SForgery{"AFrontEdgeThatSaysItRunsLeft",
             [](CPolygon& piece) { WideFrontEdge(piece).m_Direction.x = -10.0F; }},
    SForgery{"ABackEdgeThatSaysItRunsRight",
             [](CPolygon& piece) { piece.m_BackLines[0].m_Direction.x = 10.0F; }},
    SForgery{"AFrontEdgeThatRunsLeft",
             [](CPolygon& piece) {
                 CLine& edge = WideFrontEdge(piece);
                 std::swap(edge.m_nStart, edge.m_nEnd);
             }},
    SForgery{"ABackEdgeThatRunsRight",
             [](CPolygon& piece) { std::swap(piece.m_BackLines[0].m_nStart, piece.m_BackLines[0].m_nEnd); }},
    SForgery{"AWideEdgeThatSaysItIsVertical",
             [](CPolygon& piece) { WideFrontEdge(piece).m_Direction.x = 0.0F; }},
};

class ShortCutWith : public testing::TestWithParam<SForgery> {};

TEST_P(ShortCutWith, IsNotTaken) {
    CPolygon forged = MakeSquare(10);
    GetParam().m_pForge(forged);
    const CDropPlacement::SCounts counts =
        CountWays({MakeSquare(10), forged}, MakeChromosome({{0, 0, 0.0F}, {1, 1, 5.0F}}));
    EXPECT_EQ(counts.m_nWalkedLayouts, 1U);
}

INSTANTIATE_TEST_SUITE_P(Forged, ShortCutWith, testing::ValuesIn(FORGERIES),
                         [](const auto& forgery) { return std::string(forgery.param.m_pName); });

}  // namespace

}  // namespace nestrix
