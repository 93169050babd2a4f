#include <wx/filedlg.h>
#include <wx/listbox.h>

#include "app/CNestrixFrame.h"
#include "app/FormControls.h"
#include "formats/PolygonFile.h"

using namespace nestrix;

/// Kept for a command that does nothing yet, deliberately.
void CNestrixFrame::OnMenuNext(wxCommandEvent&) {}

/// A file chosen twice stands twice in the list and is packed twice, deliberately.
void CNestrixFrame::OnAdd(wxCommandEvent&) {
    const wxString pattern = wxString("*") + POLYGON_FILE_EXTENSION;
    wxFileDialog dialog(this, "Choose a polygon file", "./", "", "Polygon File (" + pattern + ")|" + pattern,
                        wxFD_OPEN | wxFD_MULTIPLE, wxDefaultPosition);
    auto* pList = FindControl<wxListBox>(*this, "ID_LST_POLYGON");
    if (dialog.ShowModal() != wxID_OK || pList == nullptr) {
        return;
    }
    wxArrayString paths;
    dialog.GetPaths(paths);
    if (!paths.IsEmpty()) {
        pList->Insert(paths, pList->GetCount());
    }
}

void CNestrixFrame::OnRemove(wxCommandEvent&) {
    auto* pList = FindControl<wxListBox>(*this, "ID_LST_POLYGON");
    const int nSelection = pList != nullptr ? pList->GetSelection() : wxNOT_FOUND;
    if (nSelection != wxNOT_FOUND) {
        pList->Delete(static_cast<unsigned int>(nSelection));
    }
}

void CNestrixFrame::OnClear(wxCommandEvent&) {
    if (auto* pList = FindControl<wxListBox>(*this, "ID_LST_POLYGON")) {
        pList->Clear();
    }
}
