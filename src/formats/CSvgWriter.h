#pragma once

#include <string>
#include <string_view>

namespace nestrix {

/// Builds an SVG document element by element. The order of use is Element, Set for each attribute, then one
/// of End, EndWithText and BeginContent; what has begun ends with EndContent.
///
/// Names, attributes and texts are the program's own and are written as they are: none needs escaping.
class CSvgWriter {
public:
    CSvgWriter& Element(char const* pName);
    CSvgWriter& Set(char const* pName, std::string_view value);
    CSvgWriter& Set(char const* pName, double value);
    void End();
    void EndWithText(std::string_view text);
    void BeginContent();
    void EndContent(char const* pName);

    [[nodiscard]] const std::string& Document() const { return m_Document; }

private:
    std::string m_Document = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    char const* m_pElement = "";  ///< the one whose attributes are being set
};

}  // namespace nestrix
