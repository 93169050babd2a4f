#include "display/CPolyDisplay.h"
#include "tests/app/CDialogAnswers.h"
#include "tests/app/Desktop.h"
#include "tests/app/FrameFixture.h"
#include "tests/display/CCanvasHost.h"
#include "tests/display/EventPump.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

using support::CCanvasHost;
using support::CDialogAnswers;
using support::CPicture;
using support::CScreenshot;
using support::FrameFixture;

class PolygonList : public FrameFixture {
protected:
    void Fill() {
        for (const char* pPath : {"/one.pol", "/two.pol", "/three.pol"}) {
            List().Append(pPath);
        }
    }

    /// The list's first line, without the scroll bar that may come and go below.
    [[nodiscard]] wxRect FirstLine() { return {List().GetScreenPosition(), wxSize(List().GetSize().x, 24)}; }

    /// The screen once that line does not change any longer.
    [[nodiscard]] std::unique_ptr<CScreenshot> PictureAtRest() {
        std::unique_ptr<CScreenshot> pNow;
        EXPECT_TRUE(support::PumpUntil([&] {
            const CScreenshot before;
            (void)support::PumpUntil([] { return false; }, std::chrono::milliseconds(200));
            pNow = std::make_unique<CScreenshot>();
            return !pNow->Differs(before, FirstLine());
        }));
        return pNow;
    }

    /// What the list says of itself with the pointer at a height of its own.
    [[nodiscard]] std::string TipAt(int nY) {
        wxMouseEvent motion(wxEVT_MOTION);
        motion.SetPosition(wxPoint(20, nY));
        List().ProcessWindowEvent(motion);
        return List().GetToolTipText().utf8_string();
    }

    [[nodiscard]] std::string Items() {
        wxString items;
        for (const wxString& item : List().GetStrings()) {
            items += item + " ";
        }
        return items.utf8_string();
    }
};

TEST_F(PolygonList, IsUnchangedWhenTheFileDialogIsCancelled) {
    Fill();
    CDialogAnswers answers(wxID_CANCEL);
    EXPECT_EQ(Press("ID_BTN_ADD"), "");
    EXPECT_EQ(answers.Messages(), std::vector<std::string>{"Choose a polygon file"});
    EXPECT_EQ(Items(), "/one.pol /two.pol /three.pol ");
}

TEST_F(PolygonList, GrowsByAnyNumberOfPolygonFilesOfAFolderThatIsTheCurrentOneAtFirst) {
    CDialogAnswers answers(wxID_CANCEL);
    Press("ID_BTN_ADD");
    EXPECT_EQ(answers.FileDialog().m_Folder, "./");
    EXPECT_EQ(answers.FileDialog().m_Wildcard, "Polygon File (*.pol)|*.pol");
    EXPECT_TRUE(answers.FileDialog().m_bMultiple);
}

TEST_F(PolygonList, LosesOnlyTheSelectedFile) {
    Fill();
    List().SetSelection(1);
    EXPECT_EQ(Press("ID_BTN_REMOVE"), "");
    EXPECT_EQ(Items(), "/one.pol /three.pol ");
}

TEST_F(PolygonList, LosesNothingWithoutASelection) {
    Fill();
    List().SetSelection(wxNOT_FOUND);
    EXPECT_EQ(Press("ID_BTN_REMOVE"), "");
    EXPECT_EQ(Items(), "/one.pol /two.pol /three.pol ");
}

TEST_F(PolygonList, LosesEverythingToClear) {
    Fill();
    EXPECT_EQ(Press("ID_BTN_CLEAR"), "");
    EXPECT_EQ(Items(), "");
}

TEST_F(PolygonList, StaysEmptyWhenClearedOrRemovedFromAgain) {
    EXPECT_EQ(Press("ID_BTN_CLEAR"), "");
    EXPECT_EQ(Press("ID_BTN_REMOVE"), "");
    EXPECT_EQ(Items(), "");
}

TEST_F(PolygonList, TouchesNeitherSearchNorCanvas) {
    CPolyDisplay& display = *m_pFrame->m_pDisplay;
    m_pFrame->m_Container.m_Polygons = {support::MakeSquare(50.0F)};
    display.AddPolygon(support::PlacedAt(support::MakeSquare(50.0F), 100.0F, 200.0F));
    const CPicture before = CCanvasHost::Paint(display);
    ASSERT_TRUE(support::PumpUntil([&] { return !CCanvasHost::IsRepainted(display); }));
    ListSquares(2);
    List().SetSelection(0);
    for (const int nAnswer : {wxID_CANCEL, wxID_OK}) {
        CDialogAnswers answers(nAnswer);
        Press("ID_BTN_ADD");
    }
    Press("ID_BTN_REMOVE");
    Press("ID_BTN_CLEAR");
    EXPECT_FALSE(CCanvasHost::IsRepainted(display));
    EXPECT_EQ(display.m_PolyItems.size(), 1U);
    EXPECT_EQ(display.m_fHeight, 250.0F);
    EXPECT_TRUE(CCanvasHost::Paint(display) == before);
    EXPECT_EQ(m_pFrame->m_Container.m_Polygons.size(), 1U);
    EXPECT_EQ(m_pFrame->m_pThread, nullptr);
}

TEST_F(PolygonList, DoesNotAffectARunThatIsInProgress) {
    StartLongRun();
    Press("ID_BTN_CLEAR");
    EXPECT_EQ(m_pFrame->m_Container.m_Polygons.size(), 5U);
    EXPECT_TRUE(m_pFrame->m_pThread->IsRunning());
}

TEST_F(PolygonList, NamesTheWholePathOfTheLineUnderThePointer) {
    const std::string ownTip = List().GetToolTipText().utf8_string();
    EXPECT_EQ(TipAt(5), ownTip) << "nothing is listed";
    Fill();
    support::PumpPending();
    std::vector<std::string> tips;
    for (int nY = 0; nY < List().GetClientSize().y; ++nY) {
        const std::string tip = TipAt(nY);
        if (tips.empty() || tips.back() != tip) {
            tips.push_back(tip);
        }
    }
    EXPECT_EQ(tips, (std::vector<std::string>{"/one.pol", "/two.pol", "/three.pol", ownTip}));
    EXPECT_EQ(TipAt(5), "/one.pol");
    Press("ID_BTN_CLEAR");
    EXPECT_EQ(TipAt(5), ownTip);
}

TEST_F(PolygonList, TellsFilesOfOneFolderFarAwayApart) {
    const std::string folder = "/a-folder-whose-name-is-as-long-as-a-line-of-the-list/and-another-one-in-it/";
    List().Append(folder + "1.pol");
    const auto pFirst = PictureAtRest();
    List().SetString(0, folder + "2.pol");
    EXPECT_TRUE(PictureAtRest()->Differs(*pFirst, FirstLine()));
}

TEST_F(PolygonList, HoldsWholePathsHoweverLong) {
    const std::string longPath = "/" + std::string(500, 'x') + "/one.pol";
    List().Append(longPath);
    EXPECT_EQ(Items(), longPath + " ");
}

}  // namespace

}  // namespace nestrix
