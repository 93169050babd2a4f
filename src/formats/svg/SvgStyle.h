#pragma once

#include <pugixml.hpp>
#include <string_view>

namespace nestrix {

/// A property of an element by itself: from its "style" attribute, else from the attribute of that name;
/// empty where neither tells it. Style sheets are not looked at.
[[nodiscard]] std::string_view FindProperty(pugi::xml_node element, char const* pName);

}  // namespace nestrix
