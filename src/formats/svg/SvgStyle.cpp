#include "formats/svg/SvgStyle.h"

#include <svgpp/parser/css_style_iterator.hpp>

namespace nestrix {

namespace {

constexpr std::string_view IMPORTANT = "!important";

template <class TRange>
std::string_view TextOf(const TRange& range) {
    return {range.begin(), static_cast<size_t>(range.end() - range.begin())};
}

}  // namespace

std::string_view FindProperty(pugi::xml_node element, char const* pName) {
    std::string_view found;
    const std::string_view style = element.attribute("style").value();
    svgpp::css_style_iterator<char const*> declaration(style.data(), style.data() + style.size());
    for (; !declaration.eof(); ++declaration) {
        if (TextOf(declaration->first) == pName) {
            found = TextOf(declaration->second);
        }
    }
    if (found.ends_with(IMPORTANT)) {
        found.remove_suffix(IMPORTANT.size());
        found = found.substr(0, found.find_last_not_of(" \t\r\n") + 1);
    }
    return found.empty() ? std::string_view(element.attribute(pName).value()) : found;
}

}  // namespace nestrix
