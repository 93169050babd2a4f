#include "app/PolygonListView.h"

#include <gtk/gtk.h>

namespace nestrix {

namespace {

/// The toolkit's own list box has no word for it.
void CutLinesAtTheirBeginning(wxListBox& list) {
    GtkTreeViewColumn* pColumn = gtk_tree_view_get_column(list.m_treeview, 0);
    GList* pRenderers = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(pColumn));
    for (const GList* pNode = pRenderers; pNode != nullptr; pNode = pNode->next) {
        g_object_set(pNode->data, "ellipsize", PANGO_ELLIPSIZE_START, nullptr);
    }
    g_list_free(pRenderers);
}

}  // namespace

void ShowEndsOfPaths(wxListBox& list) {
    CutLinesAtTheirBeginning(list);
    list.Bind(wxEVT_MOTION, [&list, ownTip = list.GetToolTipText()](wxMouseEvent& event) {
        event.Skip();
        const int nLine = list.HitTest(event.GetPosition());
        const wxString tip = nLine != wxNOT_FOUND ? list.GetString(static_cast<unsigned int>(nLine)) : ownTip;
        if (tip != list.GetToolTipText()) {
            list.SetToolTip(tip);
        }
    });
}

}  // namespace nestrix
