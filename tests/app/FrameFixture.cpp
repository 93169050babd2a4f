#include "tests/app/FrameFixture.h"

#include <gmock/gmock.h>
#include <wx/app.h>

#include <algorithm>

#include "display/CPolyDisplay.h"
#include "tests/display/EventPump.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix::support {

void FrameFixture::SetUp() {
    std::ranges::fill(g_PolyOptions, false);
    OpenFrame();
}

void FrameFixture::TearDown() {
    CloseFrame();
}

void FrameFixture::OpenFrame() {
    // Without what other tests of the process have loaded.
    delete wxXmlResource::Set(new wxXmlResource);
    m_pFrame = new CNestrixFrame("Nestrix using GA");
    m_pFrame->Show(true);
    m_pFrame->Initialize();
    PumpPending();
}

void FrameFixture::CloseFrame() {
    if (m_pFrame != nullptr) {
        m_pFrame->Destroy();
        m_pFrame = nullptr;
        wxTheApp->ProcessIdle();
    }
}

std::string FrameFixture::Text(const char* pField) {
    return Control<wxTextCtrl>(pField).GetValue().utf8_string();
}

std::string FrameFixture::Press(const char* pButton) {
    return PrintedBy([this, pButton] {
        wxCommandEvent event(wxEVT_BUTTON, wxXmlResource::GetXRCID(pButton));
        EXPECT_TRUE(m_pFrame->ProcessWindowEvent(event)) << pButton;
    });
}

void FrameFixture::Notify(int nGeneration) {
    wxCommandEvent event(wxEVT_MENU, ID_GENERATION_DONE);
    event.SetInt(nGeneration);
    EXPECT_TRUE(m_pFrame->ProcessWindowEvent(event));
}

void FrameFixture::SetRun(int nPopulation, int nGenerations) {
    Control<wxSpinCtrl>("ID_SPIN_INITIAL_POPULATION").SetValue(nPopulation);
    Control<wxSpinCtrl>("ID_SPIN_GENERATIONS").SetValue(nGenerations);
}

void FrameFixture::ListSquares(int nCount, int nSide) {
    const std::string square = PolygonFileText(MakeSquare(static_cast<float>(nSide)));
    for (int i = 0; i < nCount; ++i) {
        List().Append(m_Folder.Write("square" + std::to_string(i) + ".pol", square));
    }
}

void FrameFixture::StartLongRun() {
    ListSquares(5);
    SetRun(100, 1000000);
    EXPECT_THAT(Press("ID_BTN_RUN_GA"), testing::HasSubstr("Thread Run returned: 0\n"));
}

void FrameFixture::AwaitEndOfRun() {
    ASSERT_NE(m_pFrame->m_pThread, nullptr);
    ASSERT_TRUE(PumpUntil([this] { return !m_pFrame->m_pThread->IsAlive(); }, std::chrono::minutes(4)));
    PumpPending();
}

}  // namespace nestrix::support
