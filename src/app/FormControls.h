#pragma once

#include <wx/window.h>
#include <wx/xrc/xmlres.h>

namespace nestrix {

/// The form's control of this resource name, or null where the form has none of this kind.
template <class T>
[[nodiscard]] T* FindControl(const wxWindow& form, const char* pName) {
    return dynamic_cast<T*>(form.FindWindow(wxXmlResource::GetXRCID(pName)));
}

}  // namespace nestrix
