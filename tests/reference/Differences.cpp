#include "tests/reference/Differences.h"

#include <cstdio>

#include "tests/support/SameBits.h"

namespace nestrix::reference {

using support::SameBits;

std::string Differs(const char* pWhat, float fEngine, float fReference) {
    char text[200];
    std::snprintf(text, sizeof text, "%s: the engine has %a (%.9g), the reference %a (%.9g)", pWhat,
                  static_cast<double>(fEngine), static_cast<double>(fEngine), static_cast<double>(fReference),
                  static_cast<double>(fReference));
    return text;
}

bool Same(const mgVector3& a, const mgVector3& b) {
    return SameBits(a.x, b.x) && SameBits(a.y, b.y) && SameBits(a.z, b.z);
}

bool Same(const CPoint& a, const CPoint& b) {
    return a.m_nPrevLine == b.m_nPrevLine && a.m_nNextLine == b.m_nNextLine &&
           Same(a.m_Position, b.m_Position) && a.m_bFront == b.m_bFront && a.m_bBack == b.m_bBack;
}

bool Same(const CLine& a, const CLine& b) {
    return a.m_nStart == b.m_nStart && a.m_nEnd == b.m_nEnd && a.m_bFront == b.m_bFront &&
           Same(a.m_Direction, b.m_Direction);
}

bool Same(const SGene& a, const SGene& b) {
    return a.m_nPolygon == b.m_nPolygon && a.m_nOrder == b.m_nOrder && SameBits(a.m_fX, b.m_fX);
}

}  // namespace nestrix::reference
