#include <wx/button.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <memory>
#include <set>

#include "display/CPolyDisplay.h"
#include "tests/app/FrameFixture.h"
#include "tests/display/EventPump.h"

namespace nestrix {

namespace {

using support::FrameFixture;

class Form : public FrameFixture {
protected:
    [[nodiscard]] wxWindow& Panel() { return Control<wxPanel>("NestrixMainDlg"); }

    /// Labels and controls in the order in which Tab walks through them; the frames around groups left out.
    [[nodiscard]] std::vector<wxWindow*> Controls() { return Within(Panel()); }

    static std::vector<wxWindow*> Within(const wxWindow& parent) {
        std::vector<wxWindow*> controls;
        for (wxWindow* pChild : parent.GetChildren()) {
            if (dynamic_cast<wxStaticBox*>(pChild) == nullptr) {
                controls.push_back(pChild);
                continue;
            }
            const std::vector<wxWindow*> inner = Within(*pChild);
            controls.insert(controls.end(), inner.begin(), inner.end());
        }
        return controls;
    }

    [[nodiscard]] static std::unique_ptr<wxMenuBar> CommandsMenu() {
        return std::unique_ptr<wxMenuBar>(wxXmlResource::Get()->LoadMenuBar(nullptr, "CommandsMenu"));
    }

    /// Gives the window another size than its own minimum allows.
    void Resize(const wxSize& size) {
        m_pFrame->SetMinSize(wxSize(100, 100));
        m_pFrame->SetClientSize(size);
        ASSERT_TRUE(support::PumpUntil([&] { return m_pFrame->GetClientSize() == size; }));
        support::PumpPending();
    }

    static bool IsTabStop(const wxWindow& window) {
        return dynamic_cast<const wxControl*>(&window) != nullptr && window.AcceptsFocusFromKeyboard();
    }

