#include "tests/reference/COverlapComparison.h"

#include <cmath>
#include <cstdio>

#include "nest/ConvexParts.h"
#include "nest/GridGeometry.h"

namespace nestrix::reference {

namespace {

std::vector<CConvexPart> MagnifiedParts(const SGridShape& shape) {
    std::vector<CConvexPart> parts;
    for (const CGridRing& ring : CutIntoConvexParts(Cleaned(shape))) {
        CConvexPart part;
        for (const SGridPoint point : ring) {
            part.push_back({static_cast<double>(point.m_nX * OVERLAP_DENOMINATOR_MOST),
                            static_cast<double>(point.m_nY * OVERLAP_DENOMINATOR_MOST)});
        }
        parts.push_back(std::move(part));
    }
    return parts;
}

}  // namespace

COverlapComparison::COverlapComparison(const SGridShape& stays, const SGridShape& moves)
    : m_Field(MagnifiedParts(stays), MagnifiedParts(moves), -UNNOTICED), m_Plain(stays, moves) {}

std::string COverlapComparison::FindDifference(int64_t x, int64_t y) {
    const double plain =
        m_Plain.DepthAt({x, y, OVERLAP_DENOMINATOR_MOST}) * static_cast<double>(OVERLAP_DENOMINATOR_MOST);
    const double quick = m_Field.DepthAt({static_cast<double>(x), static_cast<double>(y)});
    if (std::abs(quick - plain) <= TOLERANCE) {
        return {};
    }
    char text[120];
    std::snprintf(text, sizeof text, "at %lld, %lld the overlap is %.9g deep, and by the plain measure %.9g",
                  static_cast<long long>(x), static_cast<long long>(y), quick, plain);
    return text;
}

}  // namespace nestrix::reference
