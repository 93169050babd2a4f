#include "formats/PolygonFile.h"

#include <cctype>
#include <cstdio>

#include "formats/PolygonFault.h"
#include "geom/CPolygonReader.h"

namespace nestrix {

namespace {

/// Tells places in a text as lines.
class CLineCounter {
public:
    /// Begins at the start of the text.
    explicit CLineCounter(std::FILE* pText) : m_pText(pText) { std::rewind(pText); }

    /// The line of the first character from there on that is not blank, or the last line. The places must
    /// ascend.
    int LineFrom(off_t nAt) {
        int c = std::getc(m_pText);
        for (; c != EOF && (m_nPassed < nAt || std::isspace(c) != 0); c = std::getc(m_pText)) {
            ++m_nPassed;
            m_nLine += c == '\n' ? 1 : 0;
        }
        std::ungetc(c, m_pText);
        return m_nLine;
    }

private:
    std::FILE* m_pText;
    off_t m_nPassed = 0;
    int m_nLine = 1;
};

}  // namespace

SPolygonFile ReadPolygonFile(char const* path) {
    SPolygonFile file;
    CPolygonReader reader(path);
    if (!reader.IsOpen()) {
        file.m_Fault = reader.Fault();
        return file;
    }
    file.m_bIsOpen = true;
    reader.Read(file.m_Polygon);
    file.m_Fault = ExplainedFault(reader);
    CLineCounter lines(reader.Text());
    const CPolygonReader::SPlaces& places = reader.Places();
    if (!file.m_Fault.empty()) {
        file.m_nFaultLine = lines.LineFrom(places.m_nFault);
        return file;
    }
    file.m_nOutlineLine = lines.LineFrom(places.m_nOutline);
    file.m_nBoxLine = lines.LineFrom(places.m_nBox);
    const int nRestLine = lines.LineFrom(places.m_nRest);
    file.m_nRestLine = std::feof(reader.Text()) != 0 ? 0 : nRestLine;
    file.m_Polygon.Process();
    return file;
}

}  // namespace nestrix
