#pragma once

#include <wx/listbox.h>

namespace nestrix {

/// Makes each line of a list of paths show as much of the path's end as there is room for, since the name
/// stands there, and the pointer over a line call up the whole path as a tooltip. Once for a list.
void ShowEndsOfPaths(wxListBox& list);

}  // namespace nestrix
