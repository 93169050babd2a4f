#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "display/CPlotter.h"
#include "tests/display/CCanvasHost.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix {

namespace {

using support::BLACK;
using support::CCanvasHost;
using support::CPicture;
using support::WHITE;

/// A plotter of 150 x 80 pixels that spans 130 generations: one pixel each.
class PlotterPicture : public testing::Test {
protected:
    void SetUp() override {
        m_pPlotter = new CPlotter(m_Host.Parent());
        m_pPlotter->Initialize();
        m_pPlotter->Reset();
        m_pPlotter->Reshape(130.0F);
    }

    [[nodiscard]] CPicture Paint() { return CCanvasHost::Paint(*m_pPlotter); }

    CCanvasHost m_Host;
    CPlotter* m_pPlotter = nullptr;
};

TEST_F(PlotterPicture, FramesThePlotAreaThroughTheWholeCanvas) {
    const CPicture picture = Paint();
    for (const float fX : {0.5F, 75.5F, 149.5F}) {
        EXPECT_TRUE(picture.Touches(BLACK, fX, 10.0F)) << fX;
        EXPECT_TRUE(picture.Touches(BLACK, fX, 78.0F)) << fX;
    }
    for (const float fY : {0.5F, 40.5F, 79.5F}) {
        EXPECT_TRUE(picture.Touches(BLACK, 10.0F, fY)) << fY;
        EXPECT_TRUE(picture.Touches(BLACK, 140.0F, fY)) << fY;
    }
    EXPECT_EQ(picture.At(75, 40), WHITE);
}

TEST_F(PlotterPicture, ShowsOnlyTheFrameBeforeAnyValue) {
    const CPicture picture = Paint();
    EXPECT_TRUE(picture.IsBlank(30, 11, 139, 77));
}

TEST_F(PlotterPicture, JoinsTheValuesInOrder) {
    m_pPlotter->AddValue(0.0F, 0.0F);
    m_pPlotter->AddValue(50.0F, 25.0F);
    m_pPlotter->AddValue(100.0F, 25.0F);
    const CPicture picture = Paint();
    // 68 pixels for 50 units: half of the way up is 10 + 34.
    EXPECT_TRUE(picture.Touches(BLACK, 85.0F, 44.0F));
    EXPECT_TRUE(picture.Touches(BLACK, 109.0F, 44.0F));
    EXPECT_FALSE(picture.Touches(BLACK, 112.0F, 44.0F));
    EXPECT_GT(picture.Count(BLACK, 34, 26, 37, 29), 0);
    EXPECT_FALSE(picture.Touches(BLACK, 85.0F, 40.0F));
}

TEST_F(PlotterPicture, MarksEveryValueWithADotOfTwoPixels) {
    m_pPlotter->AddValue(60.0F, 25.0F);
    m_pPlotter->AddValue(60.0F, 0.0F);
    m_pPlotter->Reset();
    m_pPlotter->Reshape(130.0F);
    m_pPlotter->AddValue(60.0F, 25.0F);
    m_pPlotter->m_fMinY = 0.0F;
    m_pPlotter->Reshape(130.0F);
    const CPicture picture = Paint();
    EXPECT_EQ(picture.Count(BLACK, 60, 34, 80, 54), 4);
    EXPECT_EQ(picture.Count(BLACK, 69, 43, 71, 45), 4);
}

TEST_F(PlotterPicture, RedrawsEarlierValuesWhenTheRangeGrows) {
    m_pPlotter->AddValue(0.0F, 0.0F);
    m_pPlotter->AddValue(40.0F, 25.0F);
    m_pPlotter->AddValue(80.0F, 25.0F);
    EXPECT_TRUE(Paint().Touches(BLACK, 75.0F, 44.0F));
    m_pPlotter->AddValue(120.0F, 100.0F);
    const CPicture picture = Paint();
    EXPECT_FALSE(picture.Touches(BLACK, 75.0F, 44.0F));
    EXPECT_TRUE(picture.Touches(BLACK, 75.5F, 10.0F + 25.0F * 68.0F / 120.0F));
}

TEST_F(PlotterPicture, DrawsARangeWithoutHeightOnTheLowerFrameLine) {
    m_pPlotter->AddValue(0.0F, 70.0F);
    m_pPlotter->AddValue(100.0F, 70.0F);
    const CPicture picture = Paint();
    // The dot at the end is what shows, two pixels around the line.
    EXPECT_EQ(picture.Count(BLACK, 105, 8, 115, 12), 12);
    EXPECT_TRUE(picture.IsBlank(30, 12, 139, 77));
}

TEST_F(PlotterPicture, DrawsARunOfNoGenerationsAtTheLeft) {
    m_pPlotter->Reshape(0.0F);
    m_pPlotter->AddValue(0.0F, 20.0F);
    const CPicture picture = Paint();
    EXPECT_TRUE(picture.Touches(BLACK, 9.0F, 10.0F));
    EXPECT_TRUE(picture.IsBlank(30, 12, 139, 77));
}

TEST_F(PlotterPicture, DrawsGenerationsBeyondTheEndToTheRightOfThePlotArea) {
    m_pPlotter->AddValue(0.0F, 0.0F);
    m_pPlotter->AddValue(100.0F, 25.0F);
    m_pPlotter->AddValue(136.0F, 25.0F);
    const CPicture picture = Paint();
    EXPECT_TRUE(picture.Touches(BLACK, 144.0F, 44.0F));
    EXPECT_FALSE(picture.Touches(BLACK, 148.0F, 44.0F));
}

TEST_F(PlotterPicture, LeavesAGapForAValueThatIsNotFinite) {
    m_pPlotter->AddValue(0.0F, 0.0F);
    m_pPlotter->AddValue(40.0F, 25.0F);
    m_pPlotter->AddValue(60.0F, std::numeric_limits<float>::quiet_NaN());
    // The first value after one that is no number becomes the bottom.
    m_pPlotter->AddValue(80.0F, 0.0F);
    m_pPlotter->AddValue(110.0F, 25.0F);
    const CPicture picture = Paint();
    EXPECT_TRUE(picture.Touches(BLACK, 105.0F, 27.0F));
    EXPECT_TRUE(picture.IsBlank(53, 14, 87, 70));
}

TEST_F(PlotterPicture, IsUnchangedByAResizeUntilTheNextReshape) {
    m_pPlotter->AddValue(0.0F, 0.0F);
    m_pPlotter->AddValue(100.0F, 25.0F);
    (void)Paint();
    m_pPlotter->SetSize(300, 160);
    EXPECT_TRUE(Paint().Touches(BLACK, 140.0F, 5.0F));
    m_pPlotter->Reshape(130.0F);
    const CPicture picture = Paint();
    EXPECT_FALSE(picture.Touches(BLACK, 140.0F, 5.0F));
    EXPECT_TRUE(picture.Touches(BLACK, 290.0F, 5.0F));
}

TEST_F(PlotterPicture, ShowsALongRunAsIfEveryPointWereDrawn) {
    support::CSeededRandom random(7);
    m_pPlotter->Reshape(20000.0F);
    float fValue = 25.0F;
    for (int i = 0; i <= 20000; ++i) {
        fValue = std::clamp(fValue + random.Between(-1.0F, 1.0F), 0.0F, 49.0F);
        m_pPlotter->AddValue(static_cast<float>(i), fValue);
    }
    const CPicture picture = Paint();
    // Every value's own pixel is black, though only a few points per column were drawn.
    int nMissing = 0;
    for (const mgVector3& point : m_pPlotter->m_Points) {
        const float fX = point.x * m_pPlotter->m_fScaleX + 10.0F;
        const float fY = (point.y - m_pPlotter->m_fMinY) * m_pPlotter->m_fScaleY + 10.0F;
        nMissing += picture.At(fX, fY) == BLACK ? 0 : 1;
    }
    EXPECT_EQ(nMissing, 0);
}

TEST(PlotterOffTheScreen, IsSetUpAtItsFirstPaint) {
    wxFrame frame(nullptr, wxID_ANY, "Not shown yet");
    auto* pPanel = new wxPanel(&frame);
    auto* pPlotter = new CPlotter(pPanel);
    pPlotter->Initialize();
    pPlotter->Reset();
    pPlotter->Reshape(130.0F);
    frame.SetClientSize(300, 200);
    frame.Show();
    const CPicture picture = CCanvasHost::AwaitPaint(*pPlotter);
    EXPECT_EQ(pPlotter->m_fMaxX, 130.0F);
    EXPECT_TRUE(picture.Touches(BLACK, 10.0F, 40.0F));
    EXPECT_TRUE(picture.Touches(BLACK, 140.0F, 40.0F));
    EXPECT_TRUE(picture.IsBlank(30, 12, 139, 77));
}

}  // namespace

}  // namespace nestrix
