#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "display/CPolyDisplay.h"
#include "tests/display/CCanvasHost.h"
#include "tests/display/CanvasPlaces.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

using support::AddPlaced;
using support::BLACK;
using support::CCanvasHost;
using support::CPicture;
using support::GREY;
using support::MakeRectangle;
using support::PixelX;
using support::PixelY;
using support::WHITE;

class Canvas : public testing::Test {
protected:
    void SetUp() override {
        std::ranges::fill(g_PolyOptions, false);
        m_pDisplay = new CPolyDisplay(m_Host.Parent());
        m_pDisplay->Initialize(400.0F, 600.0F);
    }

    CCanvasHost m_Host;
    CPolyDisplay* m_pDisplay = nullptr;
};

TEST_F(Canvas, StartsWithoutPolygonsAtHeightZero) {
    EXPECT_EQ(m_pDisplay->GetClientSize(), wxSize(400, 600));
    EXPECT_TRUE(m_pDisplay->m_PolyItems.empty());
    EXPECT_TRUE(m_pDisplay->m_Markers.empty());
    EXPECT_EQ(m_pDisplay->m_fHeight, 0.0F);
}

TEST_F(Canvas, LeavesRoomForLabelsAndKeepsItsProportions) {
    EXPECT_EQ(m_pDisplay->m_fStripWidth, 400.0F);
    EXPECT_EQ(m_pDisplay->m_fStripHeight, 600.0F);
    EXPECT_EQ(m_pDisplay->m_fViewWidth, 480.0F);
    EXPECT_EQ(m_pDisplay->m_fViewHeight, 720.0F);
}

TEST_F(Canvas, PaintsWallsAndFloorThroughTheWholeView) {
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    for (const int nY : {1, 300, 598}) {
        EXPECT_EQ(picture.At(33, nY), BLACK) << nY;
        EXPECT_EQ(picture.At(366, nY), BLACK) << nY;
    }
    for (const int nX : {1, 10, 200, 398}) {
        EXPECT_EQ(picture.At(nX, 16), BLACK) << nX;
    }
    EXPECT_EQ(picture.At(200, 300), WHITE);
}

TEST_F(Canvas, TicksEveryEighthOfTheStripWidth) {
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    for (int i = 0; i <= 8; ++i) {
        const float fX = PixelX(50.0F * static_cast<float>(i));
        EXPECT_TRUE(picture.Touches(BLACK, fX, 13.5F)) << i;
        EXPECT_TRUE(picture.Touches(BLACK, fX, 19.5F)) << i;
        // The strip's walls run through the outermost ticks.
        EXPECT_EQ(picture.Touches(BLACK, fX, 21.5F), i % 8 == 0) << i;
    }
}

TEST_F(Canvas, TicksEveryTenthOfTheStripHeight) {
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    for (int i = 0; i <= 10; ++i) {
        const float fY = PixelY(60.0F * static_cast<float>(i));
        EXPECT_TRUE(picture.Touches(BLACK, 31.5F, fY)) << i;
        EXPECT_TRUE(picture.Touches(BLACK, 36.5F, fY)) << i;
        EXPECT_EQ(picture.Touches(BLACK, 38.5F, fY), i == 0) << i;
    }
}

TEST_F(Canvas, PaintsTheHeightLineOnTheFloorWhenEmpty) {
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    EXPECT_TRUE(picture.Touches(BLACK, PixelX(200.0F), PixelY(0.0F)));
}

TEST_F(Canvas, PaintsTheHeightLineAcrossTheStripAtTheHighestTop) {
    AddPlaced(*m_pDisplay, MakeRectangle(100.0F, 150.0F), 20.0F, 30.0F);
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    EXPECT_EQ(m_pDisplay->m_fHeight, 180.0F);
    for (const float fX : {1.0F, 200.0F, 399.0F}) {
        EXPECT_TRUE(picture.Touches(BLACK, PixelX(fX), PixelY(180.0F))) << fX;
    }
    EXPECT_EQ(picture.At(PixelX(-12.0F), PixelY(180.0F) + 1.0F), WHITE);
}

TEST_F(Canvas, PaintsOutlinesInGreyWhereThePolygonsRest) {
    AddPlaced(*m_pDisplay, MakeRectangle(100.0F, 60.0F), 50.0F, 90.0F);
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    EXPECT_TRUE(picture.Touches(GREY, PixelX(100.0F), PixelY(90.0F)));
    EXPECT_TRUE(picture.Touches(GREY, PixelX(50.0F), PixelY(120.0F)));
    EXPECT_TRUE(picture.Touches(GREY, PixelX(150.0F), PixelY(120.0F)));
    EXPECT_EQ(picture.At(PixelX(100.0F), PixelY(120.0F)), WHITE);
}

TEST_F(Canvas, ClosesTheOutlineFromTheLastVertexToTheFirst) {
    AddPlaced(*m_pDisplay, support::MakePolygon({{0, 0}, {90, 0}, {90, 90}, {0, 90}}), 60.0F, 60.0F);
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    EXPECT_TRUE(picture.Touches(GREY, PixelX(60.0F), PixelY(105.0F)));
}

TEST_F(Canvas, MeasuresTheHeightBeforeThePolygonIsShiftedForDrawing) {
    AddPlaced(*m_pDisplay, MakeRectangle(10.0F, 25.0F), 7.0F, 5.0F);
    EXPECT_EQ(m_pDisplay->m_fHeight, 30.0F);
    const mgVector3 reference = m_pDisplay->m_PolyItems[0].m_Polygon.m_ReferencePoint;
    EXPECT_EQ(reference, (mgVector3{47.0F, 25.0F, 0.0F}));
}

