#include <gtest/gtest.h>

#include <algorithm>

#include "display/CPolyDisplay.h"
#include "tests/display/CCanvasHost.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

using support::BLACK;
using support::BLUE;
using support::CCanvasHost;
using support::CPicture;
using support::GREY;
using support::RED;
using support::SColour;
using support::WHITE;

constexpr float SCALE = 400.0F / 480.0F;

/// One kite, of which each overlay shows another part: outline (0,40) (60,0) (120,40) (60,100), its box two
/// units wider on every side, at strip position (100, 150).
class Overlay : public testing::Test {
protected:
    void SetUp() override {
        std::ranges::fill(g_PolyOptions, false);
        m_pDisplay = new CPolyDisplay(m_Host.Parent());
        m_pDisplay->Initialize(400.0F, 600.0F);
        CPolygon kite = support::PlacedAt(
            support::MakePolygon({{0, 40}, {60, 0}, {120, 40}, {60, 100}}, {-12, -12}, {132, 112}), 100.0F,
            150.0F);
        m_pDisplay->AddPolygon(kite);
    }

    [[nodiscard]] CPicture PaintWith(ERenderOption option) {
        g_PolyOptions[option] = true;
        return CCanvasHost::Paint(*m_pDisplay);
    }

    /// Whether the picture has the colour at a position of the kite's own coordinates.
    [[nodiscard]] static bool Has(const CPicture& picture, SColour colour, float fX, float fY) {
        return picture.Touches(colour, (fX + 140.0F) * SCALE, (fY + 170.0F) * SCALE);
    }

    CCanvasHost m_Host;
    CPolyDisplay* m_pDisplay = nullptr;
};

TEST_F(Overlay, NoneIsDrawnByDefault) {
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    EXPECT_EQ(picture.Count(RED, 0, 0, 400, 600), 0);
    EXPECT_EQ(picture.Count(BLUE, 0, 0, 400, 600), 0);
    EXPECT_GT(picture.Count(GREY, 0, 0, 400, 600), 150);
}

TEST_F(Overlay, ReferencePointIsABlackDot) {
    const CPicture picture = PaintWith(RENDER_REFERENCE);
    EXPECT_TRUE(Has(picture, BLACK, 0.0F, 0.0F));
    const int nX = static_cast<int>(140.0F * SCALE);
    const int nY = static_cast<int>(170.0F * SCALE);
    EXPECT_GE(picture.Count(BLACK, nX - 3, nY - 3, nX + 4, nY + 4), 12);
    EXPECT_TRUE(picture.IsBlank(nX + 5, nY - 3, nX + 12, nY + 4));
}

TEST_F(Overlay, BoundingBoxIsARedRectangleAroundTheBoxThatTheFileGives) {
    m_pDisplay->m_fHeight = 400.0F;  // out of its way
    const CPicture picture = PaintWith(RENDER_BOUNDING_BOX);
    EXPECT_TRUE(Has(picture, RED, -12.0F, 50.0F));
    EXPECT_TRUE(Has(picture, RED, 132.0F, 50.0F));
    EXPECT_TRUE(Has(picture, RED, 50.0F, -12.0F));
    EXPECT_TRUE(Has(picture, RED, 50.0F, 112.0F));
    EXPECT_TRUE(Has(picture, WHITE, 20.0F, 50.0F));
}

TEST_F(Overlay, FrontLinesAreRedAndTwoPixelsWide) {
    const CPicture picture = PaintWith(RENDER_FRONT_LINES);
    EXPECT_TRUE(Has(picture, RED, 30.0F, 20.0F));
    EXPECT_TRUE(Has(picture, RED, 90.0F, 20.0F));
    EXPECT_TRUE(Has(picture, GREY, 30.0F, 70.0F));
    // 120 units of slope 2/3 either side: as many columns, two pixels each.
    EXPECT_NEAR(picture.Count(RED, 0, 0, 400, 600), 200, 8);
    EXPECT_EQ(picture.Count(BLUE, 0, 0, 400, 600), 0);
}

TEST_F(Overlay, BackLinesAreBlueAndTwoPixelsWide) {
    const CPicture picture = PaintWith(RENDER_BACK_LINES);
    EXPECT_TRUE(Has(picture, BLUE, 30.0F, 70.0F));
    EXPECT_TRUE(Has(picture, BLUE, 90.0F, 70.0F));
    EXPECT_TRUE(Has(picture, GREY, 30.0F, 20.0F));
    EXPECT_NEAR(picture.Count(BLUE, 0, 0, 400, 600), 200, 8);
    EXPECT_EQ(picture.Count(RED, 0, 0, 400, 600), 0);
}

TEST_F(Overlay, FrontPointsAreRedDots) {
    const CPicture picture = PaintWith(RENDER_FRONT_POINTS);
    EXPECT_TRUE(Has(picture, RED, 0.0F, 40.0F));
    EXPECT_TRUE(Has(picture, RED, 60.0F, 0.0F));
    EXPECT_TRUE(Has(picture, RED, 120.0F, 40.0F));
    EXPECT_TRUE(Has(picture, GREY, 60.0F, 100.0F));
}

TEST_F(Overlay, BackPointsAreBlueDots) {
    const CPicture picture = PaintWith(RENDER_BACK_POINTS);
    EXPECT_TRUE(Has(picture, BLUE, 0.0F, 40.0F));
    EXPECT_TRUE(Has(picture, BLUE, 60.0F, 100.0F));
    EXPECT_TRUE(Has(picture, BLUE, 120.0F, 40.0F));
    EXPECT_TRUE(Has(picture, GREY, 60.0F, 0.0F));
}

TEST_F(Overlay, LaterOnesLieOnTop) {
    std::ranges::fill(g_PolyOptions, true);
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    // The front's end points are also the back's, which is drawn later.
    EXPECT_TRUE(Has(picture, BLUE, 0.0F, 40.0F));
    EXPECT_TRUE(Has(picture, RED, 60.0F, 0.0F));
    // The box is drawn over the reference point.
    m_pDisplay->m_PolyItems[0].m_Polygon.m_BoundingBoxMin = {0.0F, 0.0F, 0.0F};
    EXPECT_TRUE(Has(CCanvasHost::Paint(*m_pDisplay), RED, 0.0F, 0.0F));
}

TEST_F(Overlay, ReferencePointLiesUnderTheProfile) {
    m_pDisplay->Clear();
    m_pDisplay->AddPolygon(support::PlacedAt(support::MakeSquare(60.0F), 100.0F, 150.0F));
    g_PolyOptions[RENDER_REFERENCE] = true;
    EXPECT_TRUE(Has(CCanvasHost::Paint(*m_pDisplay), BLACK, 0.0F, 0.0F));
    EXPECT_TRUE(Has(PaintWith(RENDER_FRONT_LINES), RED, 0.5F, 0.0F));
    EXPECT_TRUE(Has(PaintWith(RENDER_FRONT_POINTS), RED, 0.0F, 0.0F));
}

TEST_F(Overlay, LeavesThinLinesThinForWhatFollows) {
    std::ranges::fill(g_PolyOptions, true);
    const CPicture picture = CCanvasHost::Paint(*m_pDisplay);
    EXPECT_EQ(picture.At(32, 450), WHITE);
    EXPECT_EQ(picture.At(33, 450), BLACK);
    EXPECT_EQ(picture.At(34, 450), WHITE);
}

}  // namespace

}  // namespace nestrix
