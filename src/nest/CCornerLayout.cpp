#include "nest/CCornerLayout.h"

#include <algorithm>

namespace nestrix {

namespace {

/// Whether a side lies along a wall, the floor or the ceiling of a room.
bool RunsAlong(const SPlaneBox& room, SPoint from, SPoint to, double tolerance) {
    const double left = room.m_Low.m_X + tolerance;
    const double right = room.m_High.m_X - tolerance;
    const double floor = room.m_Low.m_Y + tolerance;
    const double ceiling = room.m_High.m_Y - tolerance;
    return std::max(from.m_X, to.m_X) < left || std::min(from.m_X, to.m_X) > right ||
           std::max(from.m_Y, to.m_Y) < floor || std::min(from.m_Y, to.m_Y) > ceiling;
}

}  // namespace

CCornerProblem::CCornerProblem(const CPackProblem& problem, CFieldTable& fields, double tolerance,
                               double height)
    : m_Problem(problem), m_Fields(fields), m_Tolerance(tolerance) {
    const SGridStrip& strip = problem.Strip();
    m_Room = {AsPoint({strip.m_nMargin, strip.m_nMargin}),
              {static_cast<double>(strip.m_nWidth - strip.m_nMargin), height}};
    for (const SVersion& version : problem.Versions()) {
        m_Shapes.push_back(CornerShapeOf(version));
    }
}

bool CCornerProblem::DoOverlap(const SPlace& first, const SPlace& second) const {
    return GapOf(BoxOf(first), BoxOf(second)) < -m_Tolerance &&
           m_Fields.DepthOf(first.m_nVersion, first.m_At, second.m_nVersion, second.m_At, 1.0, m_Tolerance) >=
               m_Tolerance;
}

CCornerLayout::CCornerLayout(const CCornerProblem& problem)
    : m_pProblem(&problem),
      m_Left(problem.Problem().Pieces().size(), 0),
      m_Watched{problem.Room().m_Low, {problem.Room().m_High.m_X, problem.Room().m_Low.m_Y}} {
    for (const size_t nPiece : problem.Problem().Items()) {
        ++m_Left[nPiece];
    }
}

std::vector<SSector> CCornerLayout::GapsAt(SPoint at) const {
    const SPlaneBox& room = m_pProblem->Room();
    const double tolerance = m_pProblem->Tolerance();
    std::vector<SSector> taken;
    if (at.m_X < room.m_Low.m_X + tolerance) {
        taken.push_back({HALF_TURN / 2.0, HALF_TURN});
    }
    if (at.m_X > room.m_High.m_X - tolerance) {
        taken.push_back({1.5 * HALF_TURN, HALF_TURN});
    }
    if (at.m_Y < room.m_Low.m_Y + tolerance) {
        taken.push_back({HALF_TURN, HALF_TURN});
    }
    for (const SPlaced& placed : m_Placed) {
        AddInnerDirections(m_pProblem->ShapeOf(placed.m_Place.m_nVersion), at - placed.m_Place.m_At,
                           tolerance, taken);
    }
    return GapsBetween(std::move(taken));
}

std::optional<CCornerLayout::SCorner> CCornerLayout::FindLowestCorner() {
    for (size_t i = 0; i < m_Watched.size();) {
        const SPoint at = m_Watched[i];
        const std::vector<SSector> gaps = GapsAt(at);
        for (const SSector& gap : gaps) {
            if (gap.m_Width < HALF_TURN - SAME_ANGLE) {
                return SCorner{at, gap};
            }
        }
        // What is wider may become a corner once another piece touches it.
        if (gaps.empty()) {
            m_Watched.erase(m_Watched.begin() + static_cast<std::ptrdiff_t>(i));
        } else {
            ++i;
        }
    }
    return std::nullopt;
}

void CCornerLayout::Close(const SCorner& corner) {
    std::erase(m_Watched, corner.m_At);
}

bool CCornerLayout::HasRoomFor(const SPlace& place) const {
    const SPlaneBox box = m_pProblem->BoxOf(place);
    const double tolerance = m_pProblem->Tolerance();
    const SPoint within{tolerance, tolerance};
    return m_pProblem->Room().Contains(box.m_Low + within) &&
           m_pProblem->Room().Contains(box.m_High - within) &&
           std::none_of(m_Placed.begin(), m_Placed.end(),
                        [&](const SPlaced& placed) { return m_pProblem->DoOverlap(place, placed.m_Place); });
}

double CCornerLayout::ContactOf(const SPlace& place) const {
    const SCornerShape& shape = m_pProblem->ShapeOf(place.m_nVersion);
    // Both may be off by the tolerance.
    const double tolerance = 2.0 * m_pProblem->Tolerance();
    double contact = 0.0;
    for (const SCornerShape::SSide& side : shape.m_Sides) {
        const SPoint from = side.m_From + place.m_At;
        if (RunsAlong(m_pProblem->Room(), from, from + side.m_Along * side.m_Length, tolerance)) {
            contact += side.m_Length;
        }
    }
    for (const SPlaced& placed : m_Placed) {
        contact += nestrix::ContactOf(shape, m_pProblem->ShapeOf(placed.m_Place.m_nVersion),
                                      place.m_At - placed.m_Place.m_At, tolerance);
    }
    return contact;
}

double CCornerLayout::EmptyAreaBelow(double height) const {
    const SPlaneBox& room = m_pProblem->Room();
    double area = (room.m_High.m_X - room.m_Low.m_X) * (height - room.m_Low.m_Y);
    for (const SPlaced& placed : m_Placed) {
        area -= AreaBelow(m_pProblem->ShapeOf(placed.m_Place.m_nVersion), height - placed.m_Place.m_At.m_Y);
    }
    return area;
}

void CCornerLayout::Add(size_t nPiece, const SPlace& place) {
    m_Placed.push_back({nPiece, place});
    --m_Left[nPiece];
    for (const SCornerShape::SSide& side : m_pProblem->ShapeOf(place.m_nVersion).m_Sides) {
        Watch(side.m_From + place.m_At);
    }
}

void CCornerLayout::Watch(SPoint at) {
    const double tolerance = m_pProblem->Tolerance();
    const bool bWatched = std::any_of(m_Watched.begin(), m_Watched.end(), [&](SPoint known) {
        return GapOf({known, known}, {at, at}) < tolerance;
    });
    if (!bWatched) {
        const auto isLower = [](SPoint a, SPoint b) {
            return a.m_Y != b.m_Y ? a.m_Y < b.m_Y : a.m_X < b.m_X;
        };
        m_Watched.insert(std::upper_bound(m_Watched.begin(), m_Watched.end(), at, isLower), at);
    }
}

}  // namespace nestrix
