#include <algorithm>
#include <vector>

#include "certify/CEdgeSweep.h"
#include "certify/CLocator.h"
#include "certify/Certify.h"
#include "certify/Meetings.h"

namespace nestrix {

namespace {

using certify::SBorder;
using certify::SBorderEdge;
using certify::SStretch;
using certify::SWhere;

/// Whether the border's edges are where the winding number goes from 0 to 1.
bool BoundsOneInside(const SBorder& border) {
    const std::vector<SStretch> stretches =
        certify::StretchesBetween(border, certify::FindOwnMeetings(border).m_First);
    const certify::CLocator locator(border);
    return std::all_of(stretches.begin(), stretches.end(), [&locator](const SStretch& stretch) {
        const SWhere where = locator.Locate(stretch);
        return where.m_nAlong == 1 && where.m_nWinding == 1;
    });
}

bool CrossesItself(const SGridShape& shape) {
    const std::vector<SBorderEdge> edges = certify::DirectedEdges(shape);
    certify::CEdgeSweep sweep;
    for (size_t i = 0; i < edges.size(); ++i) {
        sweep.Add(edges[i], static_cast<int>(i));
    }
    return sweep.VisitPairs([&edges](int i, int j) {
        return Cross(edges[static_cast<size_t>(i)], edges[static_cast<size_t>(j)]);
    });
}

}  // namespace

bool IsSound(const SGridShape& shape) {
    if (CrossesItself(shape)) {
        return false;
    }
    const SBorder border = certify::BorderOf(shape);
    return !border.m_Edges.empty() && BoundsOneInside(border);
}

}  // namespace nestrix
