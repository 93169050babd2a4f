#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "tests/display/CCanvasHost.h"
#include "tests/display/ReferenceDrawing.h"
#include "tests/support/Pieces.h"

namespace nestrix {

// Every pixel of the canvases against a second, literal drawing, texts included. Runs on an ordinary screen
// and on one with two physical pixels per logical one.

namespace {

using support::CCanvasHost;
using support::EPiece;
using support::PlacedAt;

class DefinedPacking : public testing::Test {
protected:
    void SetUp() override {
        std::ranges::fill(g_PolyOptions, false);
        m_pDisplay = new CPolyDisplay(m_Host.Parent());
        m_pDisplay->Initialize(400.0F, 600.0F);
    }

    void TearDown() override { std::ranges::fill(g_PolyOptions, false); }

    void ExpectAsDefined(const std::string& what) {
        const support::CPicture expected = support::PackingAsDefined(m_Reference, *m_pDisplay);
        EXPECT_EQ(CCanvasHost::Paint(*m_pDisplay).DifferenceFrom(expected), "") << what;
    }

    void AddPieces(support::CSeededRandom& random, int nCount) {
        for (int i = 0; i < nCount; ++i) {
            const EPiece kind = random.Pick({EPiece::Convex, EPiece::Star, EPiece::Comb, EPiece::LooseBox});
            m_pDisplay->AddPolygon(PlacedAt(support::MakePiece(random, kind), random.Between(0.0F, 350.0F),
                                            random.Between(0.0F, 650.0F)));
        }
    }

    CCanvasHost m_Host;
    CPolyDisplay* m_pDisplay = nullptr;
    support::CReferenceCanvas m_Reference{m_Host.Parent(), wxSize(400, 600), 12};
};

TEST_F(DefinedPacking, IsDrawnWhenThereIsNone) {
    ExpectAsDefined("empty");
}

TEST_F(DefinedPacking, IsDrawnWithEachOverlayAlone) {
    support::CSeededRandom random(1);
    AddPieces(random, 3);
    for (int nOption = 0; nOption < RENDER_OPTION_COUNT; ++nOption) {
        std::ranges::fill(g_PolyOptions, false);
        g_PolyOptions[nOption] = true;
        ExpectAsDefined("overlay " + std::to_string(nOption));
    }
}

TEST_F(DefinedPacking, IsDrawnWithAnyPiecesOverlaysAndMarkers) {
    support::CSeededRandom random(2);
    for (int i = 0; i < 40; ++i) {
        m_pDisplay->Clear();
        m_pDisplay->m_Markers.clear();
        std::ranges::generate(g_PolyOptions, [&random] { return random.Percent(50); });
        AddPieces(random, random.Range(1, 15));
        for (int nMarkers = random.Range(0, 2); nMarkers > 0; --nMarkers) {
            m_pDisplay->m_Markers.push_back(
                {random.Between(0.0F, 480.0F), random.Between(0.0F, 720.0F), 0.0F});
        }
        ExpectAsDefined("packing " + std::to_string(i));
    }
}

class DefinedPlot : public testing::Test {
protected:
    void SetUp() override {
        m_pPlotter = new CPlotter(m_Host.Parent());
        m_pPlotter->Initialize();
    }

    void ExpectAsDefined(const std::string& what) {
        const support::CPicture expected = support::PlotAsDefined(m_Reference, *m_pPlotter);
        EXPECT_EQ(CCanvasHost::Paint(*m_pPlotter).DifferenceFrom(expected), "") << what;
    }

    CCanvasHost m_Host;
    CPlotter* m_pPlotter = nullptr;
    support::CReferenceCanvas m_Reference{m_Host.Parent(), wxSize(150, 80), 8};
};

TEST_F(DefinedPlot, IsDrawnBeforeAnyRun) {
    EXPECT_EQ(m_pPlotter->m_fMaxX, 150.0F);
    ExpectAsDefined("no run");
}

TEST_F(DefinedPlot, IsDrawnOfAnyRun) {
    support::CSeededRandom random(3);
    for (int i = 0; i < 40; ++i) {
        m_pPlotter->Reset();
        // At most as many generations as pixels across, so that none is thinned out.
        const int nGenerations = random.Range(1, 130);
        m_pPlotter->Reshape(static_cast<float>(nGenerations));
        const float fFirst = random.Between(-100.0F, 100.0F);
        const float fSpread = random.Pick({0.0F, 3.0F, 40.0F, 5000.0F});
        for (int nGeneration = 0; nGeneration <= nGenerations; ++nGeneration) {
            m_pPlotter->AddValue(static_cast<float>(nGeneration),
                                 fFirst + random.Between(-0.5F, 1.0F) * fSpread);
        }
        ExpectAsDefined("run " + std::to_string(i));
    }
}

TEST_F(DefinedPlot, IsDrawnOfARunWithValuesThatAreNotFinite) {
    for (const float fWild : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                              -std::numeric_limits<float>::infinity()}) {
        m_pPlotter->Reset();
        m_pPlotter->Reshape(20.0F);
        m_pPlotter->AddValue(0.0F, 20.0F);
        m_pPlotter->AddValue(5.0F, 40.0F);
        m_pPlotter->AddValue(10.0F, fWild);
        m_pPlotter->AddValue(15.0F, 30.0F);
        ExpectAsDefined(std::to_string(fWild));
    }
}

}  // namespace

}  // namespace nestrix
