#include "nest/CTurnProgram.h"

#include <algorithm>

#include "nest/LinearProgram.h"

namespace nestrix {

namespace {

// Measured over instances and seeds: docs/packing-freely.md.

/// What a unit of mean height of the items costs, in units of height.
constexpr double FALL_COST = 0.001;

/// Points that are farther from a line than this share of what they may move and turn have no row.
constexpr double FAR_SHARE = 0.3;

/// Where a point goes when it begins to turn about 0, 0.
SPoint TurnedWay(SPoint point) {
    return {-point.m_Y, point.m_X};
}

/// An end of the edge whose outward normal this is, if there is one.
const SPoint* FindEdge(const CConvexPart& part, SPoint normal) {
    constexpr double PARALLEL = 1e-6;
    for (size_t i = 0; i < part.size(); ++i) {
        const SPoint along = part[(i + 1) % part.size()] - part[i];
        const double length = Length(along);
        if (Cross(along, normal) < 0.0 && std::abs(Dot(along, normal)) < PARALLEL * length) {
            return &part[i];
        }
    }
    return nullptr;
}

SPoint FarthestAlong(const CConvexPart& part, SPoint way) {
    return *std::max_element(part.begin(), part.end(),
                             [way](SPoint a, SPoint b) { return Dot(a, way) < Dot(b, way); });
}

}  // namespace

// The columns are three for each item that moves (the move along x, along y, and the turn as a length at the
// item's radius) and that of the height. All lengths are counted in reaches of moves.

CTurnProgram::CTurnProgram(const CPackProblem& problem, CExactParts& parts, std::span<const SPlace> places,
                           std::span<const size_t> items, const std::vector<bool>& mayTurn,
                           const SReach& reach)
    : m_Problem(problem),
      m_Parts(parts),
      m_Places(places),
      m_Reach(reach),
      m_Far(FAR_SHARE * (reach.m_Move + reach.m_Turn)),
      m_Items(places.size()),
      m_nMoving(items.size()),
      m_pSolver(MakeSolver()) {
    MeasureItems();
    AddColumns(items, mayTurn);
    CRows rows;
    for (const size_t nItem : items) {
        AddStrip(rows, nItem);
        AddNeighbours(rows, nItem);
    }
    rows.AddTo(*m_pSolver);
}

CTurnProgram::~CTurnProgram() = default;

void CTurnProgram::MeasureItems() {
    for (size_t nItem = 0; nItem < m_Items.size(); ++nItem) {
        const SPlace& place = m_Places[nItem];
        const SVersion& version = m_Problem.Versions()[place.m_nVersion];
        SItem& item = m_Items[nItem];
        item.m_Box = BoxAt({AsPoint(version.m_Box.m_Low), AsPoint(version.m_Box.m_High)}, place.m_At);
        for (const SGridPoint point : version.m_Shape.m_Outline) {
            item.m_Radius = std::max(item.m_Radius, Length(AsPoint(point)));
        }
    }
}

void CTurnProgram::AddColumns(std::span<const size_t> items, const std::vector<bool>& mayTurn) {
    CColumns columns;
    for (const size_t nItem : items) {
        const double turn = mayTurn[nItem] ? m_Reach.m_Turn / m_Reach.m_Move : 0.0;
        m_Items[nItem].m_nColumn = columns.Count();
        columns.Add(-1.0, 1.0, 0.0);
        columns.Add(-1.0, 1.0, FALL_COST / static_cast<double>(items.size()));
        columns.Add(-turn, turn, 0.0);
    }
    double fixedTop = 0.0;
    for (const SItem& item : m_Items) {
        if (item.m_nColumn == FIXED) {
            fixedTop = std::max(fixedTop, item.m_Box.m_High.m_Y);
        }
    }
    columns.Add(fixedTop / m_Reach.m_Move, COIN_DBL_MAX, 1.0);
    columns.AddTo(*m_pSolver);
}

/// How far a point of an item gets along a way, which may turn with it.
/// @param turn by how much for each radian.
void CTurnProgram::AddMotion(CRows& rows, size_t nItem, SPoint way, double turn) const {
    const SItem& item = m_Items[nItem];
    if (item.m_nColumn != FIXED) {
        rows.AddElement(item.m_nColumn, way.m_X);
        rows.AddElement(item.m_nColumn + 1, way.m_Y);
        rows.AddElement(item.m_nColumn + 2, turn / item.m_Radius);
    }
}

/// No point of an item leaves the strip, or is higher than that.
void CTurnProgram::AddStrip(CRows& rows, size_t nItem) const {
    const SGridStrip& strip = m_Problem.Strip();
    const SPoint low = AsPoint({strip.m_nMargin, strip.m_nMargin});
    const double right = static_cast<double>(strip.m_nWidth - strip.m_nMargin);
    const int nHeight = static_cast<int>(3 * m_nMoving);
    const SPlace& place = m_Places[nItem];
    const SVersion& version = m_Problem.Versions()[place.m_nVersion];
    const double top = m_Items[nItem].m_Box.m_High.m_Y;
    for (const SGridPoint point : HullOf(version.m_Shape.m_Outline)) {
        const SPoint at = AsPoint(point) + place.m_At;
        const SPoint turned = TurnedWay(AsPoint(point));
        const auto stayWithin = [&](SPoint way, double room) {
            if (room < m_Far) {
                AddMotion(rows, nItem, way, Dot(way, turned));
                rows.EndRow(-std::max(room, 0.0) / m_Reach.m_Move);
            }
        };
        stayWithin({1.0, 0.0}, at.m_X - low.m_X);
        stayWithin({-1.0, 0.0}, right - at.m_X);
        stayWithin({0.0, 1.0}, at.m_Y - low.m_Y);
        if (top - at.m_Y < m_Far) {
            rows.AddElement(nHeight, 1.0);
            AddMotion(rows, nItem, {0.0, -1.0}, -turned.m_Y);
            rows.EndRow(at.m_Y / m_Reach.m_Move);
        }
    }
}

void CTurnProgram::AddNeighbours(CRows& rows, size_t nItem) const {
    const double far = m_Far + static_cast<double>(m_Problem.Strip().m_nSpacing);
    for (size_t nOther = 0; nOther < m_Items.size(); ++nOther) {
        const bool bNew = nOther > nItem || m_Items[nOther].m_nColumn == FIXED;
        if (bNew && GapOf(m_Items[nItem].m_Box, m_Items[nOther].m_Box) < far) {
            AddParts(rows, nItem, nOther);
        }
    }
}

void CTurnProgram::AddParts(CRows& rows, size_t nFirst, size_t nSecond) const {
    const auto spacing = static_cast<double>(m_Problem.Strip().m_nSpacing);
    const CExactParts::SParts& firsts = m_Parts.Of(m_Places[nFirst].m_nVersion);
    const CExactParts::SParts& seconds = m_Parts.Of(m_Places[nSecond].m_nVersion);
    const SPoint at = m_Places[nFirst].m_At - m_Places[nSecond].m_At;
    for (const CExactParts::SPart& first : firsts.m_Parts) {
        const SPlaneBox box = BoxAt(first.m_Box, at);
        if (GapOf(box, seconds.m_Box) - spacing >= m_Far) {
            continue;
        }
        for (const CExactParts::SPart& second : seconds.m_Parts) {
            if (GapOf(box, second.m_Box) - spacing < m_Far) {
                const SHalfPlane side = FindFarthestSide(second.m_Part, first.m_Part, spacing, at);
                if (side.Outside(at) < m_Far) {
                    KeepApart(rows, {nFirst, nSecond, &first.m_Part, &second.m_Part, at, side.m_Normal});
                }
            }
        }
    }
}

/// The points of one part keep to their side of a line along an edge of the other. Of a line along no edge,
/// which spacing may ask for, it is said that it does not turn.
void CTurnProgram::KeepApart(CRows& rows, const SNeighbours& parts) const {
    if (const SPoint* const pEdge = FindEdge(*parts.m_pSecond, parts.m_Normal)) {
        for (const SPoint point : *parts.m_pFirst) {
            KeepApart(rows, parts, point, *pEdge, false, true);
        }
    } else if (const SPoint* const pOther = FindEdge(*parts.m_pFirst, -parts.m_Normal)) {
        for (const SPoint point : *parts.m_pSecond) {
            KeepApart(rows, parts, *pOther, point, true, false);
        }
    } else {
        KeepApart(rows, parts, FarthestAlong(*parts.m_pFirst, -parts.m_Normal),
                  FarthestAlong(*parts.m_pSecond, parts.m_Normal), false, false);
    }
}

/// @param first, second points of the two parts.
/// @param bTurnsWithFirst, bTurnsWithSecond which of them the line turns with.
void CTurnProgram::KeepApart(CRows& rows, const SNeighbours& parts, SPoint first, SPoint second,
                             bool bTurnsWithFirst, bool bTurnsWithSecond) const {
    const SPoint way = first + parts.m_At - second;
    const double room = Dot(parts.m_Normal, way) - static_cast<double>(m_Problem.Strip().m_nSpacing);
    if (room >= m_Far) {
        return;
    }
    const double lineTurn = Dot(TurnedWay(parts.m_Normal), way);
    AddMotion(rows, parts.m_nFirst, parts.m_Normal,
              Dot(parts.m_Normal, TurnedWay(first)) + (bTurnsWithFirst ? lineTurn : 0.0));
    AddMotion(rows, parts.m_nSecond, -parts.m_Normal,
              -Dot(parts.m_Normal, TurnedWay(second)) + (bTurnsWithSecond ? lineTurn : 0.0));
    rows.EndRow(-std::max(room, 0.0) / m_Reach.m_Move);
}

std::optional<std::vector<CTurnProgram::STurned>> CTurnProgram::Solve() {
    m_pSolver->dual();
    if (m_pSolver->status() != 0) {
        return std::nullopt;
    }
    const double* const pSolution = m_pSolver->primalColumnSolution();
    std::vector<STurned> turned(m_nMoving);
    for (const SItem& item : m_Items) {
        if (item.m_nColumn != FIXED) {
            const double* const pItem = pSolution + item.m_nColumn;
            turned[static_cast<size_t>(item.m_nColumn / 3)] = {SPoint{pItem[0], pItem[1]} * m_Reach.m_Move,
                                                               pItem[2] * m_Reach.m_Move / item.m_Radius};
        }
    }
    return turned;
}

}  // namespace nestrix
