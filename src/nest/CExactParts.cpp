#include "nest/CExactParts.h"

#include <cmath>
#include <utility>

#include "nest/ConvexParts.h"
#include "nest/FillDents.h"
#include "nest/GridGeometry.h"

namespace nestrix {

namespace {

/// A compaction looks at each two parts of two items, and there are about as many parts as dents. Of more
/// than this the shallow ones are filled, by shares of the piece's size (the square root of its area); where
/// that does not help, it moves the hull.
constexpr size_t MOST_DENTS = 1000;
constexpr double LEAST_FILLED_SHARE = 0.0005;
constexpr double MOST_FILLED_SHARE = 0.02;

size_t CountDents(const CGridRing& ring) {
    size_t nDents = 0;
    for (size_t i = 0; i < ring.size(); ++i) {
        if (Turn(ring[i], ring[(i + 1) % ring.size()], ring[(i + 2) % ring.size()]) < 0) {
            ++nDents;
        }
    }
    return nDents;
}

size_t CountDents(const SGridShape& shape) {
    size_t nDents = CountDents(shape.m_Outline);
    for (const CGridRing& hole : shape.m_Holes) {
        nDents += CountDents(hole);
    }
    return nDents;
}

/// The shape, or one around it with fewer dents: what keeps apart from that keeps apart from the shape.
SGridShape WithFewDents(const SGridShape& shape, double area) {
    if (CountDents(shape) <= MOST_DENTS) {
        return shape;
    }
    for (double share = LEAST_FILLED_SHARE; share <= MOST_FILLED_SHARE; share *= 2.0) {
        SGridShape filled = DentsFilled(shape, share * std::sqrt(area));
        if (CountDents(filled) <= MOST_DENTS) {
            return filled;
        }
    }
    return {HullOf(shape.m_Outline), {}};
}

}  // namespace

CExactParts::CExactParts(const CPackProblem& problem)
    : m_Problem(problem), m_Parts(problem.Versions().size()) {}

const CExactParts::SParts& CExactParts::Of(size_t nVersion) {
    std::optional<SParts>& parts = m_Parts[nVersion];
    if (!parts) {
        parts.emplace();
        const SVersion& version = m_Problem.Versions()[nVersion];
        const double area = m_Problem.Figures()[version.m_nFigure].m_Area;
        for (CConvexPart& part : ConvexPartsOf(WithFewDents(version.m_Shape, area))) {
            SPlaneBox box;
            for (const SPoint point : part) {
                box.Include(point);
                parts->m_Box.Include(point);
            }
            parts->m_Parts.push_back({std::move(part), box});
        }
    }
    return *parts;
}

}  // namespace nestrix
