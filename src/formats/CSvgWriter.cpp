#include "formats/CSvgWriter.h"

#include "formats/SvgNumber.h"

namespace nestrix {

CSvgWriter& CSvgWriter::Element(char const* pName) {
    m_pElement = pName;
    m_Document.append("<").append(pName);
    return *this;
}

CSvgWriter& CSvgWriter::Set(char const* pName, std::string_view value) {
    m_Document.append(" ").append(pName).append("=\"").append(value).append("\"");
    return *this;
}

CSvgWriter& CSvgWriter::Set(char const* pName, double value) {
    return Set(pName, SvgNumber(value));
}

void CSvgWriter::End() {
    m_Document.append("/>\n");
}

void CSvgWriter::EndWithText(std::string_view text) {
    m_Document.append(">").append(text).append("</").append(m_pElement).append(">\n");
}

void CSvgWriter::BeginContent() {
    m_Document.append(">\n");
}

void CSvgWriter::EndContent(char const* pName) {
    m_Document.append("</").append(pName).append(">\n");
}

}  // namespace nestrix
