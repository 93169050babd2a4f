#include <gmock/gmock.h>

#include "display/CPolyDisplay.h"
#include "tests/app/CBlockLimit.h"
#include "tests/app/FrameFixture.h"
#include "tests/display/CCanvasHost.h"
#include "tests/display/EventPump.h"
#include "tests/support/CStdoutCapture.h"

namespace nestrix {

namespace {

using support::CCanvasHost;
using support::CPicture;
using support::FrameFixture;
using testing::HasSubstr;

class ResultView : public FrameFixture {
protected:
    [[nodiscard]] CPolyDisplay& Display() { return *m_pFrame->m_pDisplay; }

    /// Three squares side by side, as a search would leave them.
    void MakeResult() {
        ListSquares(3);
        SetRun(20, 3);
        Press("ID_BTN_RUN_GA");
        AwaitEndOfRun();
    }
};

TEST_F(ResultView, IsEmptyBeforeAnyRun) {
    EXPECT_EQ(Press("ID_BTN_SHOW_RESULT"), "Best Chromosome so far is 0.000000\n");
    EXPECT_TRUE(Display().m_PolyItems.empty());
    EXPECT_EQ(Display().m_fHeight, 0.0F);
}

TEST_F(ResultView, ShowsEveryPolygonOfTheBestPacking) {
    MakeResult();
    const CChromosome best = m_pFrame->m_Container.CopyBestChromosome();
    const std::string printed = Press("ID_BTN_SHOW_RESULT");
    EXPECT_EQ(printed, "Best Chromosome so far is " + std::to_string(best.m_fFitness) + "\n");
    EXPECT_EQ(Display().m_PolyItems.size(), 3U);
    // The height line stands where the fitness says that the packing ends.
    EXPECT_EQ(Display().m_fHeight, 30.0F - best.m_fFitness);
    EXPECT_TRUE(Display().m_Markers.empty());
}

TEST_F(ResultView, IsTheSameWhenShownTwice) {
    MakeResult();
    Press("ID_BTN_SHOW_RESULT");
    const CPicture first = CCanvasHost::AwaitPaint(Display());
    Press("ID_BTN_SHOW_RESULT");
    const CPicture second = CCanvasHost::AwaitPaint(Display());
    EXPECT_TRUE(first == second);
    EXPECT_EQ(Display().m_PolyItems.size(), 3U);
    EXPECT_GT(first.Count(support::GREY, 0, 0, 400, 600), 20);
}

TEST_F(ResultView, MayBeShownDuringARun) {
    StartLongRun();
    ASSERT_TRUE(support::PumpUntil([this] { return m_pFrame->m_pBestPlotter->m_Points.size() > 3; }));
    for (int i = 0; i < 200; ++i) {
        EXPECT_THAT(Press("ID_BTN_SHOW_RESULT"), HasSubstr("Best Chromosome so far is "));
        EXPECT_EQ(Display().m_PolyItems.size(), 5U);
    }
}

TEST_F(ResultView, IsEmptyWhenThePolygonsHaveGone) {
    MakeResult();
    Press("ID_BTN_CLEAR");
    Press("ID_BTN_RUN_GA");
    EXPECT_THAT(Press("ID_BTN_SHOW_RESULT"), HasSubstr("Best Chromosome so far is "));
    EXPECT_TRUE(Display().m_PolyItems.empty());
}

TEST_F(ResultView, IsLeftEmptyWhenTheMemoryHasNoRoomForIt) {
    constexpr size_t VERTICES = 10'000;
    MakeResult();
    Press("ID_BTN_SHOW_RESULT");
    // A packing of this is drawn from copies.
    const CPoint point = m_pFrame->m_Container.m_Polygons[0].m_Points[0];
    m_pFrame->m_Container.m_Polygons[0].m_Points.resize(VERTICES, point);
    {
        const support::CBlockLimit limit(VERTICES * sizeof(CPoint) - 1);
        EXPECT_EQ(Press("ID_BTN_SHOW_RESULT"), "Not enough memory to show the result\n");
    }
    EXPECT_TRUE(Display().m_PolyItems.empty());
    EXPECT_EQ(Display().m_fHeight, 0.0F);
    EXPECT_THAT(Press("ID_BTN_SHOW_RESULT"), HasSubstr("Best Chromosome so far is "));
    EXPECT_EQ(Display().m_PolyItems.size(), 3U);
}

TEST_F(ResultView, NumbersThePolygonsInDropOrder) {
    MakeResult();
    Press("ID_BTN_SHOW_RESULT");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Display().m_PolyItems[static_cast<size_t>(i)].m_nSeqNumber, i);
    }
}

}  // namespace

}  // namespace nestrix