    /// The letter that Alt and this label lead to; 0 if none.
    static char Mnemonic(const wxString& label) {
        const size_t nPosition = label.find('&');
        return nPosition == wxString::npos ? '\0' : static_cast<char>(wxToupper(label[nPosition + 1]));
    }
};

TEST_F(Form, HasEveryControlInItsKind) {
    for (const char* pButton : {"ID_BTN_ADD", "ID_BTN_CLEAR", "ID_BTN_REMOVE", "ID_BTN_RUN_GA", "ID_BTN_STOP",
                                "ID_BTN_SHOW_RESULT"}) {
        EXPECT_NO_THROW((void)Control<wxButton>(pButton));
    }
    for (const char* pSlider : {"ID_SLIDER_MUTATION", "ID_SLIDER_CULL_THRESHOLD"}) {
        EXPECT_NO_THROW((void)Control<wxSlider>(pSlider));
    }
    for (const char* pText : {"ID_TXT_MUTATION_PROBABILITY", "ID_TXT_THRESHOLD", "ID_TXT_AVG_FITNESS",
                              "ID_TXT_BEST_FITNESS", "ID_TXT_TOTAL_POP"}) {
        EXPECT_FALSE(Control<wxTextCtrl>(pText).IsEditable()) << pText;
    }
    for (const char* pSpin : {"ID_SPIN_INITIAL_POPULATION", "ID_SPIN_GENERATIONS"}) {
        EXPECT_NO_THROW((void)Control<wxSpinCtrl>(pSpin));
    }
    EXPECT_EQ(Control<wxGauge>("ID_GAUGE").GetRange(), 100);
    EXPECT_NO_THROW((void)Control<wxListBox>("ID_LST_POLYGON"));
}

TEST_F(Form, GivesNoControlTheIdOfTheProgressNotice) {
    EXPECT_EQ(m_pFrame->FindWindow(ID_GENERATION_DONE), nullptr);
    EXPECT_EQ(m_pFrame->m_pDisplay->m_pMenu->FindItem(ID_GENERATION_DONE), nullptr);
    EXPECT_EQ(CommandsMenu()->FindItem(ID_GENERATION_DONE), nullptr);
}

TEST_F(Form, OffersTheCommandThatDoesNothingInAMenuThatNoWindowShows) {
    const std::unique_ptr<wxMenuBar> pMenu = CommandsMenu();
    const wxMenuItem* pItem = pMenu->FindItem(wxXmlResource::GetXRCID("ID_MNU_COMMANDS_NEXT"));
    ASSERT_NE(pItem, nullptr);
    EXPECT_EQ(pItem->GetKind(), wxITEM_NORMAL);
    EXPECT_EQ(m_pFrame->GetMenuBar(), nullptr);
}

TEST_F(Form, ShowsRatiosThatEqualTheSliders) {
    EXPECT_EQ(Text("ID_TXT_MUTATION_PROBABILITY"), "0.01");
    EXPECT_EQ(Text("ID_TXT_THRESHOLD"), "0.70");
    for (const char* pSlider : {"ID_SLIDER_MUTATION", "ID_SLIDER_CULL_THRESHOLD"}) {
        EXPECT_EQ(Control<wxSlider>(pSlider).GetMin(), 0) << pSlider;
        EXPECT_EQ(Control<wxSlider>(pSlider).GetMax(), 100) << pSlider;
    }
    EXPECT_EQ(Control<wxSlider>("ID_SLIDER_MUTATION").GetValue(), 1);
    EXPECT_EQ(Control<wxSlider>("ID_SLIDER_CULL_THRESHOLD").GetValue(), 70);
}

TEST_F(Form, ExplainsEveryControlInATooltip) {
    for (const wxWindow* pChild : Controls()) {
        const bool bLabel = dynamic_cast<const wxStaticText*>(pChild) != nullptr;
        EXPECT_TRUE(bLabel || pChild->GetToolTip() != nullptr) << pChild->GetName();
    }
}

TEST_F(Form, LeadsToEveryControlByAKeyOfItsOwn) {
    std::set<char> keys;
    char nKeyOfLabel = 0;
    for (const wxWindow* pChild : Controls()) {
        const bool bLabel = dynamic_cast<const wxStaticText*>(pChild) != nullptr;
        const bool bButton = dynamic_cast<const wxButton*>(pChild) != nullptr;
        if (bLabel || bButton) {
            nKeyOfLabel = Mnemonic(pChild->GetLabel());
        }
        if (!bLabel && IsTabStop(*pChild)) {
            EXPECT_NE(nKeyOfLabel, '\0') << pChild->GetName();
            EXPECT_TRUE(keys.insert(nKeyOfLabel).second) << pChild->GetName() << " shares " << nKeyOfLabel;
        }
    }
    EXPECT_GE(keys.size(), 16U);
}

TEST_F(Form, IsWalkedThroughAsTheEyeDoes) {
    // Down each of the three columns, the left one first; side by side from left to right.
    wxPoint last(-1, -1);
    wxString lastName = "nothing";
    int nColumn = 0;
    for (const wxWindow* pChild : Controls()) {
        if (!IsTabStop(*pChild)) {
            continue;
        }
        const wxPoint position = pChild->GetScreenPosition();
        const bool bNextColumn = position.x > last.x + 20 && position.y < last.y - 20;
        nColumn += bNextColumn ? 1 : 0;
        const bool bBelow = position.y > last.y + 10;
        const bool bBeside = position.x > last.x;
        EXPECT_TRUE(bNextColumn || bBelow || bBeside) << pChild->GetName() << " after " << lastName;
        last = position;
        lastName = pChild->GetName();
    }
    EXPECT_EQ(nColumn, 2);
}

TEST_F(Form, FitsALaptopsScreenWithoutScrolling) {
    const wxSize form = Panel().GetBestSize();
    EXPECT_LE(form.x, 1276);
    // The title bar of a desktop, and a panel of its own.
    EXPECT_LE(form.y, 800 - 24 - 26);
}

TEST_F(Form, LeavesAPixelAroundItselfAndAroundWhatScrollsIt) {
    EXPECT_EQ(m_pFrame->m_pScrolledWindow->GetPosition(), wxPoint(1, 1));
    EXPECT_EQ(Panel().GetPosition(), wxPoint(1, 1));
}

TEST_F(Form, ScrollsBothWaysWhereItDoesNotFit) {
    Resize(wxSize(600, 400));
    CNestrixScrolledWindow& window = *m_pFrame->m_pScrolledWindow;
    EXPECT_TRUE(window.HasScrollbar(wxHORIZONTAL));
    EXPECT_TRUE(window.HasScrollbar(wxVERTICAL));
    const wxPoint atFirst = Panel().GetPosition();
    // By ten pixels a line, as the scroll bars do it.
    for (const int nDirection : {wxHORIZONTAL, wxVERTICAL, wxVERTICAL}) {
        wxScrollWinEvent event(wxEVT_SCROLLWIN_LINEDOWN, 0, nDirection);
        window.ProcessWindowEvent(event);
    }
    EXPECT_EQ(Panel().GetPosition(), atFirst - wxPoint(10, 20));
    window.Scroll(1000, 1000);
    const wxPoint corner = Panel().GetPosition() + Panel().GetSize();
    EXPECT_LE(corner.x, window.GetClientSize().x) << "the right edge stays out of sight";
    EXPECT_LE(corner.y, window.GetClientSize().y) << "the lower edge stays out of sight";
}

TEST_F(Form, BecomesAsSmallAsItWasWhenFilesHaveBeenListedMeanwhile) {
    const auto fillsTheWindow = [this] {
        return support::PumpUntil(
            [this] { return Panel().GetSize() == m_pFrame->GetClientSize() - wxSize(4, 4); });
    };
    EXPECT_TRUE(fillsTheWindow());
    const wxSize atFirst = Panel().GetSize();
    Resize(m_pFrame->GetClientSize() + wxSize(200, 100));
    EXPECT_TRUE(fillsTheWindow());
    for (int i = 0; i < 40; ++i) {
        List().Append("/" + std::string(500, 'x') + "/square.pol");
    }
    Resize(m_pFrame->GetClientSize() - wxSize(200, 100));
    EXPECT_TRUE(fillsTheWindow());
    EXPECT_EQ(Panel().GetSize(), atFirst);
    const wxWindow& plotter = *m_pFrame->m_pAvgPlotter;
    EXPECT_LT(plotter.GetScreenRect().GetRight(), Panel().GetScreenRect().GetRight());
}

TEST_F(Form, HoldsTheCanvasesInPlaceholdersOfFixedSize) {
    EXPECT_EQ(m_pFrame->m_pDisplay->GetClientSize(), wxSize(400, 600));
    for (CPlotter* pPlotter :
         {m_pFrame->m_pAvgPlotter, m_pFrame->m_pBestPlotter, m_pFrame->m_pTotalPopPlotter}) {
        EXPECT_EQ(pPlotter->GetClientSize(), wxSize(400, 180));
        EXPECT_EQ(pPlotter->m_fWidth, 400.0F);
    }
    EXPECT_TRUE(m_pFrame->m_pDisplay->GetName() == "ID_DISPLAY");
    EXPECT_TRUE(m_pFrame->m_pAvgPlotter->GetName() == "ID_AVG_PLOTTER");
    EXPECT_TRUE(m_pFrame->m_pBestPlotter->GetName() == "ID_BEST_PLOTTER");
    EXPECT_TRUE(m_pFrame->m_pTotalPopPlotter->GetName() == "ID_TOTAL_POP_PLOTTER");
}

TEST_F(Form, OffersAllOverlaysUnchecked) {
    wxMenu* pMenu = m_pFrame->m_pDisplay->m_pMenu;
    ASSERT_NE(pMenu, nullptr);
    for (const char* pName :
         {"ID_RENDER_DRAW_REFERENCE", "ID_RENDER_DRAW_BOUNDING_BOX", "ID_RENDER_DRAW_FRONT_LINES",
          "ID_RENDER_DRAW_BACK_LINES", "ID_RENDER_DRAW_FRONT_POINTS", "ID_RENDER_DRAW_BACK_POINTS",
          "ID_RENDER_DRAW_SEQ_NUMBER"}) {
        const wxMenuItem* pItem = pMenu->FindItem(wxXmlResource::GetXRCID(pName));
        ASSERT_NE(pItem, nullptr) << pName;
        EXPECT_TRUE(pItem->IsCheckable()) << pName;
        EXPECT_FALSE(pItem->IsChecked()) << pName;
    }
}

}  // namespace

}  // namespace nestrix
