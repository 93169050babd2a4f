#include <array>
#include <limits>

#include "display/CPolyDisplay.h"
#include "tests/app/FrameFixture.h"
#include "tests/display/CCanvasHost.h"
#include "tests/display/EventPump.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

using support::FrameFixture;

class GenerationReport : public FrameFixture {
protected:
    void SetUp() override {
        FrameFixture::SetUp();
        m_pFrame->m_nGenerations = 10;
        m_pFrame->m_pGauge->SetRange(100);
        SetStatistics(12.5F, 40.25F);
    }

    void SetStatistics(float fAverage, float fBest) {
        m_pFrame->m_Container.m_fAverageFitness = fAverage;
        m_pFrame->m_Container.m_fBestFitness = fBest;
    }

    void Post(int nGeneration) {
        wxCommandEvent event(wxEVT_MENU, ID_GENERATION_DONE);
        event.SetInt(nGeneration);
        static_cast<wxEvtHandler*>(m_pFrame)->AddPendingEvent(event);
    }

    [[nodiscard]] int Gauge() const { return m_pFrame->m_pGauge->GetValue(); }
};

TEST_F(GenerationReport, FillsTheGaugeInProportion) {
    Notify(0);
    EXPECT_EQ(Gauge(), 0);
    Notify(5);
    EXPECT_EQ(Gauge(), 50);
    Notify(10);
    EXPECT_EQ(Gauge(), 100);
}

TEST_F(GenerationReport, RoundsTheGaugeDown) {
    m_pFrame->m_nGenerations = 7;
    Notify(5);
    EXPECT_EQ(Gauge(), 71);
}

TEST_F(GenerationReport, FillsTheGaugeOfARunOfAHundredMillionGenerations) {
    m_pFrame->m_nGenerations = 100000000;
    Notify(50000000);
    EXPECT_EQ(Gauge(), 50);
}

TEST_F(GenerationReport, LeavesTheGaugeAloneInARunOfNoGenerations) {
    Notify(5);
    m_pFrame->m_nGenerations = 0;
    Notify(0);
    EXPECT_EQ(Gauge(), 50);
    EXPECT_EQ(m_pFrame->m_pAvgPlotter->m_Points.size(), 2U);
}

TEST_F(GenerationReport, TakesAStragglerOfALongerRun) {
    Notify(25);
    EXPECT_EQ(Gauge(), 100);
}

TEST_F(GenerationReport, ShowsTheStatistics) {
    m_pFrame->m_Container.PrepareEverything(12);
    Notify(1);
    EXPECT_EQ(Text("ID_TXT_AVG_FITNESS"), "12.500000");
    EXPECT_EQ(Text("ID_TXT_BEST_FITNESS"), "40.250000");
    EXPECT_EQ(Text("ID_TXT_TOTAL_POP"), "12");
}

TEST_F(GenerationReport, ShowsPointsUnderALocaleWithAComma) {
    const support::CCommaLocale comma;
    Notify(1);
    EXPECT_EQ(Text("ID_TXT_AVG_FITNESS"), "12.500000");
    EXPECT_EQ(Text("ID_TXT_BEST_FITNESS"), "40.250000");
}

TEST_F(GenerationReport, ShowsTheAverageOfAnEmptyPopulation) {
    SetStatistics(std::numeric_limits<float>::quiet_NaN(), 0.0F);
    Notify(1);
    EXPECT_NE(Text("ID_TXT_AVG_FITNESS").find("nan"), std::string::npos);
}

TEST_F(GenerationReport, AddsOnePointToEachPlot) {
    m_pFrame->m_Container.PrepareEverything(12);
    Notify(3);
    ASSERT_EQ(m_pFrame->m_pAvgPlotter->m_Points.size(), 1U);
    EXPECT_EQ(m_pFrame->m_pAvgPlotter->m_Points[0], (mgVector3{3.0F, 12.5F, 0.0F}));
    EXPECT_EQ(m_pFrame->m_pBestPlotter->m_Points[0], (mgVector3{3.0F, 40.25F, 0.0F}));
    EXPECT_EQ(m_pFrame->m_pTotalPopPlotter->m_Points[0], (mgVector3{3.0F, 12.0F, 0.0F}));
}

TEST_F(GenerationReport, LeavesTheCanvasAlone) {
    CPolyDisplay& display = *m_pFrame->m_pDisplay;
    display.AddPolygon(support::PlacedAt(support::MakeSquare(50.0F), 100.0F, 200.0F));
    const support::CPicture before = support::CCanvasHost::Paint(display);
    ASSERT_TRUE(support::PumpUntil([&] { return !support::CCanvasHost::IsRepainted(display); }));
    Notify(3);
    EXPECT_FALSE(support::CCanvasHost::IsRepainted(display));
    EXPECT_EQ(display.m_PolyItems.size(), 1U);
    EXPECT_EQ(display.m_fHeight, 250.0F);
    EXPECT_TRUE(support::CCanvasHost::Paint(display) == before);
}

TEST_F(GenerationReport, WritesTheFieldsOnlyForTheNewestOfManyNotices) {
    int nWritten = 0;
    m_pFrame->m_pTxtAvgFitness->Bind(wxEVT_TEXT, [&nWritten](wxCommandEvent&) { ++nWritten; });
    for (int i = 0; i <= 10; ++i) {
        Post(i);
    }
    wxTheApp->ProcessPendingEvents();
    EXPECT_EQ(nWritten, 1);
    EXPECT_EQ(Text("ID_TXT_AVG_FITNESS"), "12.500000");
    EXPECT_EQ(m_pFrame->m_pAvgPlotter->m_Points.size(), 11U);
    EXPECT_EQ(Gauge(), 100);
}

TEST_F(GenerationReport, WritesTheFieldsThoughOtherEventsAreQueued) {
    Post(1);
    static_cast<wxEvtHandler*>(m_pFrame)->AddPendingEvent(
        wxCommandEvent(wxEVT_MENU, XRCID("ID_MNU_COMMANDS_NEXT")));
    wxTheApp->ProcessPendingEvents();
    EXPECT_EQ(Text("ID_TXT_AVG_FITNESS"), "12.500000");
}

TEST_F(GenerationReport, RepaintsThePlots) {
    int nPaints = 0;
    const std::array plotters{m_pFrame->m_pAvgPlotter, m_pFrame->m_pBestPlotter,
                              m_pFrame->m_pTotalPopPlotter};
    for (CPlotter* pPlotter : plotters) {
        ASSERT_TRUE(support::PumpUntil([&] { return !support::CCanvasHost::IsRepainted(*pPlotter); }));
        pPlotter->Bind(wxEVT_PAINT, [&nPaints](wxPaintEvent& event) {
            ++nPaints;
            event.Skip();
        });
    }
    nPaints = 0;
    Notify(1);
    EXPECT_TRUE(support::PumpUntil([&nPaints] { return nPaints == 3; })) << nPaints;
}

}  // namespace

}  // namespace nestrix
