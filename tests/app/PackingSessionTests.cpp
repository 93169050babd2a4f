#include "tests/app/SessionFixture.h"

namespace nestrix {

namespace {

using support::Await;
using support::BLACK;
using support::BLUE;
using support::Click;
using support::CountWindows;
using support::CScreenshot;
using support::Drag;
using support::GREY;
using support::ParkPointer;
using support::PressKeys;
using support::RED;
using support::SColour;
using support::SessionFixture;

/// From polygons to a packing, by hand.
class PackingSession : public SessionFixture {
protected:
    [[nodiscard]] int CountOnCanvas(SColour colour) const {
        return CScreenshot().Count(colour, Place("ID_DISPLAY"));
    }

    void ShowPackingOfThreeSquares() {
        for (const char* pName : {"a.pol", "b.pol", "c.pol"}) {
            AddSquare(pName, 100);
        }
        Start();
        ListWholeFolder();
        SetRun(50, 5);
        ClickOn("ID_BTN_RUN_GA");
        Require(AwaitOutput("Thread Exited\n"), "the run did not end");
        ClickOn("ID_BTN_SHOW_RESULT");
        ParkPointer();
        Require(Await([this] { return CountOnCanvas(GREY) > 300; }), "the packing was not shown");
    }

    /// Picks the overlay with this key from the menu that a right click opens.
    void SwitchOverlay(const std::string& key) {
        const int nWindows = CountWindows();
        // Elsewhere than the last time: two clicks in one place would be one double click.
        m_Pointer.x = 60 + (m_Pointer.x + 20) % 100;
        Click(Place("ID_DISPLAY").GetPosition() + m_Pointer, 3);
        Require(Await([nWindows] { return CountWindows() > nWindows; }), "no menu");
        PressKeys({key});
        ParkPointer();
        Require(Await([nWindows] { return CountWindows() == nWindows; }), "the menu stayed");
    }

    /// Whether switching the overlay on shows the colour, and switching it off hides it again.
    void ExpectOverlay(const std::string& key, SColour colour) {
        ShowPackingOfThreeSquares();
        const int nBefore = CountOnCanvas(colour);
        SwitchOverlay(key);
        EXPECT_TRUE(Await([&] { return CountOnCanvas(colour) > nBefore; })) << "not switched on";
        SwitchOverlay(key);
        EXPECT_TRUE(Await([&] { return CountOnCanvas(colour) == nBefore; })) << "not switched off";
        CloseWindow();
    }

private:
    wxPoint m_Pointer{60, 60};
};

TEST_F(PackingSession, IsAJobFromFilesToPicture) {
    const std::filesystem::path samples = std::filesystem::absolute("samples/squares");
    for (const auto& entry : std::filesystem::directory_iterator(samples)) {
        if (entry.path().extension() == ".pol") {
            std::filesystem::create_symlink(entry.path(), m_Folder.PathOf(entry.path().filename().string()));
        }
    }
    Start();
    const CScreenshot atFirst;
    ListWholeFolder();
    SetRun(100, 200);
    const wxRect slider = Place("ID_SLIDER_MUTATION");
    Drag(slider.GetPosition() + wxPoint(20, slider.height / 2),
         slider.GetPosition() + wxPoint(60, slider.height / 2));
    ASSERT_TRUE(Await([&] { return CScreenshot().Differs(atFirst, Place("ID_TXT_MUTATION_PROBABILITY")); }));
    PressKeys({"alt+u", "Home"});
    ASSERT_TRUE(Await([&] { return CScreenshot().Differs(atFirst, Place("ID_TXT_THRESHOLD")); }));

    const CScreenshot before;
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Generation 200 has been created with 100 many individuals\n"));
    ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
    for (const char* pPlace : {"ID_GAUGE", "ID_TXT_AVG_FITNESS", "ID_TXT_BEST_FITNESS", "ID_TXT_TOTAL_POP",
                               "ID_AVG_PLOTTER", "ID_BEST_PLOTTER", "ID_TOTAL_POP_PLOTTER"}) {
        EXPECT_TRUE(Await([&] { return CScreenshot().Differs(before, Place(pPlace)); })) << pPlace;
    }
    EXPECT_FALSE(CScreenshot().Differs(before, Place("ID_DISPLAY")));

    const int nLines = CountOutput("Best Chromosome so far is ");
    ClickOn("ID_BTN_SHOW_RESULT");
    ASSERT_TRUE(AwaitOutput("Best Chromosome so far is ", nLines + 1));
    EXPECT_TRUE(Await([this] { return CountOnCanvas(GREY) > 300; }));
    CloseWindow();
}

TEST_F(PackingSession, ShowsReferencePointsFromTheMenu) {
    ExpectOverlay("p", BLACK);
}

TEST_F(PackingSession, ShowsBoundingBoxesFromTheMenu) {
    ExpectOverlay("x", RED);
}

TEST_F(PackingSession, ShowsFrontLinesFromTheMenu) {
    ExpectOverlay("l", RED);
}

TEST_F(PackingSession, ShowsBackLinesFromTheMenu) {
    ExpectOverlay("u", BLUE);
}

TEST_F(PackingSession, ShowsFrontPointsFromTheMenu) {
    ExpectOverlay("t", RED);
}

TEST_F(PackingSession, ShowsBackPointsFromTheMenu) {
    ExpectOverlay("o", BLUE);
}

TEST_F(PackingSession, ShowsSequenceNumbersFromTheMenu) {
    ExpectOverlay("s", BLACK);
}

TEST_F(PackingSession, ShowsAllOverlaysAtOnceAndKeepsThemForTheNextResult) {
    ShowPackingOfThreeSquares();
    for (const char* pKey : {"p", "x", "l", "u", "t", "o", "s"}) {
        SwitchOverlay(pKey);
    }
    ASSERT_TRUE(Await([this] { return CountOnCanvas(RED) > 100 && CountOnCanvas(BLUE) > 100; }));
    const int nLines = CountOutput("Best Chromosome so far is ");
    ClickOn("ID_BTN_SHOW_RESULT");
    ASSERT_TRUE(AwaitOutput("Best Chromosome so far is ", nLines + 1));
    EXPECT_TRUE(Await([this] { return CountOnCanvas(RED) > 100 && CountOnCanvas(BLUE) > 100; }));
    CloseWindow();
}

}  // namespace

}  // namespace nestrix
