#include "tests/app/SessionFixture.h"

namespace nestrix {

namespace {

using support::Await;
using support::AwaitWindow;
using support::IsWindowOpen;
using support::PressKeys;
using support::SessionFixture;

/// Through the file dialog, by hand.
class FileDialogSession : public SessionFixture {
protected:
    void SetUp() override {
        for (const char* pName : {"a.pol", "b.pol", "c.pol"}) {
            m_Squares.push_back(AddSquare(pName, 10));
        }
        Start();
    }

    /// Starts a run without any of the files, which names every one that is listed.
    [[nodiscard]] std::string ListedFiles() {
        for (const std::string& square : m_Squares) {
            std::filesystem::remove(square);
        }
        SetRun(2, 0);
        ClickOn("ID_BTN_RUN_GA");
        EXPECT_TRUE(AwaitOutput("Thread Exited\n"));
        std::string files;
        const std::string output = Output();
        // Every bad file is reported twice in a row; the second line is left out.
        const std::string report = "Couldn't Load Polygon ";
        bool bSecond = false;
        for (size_t i = output.find(report); i != std::string::npos; i = output.find(report, i + 1)) {
            if (!bSecond) {
                const size_t nEnd = output.find('\n', i);
                files += std::filesystem::path(output.substr(i, nEnd - i)).filename().string() + " ";
            }
            bSecond = !bSecond;
        }
        return files;
    }

    std::vector<std::string> m_Squares;
};

TEST_F(FileDialogSession, ListsOneFile) {
    ListFile(m_Squares[1]);
    EXPECT_EQ(ListedFiles(), "b.pol ");
    CloseWindow();
}

TEST_F(FileDialogSession, ListsThreeFilesInTheDialogsOrderBehindTheOthers) {
    ListFile(m_Squares[1]);
    ListWholeFolder();
    EXPECT_EQ(ListedFiles(), "b.pol a.pol b.pol c.pol ");
    CloseWindow();
}

TEST_F(FileDialogSession, ListsTheSameFileTwice) {
    ListFile(m_Squares[2]);
    ListFile(m_Squares[2]);
    EXPECT_EQ(ListedFiles(), "c.pol c.pol ");
    CloseWindow();
}

TEST_F(FileDialogSession, LeavesTheListAloneWhenCancelled) {
    ListFile(m_Squares[0]);
    ClickOn("ID_BTN_ADD");
    ASSERT_TRUE(AwaitWindow("Choose a polygon file"));
    PressKeys({"Escape"});
    ASSERT_TRUE(Await([] { return !IsWindowOpen("Choose a polygon file"); }));
    EXPECT_EQ(ListedFiles(), "a.pol ");
    CloseWindow();
}

TEST_F(FileDialogSession, ListsAFileWithAnyCharacterInItsName) {
    for (const std::string& square : m_Squares) {
        std::filesystem::remove(square);
    }
    m_Squares = {AddSquare("Größe 100%s.pol", 10)};
    ListWholeFolder();
    EXPECT_EQ(ListedFiles(), "Größe 100%s.pol ");
    CloseWindow();
}

TEST_F(FileDialogSession, RemovesTheSelectedFileAndClearsTheRest) {
    ListWholeFolder();
    // By keys, since nothing tells when the list has laid out its lines.
    support::Click(Place("ID_LST_POLYGON").GetPosition() + wxPoint(30, 35));
    PressKeys({"Home", "Down"});
    ClickOn("ID_BTN_REMOVE");
    EXPECT_EQ(ListedFiles(), "a.pol c.pol ");
    ClickOn("ID_BTN_CLEAR");
    const std::string before = Output();
    ClickOn("ID_BTN_RUN_GA");
    ClickOn("ID_BTN_SHOW_RESULT");
    ASSERT_TRUE(AwaitOutput("Best Chromosome so far is "));
    EXPECT_EQ(CountOutput("Thread Run returned"), 1);
    CloseWindow();
}

}  // namespace

}  // namespace nestrix
