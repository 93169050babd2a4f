#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace nestrix {

/// An SVG file as a tree of elements, which live as long as this does.
class CSvgFile {
public:
    /// Reads a regular file. No entities are expanded but those of XML itself.
    explicit CSvgFile(const std::string& path);

    /// Why there is nothing to be read, in words for a user; empty for a file with an "svg" element.
    [[nodiscard]] const std::string& Fault() const { return m_Fault; }
    [[nodiscard]] int FaultLine() const { return m_nFaultLine; }

    [[nodiscard]] pugi::xml_node Root() const { return m_Root; }

    /// Where the element begins, from 1; 0 where that cannot be told: the file was not in UTF-8.
    [[nodiscard]] int LineOf(pugi::xml_node element) const;

    /// The element's name without the prefix that SVG has in this file; empty for what is no element of SVG.
    [[nodiscard]] std::string_view NameOf(pugi::xml_node element) const;

private:
    void Parse(std::string content);
    [[nodiscard]] int LineAt(ptrdiff_t nOffset) const;

    std::string m_Fault;
    int m_nFaultLine = 0;
    pugi::xml_document m_Document;
    pugi::xml_node m_Root;
    std::string m_Prefix;  ///< with its colon
    bool m_bLinesKnown = false;
    std::vector<ptrdiff_t> m_LineEnds;
};

}  // namespace nestrix