TEST_F(Canvas, KeepsTheHighestTopWhateverTheOrder) {
    AddPlaced(*m_pDisplay, MakeRectangle(10.0F, 25.0F), 0.0F, 5.0F);
    AddPlaced(*m_pDisplay, MakeRectangle(10.0F, 30.0F), 20.0F, 0.0F);
    AddPlaced(*m_pDisplay, MakeRectangle(10.0F, 10.0F), 40.0F, 0.0F);
    EXPECT_EQ(m_pDisplay->m_fHeight, 30.0F);
}

TEST_F(Canvas, TakesTheHeightFromTheBoxAndNotFromTheOutline) {
    const CPolygon polygon = support::MakePolygon({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {0, 0}, {10, 40});
    AddPlaced(*m_pDisplay, polygon, 0.0F, 0.0F);
    EXPECT_EQ(m_pDisplay->m_fHeight, 40.0F);
}

TEST_F(Canvas, NumbersItemsAnewAfterClear) {
    AddPlaced(*m_pDisplay, MakeRectangle(10.0F, 10.0F), 0.0F, 0.0F);
    AddPlaced(*m_pDisplay, MakeRectangle(10.0F, 10.0F), 20.0F, 0.0F);
    EXPECT_EQ(m_pDisplay->m_PolyItems[1].m_nSeqNumber, 1);
    m_pDisplay->Clear();
    EXPECT_TRUE(m_pDisplay->m_PolyItems.empty());
    EXPECT_EQ(m_pDisplay->m_fHeight, 0.0F);
    AddPlaced(*m_pDisplay, MakeRectangle(10.0F, 10.0F), 0.0F, 0.0F);
    EXPECT_EQ(m_pDisplay->m_PolyItems[0].m_nSeqNumber, 0);
}

TEST_F(Canvas, ShowsNothingOfTheLastPackingAfterClear) {
    const CPicture empty = CCanvasHost::Paint(*m_pDisplay);
    AddPlaced(*m_pDisplay, MakeRectangle(100.0F, 60.0F), 50.0F, 90.0F);
    EXPECT_FALSE(CCanvasHost::Paint(*m_pDisplay) == empty);
    m_pDisplay->Clear();
    EXPECT_TRUE(CCanvasHost::Paint(*m_pDisplay) == empty);
}

TEST_F(Canvas, PaintsMarkersAsLargeBlackDotsAboveThePolygons) {
    AddPlaced(*m_pDisplay, MakeRectangle(100.0F, 60.0F), 50.0F, 90.0F);
    m_pDisplay->m_Markers.push_back({140.0F, 110.0F, 0.0F});
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    // At world (140, 110), which lies on the outline's lower edge; ten pixels across.
    const float fX = 140.0F * support::CANVAS_SCALE;
    const float fY = 110.0F * support::CANVAS_SCALE;
    for (const float fOffset : {-4.0F, 0.0F, 4.0F}) {
        EXPECT_EQ(picture.At(fX + fOffset, fY), BLACK) << fOffset;
        EXPECT_EQ(picture.At(fX, fY + fOffset), BLACK) << fOffset;
    }
    EXPECT_EQ(picture.At(fX, fY + 7.0F), WHITE);
    EXPECT_EQ(picture.At(fX + 8.0F, fY), GREY);
}

TEST_F(Canvas, ClearKeepsTheMarkers) {
    m_pDisplay->m_Markers.push_back({140.0F, 110.0F, 0.0F});
    m_pDisplay->Clear();
    EXPECT_EQ(m_pDisplay->m_Markers.size(), 1U);
}

TEST_F(Canvas, KeepsItsViewWhenItIsResized) {
    (void)CCanvasHost::Paint(*m_pDisplay);
    m_pDisplay->SetSize(500, 700);
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    EXPECT_EQ(m_pDisplay->m_fViewWidth, 480.0F);
    EXPECT_EQ(m_pDisplay->m_fViewHeight, 720.0F);
    EXPECT_EQ(picture.At(33, 300), BLACK);
    EXPECT_EQ(picture.At(366, 300), BLACK);
    EXPECT_EQ(picture.At(440 * 500 / 480, 300), WHITE);
}

TEST_F(Canvas, DrawsNothingForCoordinatesThatAreNotFinite) {
    const CPicture empty = CCanvasHost::Paint(*m_pDisplay);
    const float fNan = std::numeric_limits<float>::quiet_NaN();
    CPolygon polygon = support::MakePolygon({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    for (CPoint& point : polygon.m_Points) {
        point.m_Position = {fNan, fNan, 0.0F};
    }
    polygon.m_BoundingBoxMax = {fNan, fNan, 0.0F};
    std::ranges::fill(g_PolyOptions, true);
    AddPlaced(*m_pDisplay, polygon, fNan, fNan);
    EXPECT_EQ(m_pDisplay->m_fHeight, 0.0F);
    EXPECT_TRUE(CCanvasHost::Paint(*m_pDisplay) == empty);
}

TEST_F(Canvas, SurvivesAPackingOfInfiniteHeight) {
    AddPlaced(*m_pDisplay, MakeRectangle(10.0F, 10.0F), 0.0F, std::numeric_limits<float>::infinity());
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    EXPECT_EQ(m_pDisplay->m_fHeight, std::numeric_limits<float>::infinity());
    EXPECT_EQ(picture.At(33, 300), BLACK);
}

TEST_F(Canvas, LeavesTheBackgroundToItsPaint) {
    wxEraseEvent event(m_pDisplay->GetId(), nullptr);
    event.SetEventObject(m_pDisplay);
    EXPECT_TRUE(m_pDisplay->ProcessWindowEvent(event));
}

}  // namespace

}  // namespace nestrix
