#include <gtest/gtest.h>

#include <algorithm>

#include "display/CPlotter.h"
#include "display/CPolyDisplay.h"
#include "tests/display/CCanvasHost.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

// Runs with two physical pixels per logical one.

namespace {

using support::BLACK;
using support::CCanvasHost;
using support::CPicture;
using support::GREY;
using support::WHITE;

TEST(DenseScreen, HasTwicePixels) {
    const CCanvasHost host;
    auto* pDisplay = new CPolyDisplay(host.Parent());
    ASSERT_EQ(pDisplay->GetContentScaleFactor(), 2.0);
}

TEST(DenseScreen, ShowsTheWholeStripOnTheWholeCanvas) {
    const CCanvasHost host;
    auto* pDisplay = new CPolyDisplay(host.Parent());
    pDisplay->Initialize(400.0F, 600.0F);
    CPolygon square = support::PlacedAt(support::MakeSquare(60.0F), 50.0F, 90.0F);
    pDisplay->AddPolygon(square);
    const CPicture picture = CCanvasHost::Paint(*pDisplay);
    ASSERT_EQ(picture.Width(), 800);
    EXPECT_EQ(pDisplay->m_fViewWidth, 480.0F);
    EXPECT_EQ(pDisplay->m_fViewHeight, 720.0F);
    constexpr float SCALE = 800.0F / 480.0F;
    EXPECT_EQ(picture.At(40.0F * SCALE, 1000.0F), BLACK);
    EXPECT_EQ(picture.At(440.0F * SCALE, 1000.0F), BLACK);
    EXPECT_EQ(picture.At(120.0F * SCALE, 110.0F * SCALE), GREY);
}

TEST(DenseScreen, DrawsLinesTwoPixelsWide) {
    const CCanvasHost host;
    auto* pDisplay = new CPolyDisplay(host.Parent());
    pDisplay->Initialize(400.0F, 600.0F);
    const CPicture picture = CCanvasHost::Paint(*pDisplay);
    EXPECT_EQ(picture.Count(BLACK, 50, 1150, 90, 1151), 2);
}

TEST(DenseScreen, DrawsTextTwiceAsHigh) {
    const CCanvasHost host;
    auto* pDisplay = new CPolyDisplay(host.Parent());
    pDisplay->Initialize(400.0F, 600.0F);
    const CPicture picture = CCanvasHost::Paint(*pDisplay);
    // The caption on the floor: capitals of about 9 logical pixels above its baseline at world y 30.
    EXPECT_FALSE(picture.IsBlank(400, 50, 660, 56));
    EXPECT_FALSE(picture.IsBlank(400, 62, 660, 68));
    EXPECT_TRUE(picture.IsBlank(400, 72, 660, 90));
}

TEST(DenseScreen, PlotsOverTheWholePlotter) {
    const CCanvasHost host;
    auto* pPlotter = new CPlotter(host.Parent());
    pPlotter->Initialize();
    pPlotter->Reset();
    pPlotter->Reshape(130.0F);
    pPlotter->AddValue(0.0F, 0.0F);
    pPlotter->AddValue(50.0F, 25.0F);
    pPlotter->AddValue(100.0F, 25.0F);
    const CPicture picture = CCanvasHost::Paint(*pPlotter);
    ASSERT_EQ(picture.Width(), 300);
    EXPECT_EQ(pPlotter->m_fWidth, 150.0F);
    EXPECT_EQ(picture.At(280, 80), BLACK);
    EXPECT_EQ(picture.At(200, 88), BLACK);
    EXPECT_EQ(picture.At(200, 80), WHITE);
}

}  // namespace

}  // namespace nestrix
