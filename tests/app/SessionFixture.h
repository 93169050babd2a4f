#pragma once

#include <gmock/gmock.h>

#include <map>
#include <memory>

#include "tests/app/Desktop.h"

namespace nestrix::support {

/// A person at a desktop with the real program: it is started in a folder of its own that holds the form, the
/// font and whatever else a test puts there, and is seen, clicked and typed to like by anybody.
class SessionFixture : public testing::Test {
protected:
    SessionFixture();

    /// Ends the test with this message and what the program complained about, unless something happened.
    void Require(bool bHappened, const std::string& otherwise) const;

    /// Starts the program and waits until its window is painted.
    void Start(const std::map<std::string, std::string>& environment = {});

    /// Starts the program and waits for nothing.
    void Launch(const std::map<std::string, std::string>& environment = {});

    /// Waits until the form looks as it does before anything is done in it, and gets the keys.
    void AwaitRest() const;

    /// Writes a square of this side into the program's folder and returns its path.
    std::string AddSquare(const std::string& name, int nSide);

    /// Starts the program with as many squares of this side in its list.
    void StartWithSquares(int nCount, int nSide);

    /// Puts a polygon file that anyone can see into the list, through the file dialog.
    void ListFile(const std::string& path);

    /// Waits until nothing moves on the screen any more, but not for ever: something may blink.
    static void AwaitStillness();

    /// Lists all polygon files in the program's folder through the file dialog.
    void ListWholeFolder();

    void ClickOn(const std::string& control, int nButton = 1);
    void SetRun(int nPopulation, int nGenerations);

    /// Everything that the program has printed so far.
    [[nodiscard]] std::string Output() const;
    [[nodiscard]] int CountOutput(const std::string& text) const;
    [[nodiscard]] bool AwaitOutput(const std::string& text, int nTimes = 1,
                                   std::chrono::milliseconds patience = std::chrono::seconds(90)) const;

    /// The last number that the program has printed after this text, or −1.
    [[nodiscard]] float LastNumberAfter(const std::string& text) const;

    /// Whether the gauge is full to its end, as it is once the last notice of a run has been handled.
    [[nodiscard]] bool IsGaugeFull() const;

    /// Where a control is on the screen.
    [[nodiscard]] const wxRect& Place(const std::string& control) const { return m_Places.at(control); }

    /// Closes the window as the user does, and expects it gone at once and a clean end of the program.
    void CloseWindow();

    CWindowManager m_WindowManager;
    CTemporaryFolder m_Folder;  ///< the program's own
    CTemporaryFolder m_Records;
    std::filesystem::path m_OutputFile = m_Records.PathOf("output");  ///< where the program prints to
    std::vector<int> m_Closed;  ///< descriptors that the program starts without
    std::filesystem::path m_Command = std::filesystem::absolute("nestrix");  ///< what is started
    std::unique_ptr<CProcess> m_pProgram;

private:
    /// Opens a window like the program's for a moment.
    void LearnLayout();

    std::map<std::string, wxRect> m_Places;
    std::unique_ptr<CScreenshot> m_pAtRest;  ///< of that window, before anything was done in it
};

}  // namespace nestrix::support
