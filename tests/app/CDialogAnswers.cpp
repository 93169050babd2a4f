#include "tests/app/CDialogAnswers.h"

#include <wx/filedlg.h>
#include <wx/msgdlg.h>

namespace nestrix::support {

int CDialogAnswers::Enter(wxDialog* pDialog) {
    if (const auto* pBox = dynamic_cast<const wxMessageDialog*>(pDialog)) {
        m_Messages.push_back((pBox->GetTitle() + ": " + pBox->GetMessage()).utf8_string());
    } else if (const auto* pFiles = dynamic_cast<const wxFileDialog*>(pDialog)) {
        m_Messages.push_back(pFiles->GetMessage().utf8_string());
        m_FileDialog = {pFiles->GetDirectory().utf8_string(), pFiles->GetWildcard().utf8_string(),
                        pFiles->HasFlag(wxFD_MULTIPLE)};
    } else {
        m_Messages.push_back("unknown dialog " + pDialog->GetTitle().utf8_string());
    }
    return m_nAnswer;
}

}  // namespace nestrix::support
