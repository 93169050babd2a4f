#pragma once

#include <wx/modalhook.h>

#include <string>
#include <vector>

namespace nestrix::support {

/// While it lives, no dialog comes up: each is answered at once, and its message kept.
class CDialogAnswers : public wxModalDialogHook {
public:
    /// @param nAnswer what every dialog returns, wxID_OK or wxID_CANCEL.
    explicit CDialogAnswers(int nAnswer) : m_nAnswer(nAnswer) { Register(); }

    /// "caption: text" of each message box, the message of each file dialog.
    [[nodiscard]] const std::vector<std::string>& Messages() const { return m_Messages; }

    struct SFileDialog {
        std::string m_Folder;
        std::string m_Wildcard;
        bool m_bMultiple = false;
    };

    /// The last one.
    [[nodiscard]] const SFileDialog& FileDialog() const { return m_FileDialog; }

protected:
    int Enter(wxDialog* pDialog) override;

private:
    int m_nAnswer;
    std::vector<std::string> m_Messages;
    SFileDialog m_FileDialog;
};

}  // namespace nestrix::support
