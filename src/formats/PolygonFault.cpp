#include "formats/PolygonFault.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

#include "geom/CPolygonReader.h"

namespace nestrix {

namespace {

/// So far is looked ahead for what is amiss, whatever a file holds.
constexpr int MOST_LOOKED_AT = 1 << 24;

int NextInk(std::FILE* pText) {
    int c = std::getc(pText);
    while (c != EOF && std::isspace(c) != 0) {
        c = std::getc(pText);
    }
    return c;
}

std::string Vertices(int nCount) {
    return std::to_string(nCount) + (nCount == 1 ? " vertex" : " vertices");
}

std::string OtherNumberThanAnnounced(int nAnnounced, int nFound) {
    return "the count says " + Vertices(nAnnounced) + ", but there " + (nFound == 1 ? "is " : "are ") +
           (nFound == 0 ? "none" : std::to_string(nFound));
}

/// What comes behind the announced vertices, up to a semicolon or the end.
struct SBehind {
    int m_nPairs = 0;  ///< as many as there are commas
    bool m_bSemicolon = false;
};

SBehind LookBehind(std::FILE* pText) {
    SBehind behind;
    for (int i = 0; i < MOST_LOOKED_AT && !behind.m_bSemicolon; ++i) {
        const int c = std::getc(pText);
        if (c == EOF || c == '\0') {
            break;
        }
        behind.m_nPairs += c == ',' ? 1 : 0;
        behind.m_bSemicolon = c == ';';
    }
    return behind;
}

/// Whether the reader stopped behind the first number of a pair. What is before the number tells: a comma, if
/// it is a second one.
bool IsBehindFirstNumber(std::FILE* pText, off_t nAt) {
    constexpr off_t LONGEST_NUMBER = 64;
    std::string before;
    (void)fseeko(pText, std::max<off_t>(nAt - LONGEST_NUMBER, 0), SEEK_SET);
    while (ftello(pText) < nAt) {
        before += static_cast<char>(std::getc(pText));
    }
    const size_t nInk = before.find_last_not_of("0123456789.+-eE");
    return nInk + 1 < before.size() && (nInk == std::string::npos || before[nInk] != ',');
}

/// Of a text whose vertices end early.
std::string ExplainVertex(const CPolygonReader& reader) {
    const bool bFirstNumber = IsBehindFirstNumber(reader.Text(), reader.Places().m_nFault);
    const int nInk = NextInk(reader.Text());
    if (bFirstNumber && nInk != EOF) {
        return "no comma stands right behind the first number of vertex " +
               std::to_string(reader.Found() + 1);
    }
    return nInk == EOF || nInk == ';' ? OtherNumberThanAnnounced(reader.Announced(), reader.Found())
                                      : reader.Fault();
}

/// Of a text whose vertices are there.
std::string ExplainBox(const CPolygonReader& reader) {
    (void)fseeko(reader.Text(), reader.Places().m_nBox, SEEK_SET);
    const int nInk = NextInk(reader.Text());
    if (nInk == EOF) {
        return "the semicolon and the bounding box are missing";
    }
    if (nInk == ';') {
        return "the bounding box is not two corners \"x,y\"";
    }
    const SBehind behind = LookBehind(reader.Text());
    if (behind.m_bSemicolon && behind.m_nPairs > 0) {
        return OtherNumberThanAnnounced(reader.Announced(), reader.Found() + behind.m_nPairs);
    }
    return behind.m_nPairs == 2 ? "no semicolon stands before the bounding box" : reader.Fault();
}

}  // namespace

std::string ExplainedFault(const CPolygonReader& reader) {
    const bool bAllVertices = reader.Found() == reader.Announced();
    if (reader.Fault().empty() || !reader.IsOpen() || reader.Announced() < 3) {
        return reader.Fault();
    }
    if (reader.Fault().find("not a pair") != std::string::npos) {
        return ExplainVertex(reader);
    }
    return bAllVertices && reader.Fault().starts_with("no semicolon") ? ExplainBox(reader) : reader.Fault();
}

}  // namespace nestrix
