#pragma once

#include <gtest/gtest.h>
#include <wx/listbox.h>
#include <wx/slider.h>
#include <wx/spinctrl.h>
#include <wx/xrc/xmlres.h>

#include <string>
#include <vector>

#include "app/NestrixMain.h"
#include "tests/support/CTemporaryFolder.h"

namespace nestrix::support {

/// The program's window on the screen, as the application starts it, in the folder that the test runs in.
class FrameFixture : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Another window in place of this one.
    void OpenFrame();
    void CloseFrame();

    /// The form's control of this name and kind; the test ends when there is none.
    template <class T>
    [[nodiscard]] T& Control(const char* pName) {
        auto* pControl = dynamic_cast<T*>(m_pFrame->FindWindow(wxXmlResource::GetXRCID(pName)));
        if (pControl == nullptr) {
            throw std::runtime_error(std::string("the form lacks ") + pName);
        }
        return *pControl;
    }

    [[nodiscard]] wxListBox& List() { return Control<wxListBox>("ID_LST_POLYGON"); }
    [[nodiscard]] std::string Text(const char* pField);

    /// Presses a button and returns what is printed meanwhile.
    std::string Press(const char* pButton);

    /// Sends a notice as the worker does, but at once.
    void Notify(int nGeneration);

    void SetRun(int nPopulation, int nGenerations);

    /// Writes so many squares into a folder of the test's own and lists them.
    void ListSquares(int nCount, int nSide = 10);

    /// Starts a run that would not end for hours.
    void StartLongRun();

    /// Lets a run end by itself and all its notices be handled.
    void AwaitEndOfRun();

    CTemporaryFolder m_Folder;
    CNestrixFrame* m_pFrame = nullptr;
};

}  // namespace nestrix::support
