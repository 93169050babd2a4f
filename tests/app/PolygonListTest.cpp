#include "CDialogAnswers.h"
#include "FrameFixture.h"

namespace {

using support::CDialogAnswers;
using support::FrameFixture;

class PolygonList : public FrameFixture {
protected:
    void Fill() {
        for (const char* pPath : {"/one.pol", "/two.pol", "/three.pol"}) {
            List().Append(pPath);
        }
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
    ListSquares(2);
    Press("ID_BTN_CLEAR");
    EXPECT_TRUE(m_pFrame->m_Container.m_Polygons.empty());
    EXPECT_EQ(m_pFrame->m_pThread, nullptr);
}

TEST_F(PolygonList, DoesNotAffectARunThatIsInProgress) {
    StartLongRun();
    Press("ID_BTN_CLEAR");
    EXPECT_EQ(m_pFrame->m_Container.m_Polygons.size(), 5U);
    EXPECT_TRUE(m_pFrame->m_pThread->IsRunning());
}

}  // namespace
