#include "nest/CPairField.h"

#include <algorithm>
#include <limits>

#include "nest/ForbiddenBorder.h"

namespace nestrix {

namespace {

constexpr double CELLS_PER_EDGE = 16.0;
constexpr double FEWEST_CELLS = 144.0;
constexpr double MOST_CELLS = 2000.0;

/// Where two edges meet, both are at the same distance from the points around; the one whose line is farther
/// off knows on which side of the border they are. So it is made to look nearer, by this share of the square
/// of its line's distance.
constexpr double PREFERENCE = 1e-9;

}  // namespace

/// Distributes the edges among the cells: halves the plane again and again, and keeps for each half the edges
/// that can be nearest to some point of it.
class CPairField::CCellFiller {
public:
    explicit CCellFiller(CPairField& field) : m_Field(field) {
        const size_t nCells = field.IndexOf(field.m_nColumns, field.m_nRows) + 1;
        m_Field.m_Least.assign(nCells, 0.0F);
        m_Field.m_Cells.assign(nCells, {0, 0});
    }

    void Fill() {
        std::vector<uint16_t> all(m_Field.m_Edges.size());
        for (size_t i = 0; i < all.size(); ++i) {
            all[i] = static_cast<uint16_t>(i);
        }
        Fill({0, 0, m_Field.m_nColumns, m_Field.m_nRows}, all);
    }

private:
    struct SBlock {
        int m_nLeft, m_nBottom, m_nRight, m_nTop;  ///< right and top excluded

        [[nodiscard]] int Width() const { return m_nRight - m_nLeft; }
        [[nodiscard]] int Height() const { return m_nTop - m_nBottom; }
    };

    void Fill(const SBlock& block, std::span<const uint16_t> edges) {
        const double cell = 1.0 / m_Field.m_CellsPerUnit;
        const SPoint middle = m_Field.m_Box.m_Low + SPoint{cell * (block.m_nLeft + block.m_nRight) / 2.0,
                                                           cell * (block.m_nBottom + block.m_nTop) / 2.0};
        const double radius = cell / 2.0 * Length({1.0 * block.Width(), 1.0 * block.Height()}) * ROUNDED_UP;
        const SNearest nearest = m_Field.FindNearest(middle, edges);
        const double distance = std::sqrt(nearest.m_Square);
        if (nearest.m_Side <= 0.0 && distance > radius) {
            return;  // nothing is forbidden here
        }
        const double farthest = distance + 2.0 * radius;
        std::vector<uint16_t> near;
        for (const uint16_t nEdge : edges) {
            if (SquareOfDistance(m_Field.m_Edges[nEdge], middle) <= farthest * farthest) {
                near.push_back(nEdge);
            }
        }
        if (block.Width() == 1 && block.Height() == 1) {
            const size_t nCell = m_Field.IndexOf(block.m_nLeft, block.m_nBottom);
            const double least = nearest.m_Side > 0.0 ? std::max(distance - radius, 0.0) : 0.0;
            m_Field.m_Least[nCell] = static_cast<float>(least * ROUNDED_DOWN);
            m_Field.m_Cells[nCell] = {static_cast<uint32_t>(near.size()),
                                      static_cast<uint32_t>(m_Field.m_Lists.size())};
            m_Field.m_Lists.insert(m_Field.m_Lists.end(), near.begin(), near.end());
        } else if (block.Width() >= block.Height()) {
            const int nMiddle = (block.m_nLeft + block.m_nRight) / 2;
            Fill({block.m_nLeft, block.m_nBottom, nMiddle, block.m_nTop}, near);
            Fill({nMiddle, block.m_nBottom, block.m_nRight, block.m_nTop}, near);
        } else {
            const int nMiddle = (block.m_nBottom + block.m_nTop) / 2;
            Fill({block.m_nLeft, block.m_nBottom, block.m_nRight, nMiddle}, near);
            Fill({block.m_nLeft, nMiddle, block.m_nRight, block.m_nTop}, near);
        }
    }

    static double SquareOfDistance(const SBorderEdge& edge, SPoint at) {
        const SPoint from = at - edge.m_From;
        const double along = Dot(from, edge.m_Along);
        const double side = Cross(edge.m_Along, from);
        const double beyond = along < 0.0 ? along : std::max(along - edge.m_Length, 0.0);
        return side * side + beyond * beyond;
    }

    static constexpr double ROUNDED_UP = 1.0001;
    static constexpr double ROUNDED_DOWN = 0.9999;

    CPairField& m_Field;
};

CPairField::CPairField(std::span<const CConvexPart> stays, std::span<const CConvexPart> moves,
                       double outward) {
    std::vector<SForbiddenRegion> regions;
    regions.reserve(stays.size() * moves.size());
    for (const CConvexPart& other : stays) {
        for (const CConvexPart& own : moves) {
            regions.push_back(FindForbiddenRegion(other, own, outward));
            m_Box.Include(regions.back().m_Box.m_Low);
            m_Box.Include(regions.back().m_Box.m_High);
        }
    }
    m_Edges = FindBorder(regions);
    // No more can be numbered in the lists. A border without the rest still guides a search, and what it
    // finds is certified.
    if (m_Edges.size() > std::numeric_limits<uint16_t>::max()) {
        m_Edges.resize(std::numeric_limits<uint16_t>::max());
    }
    CutIntoCells();
}

void CPairField::CutIntoCells() {
    if (m_Edges.empty()) {
        m_Least.assign(IndexOf(0, 0) + 1, 0.0F);
        m_Cells.assign(1, {0, 0});
        return;
    }
    const SPoint size = m_Box.m_High - m_Box.m_Low;
    const double wanted =
        std::clamp(CELLS_PER_EDGE * static_cast<double>(m_Edges.size()), FEWEST_CELLS, MOST_CELLS);
    const double cell = std::sqrt(size.m_X * size.m_Y / wanted);
    m_CellsPerUnit = 1.0 / cell;
    m_nColumns = std::max(1, static_cast<int>(std::ceil(size.m_X / cell)));
    m_nRows = std::max(1, static_cast<int>(std::ceil(size.m_Y / cell)));
    CCellFiller(*this).Fill();
}

SLeastDepths CPairField::LeastDepths(SDirection direction, SPoint origin, double factor) const {
    const double cosine = direction.m_Cosine * m_CellsPerUnit;
    const double sine = direction.m_Sine * m_CellsPerUnit;
    // The surrounding cells come first: one on.
    const double fromColumn =
        1.0 - cosine * origin.m_X - sine * origin.m_Y - m_Box.m_Low.m_X * m_CellsPerUnit;
    const double fromRow = 1.0 + sine * origin.m_X - cosine * origin.m_Y - m_Box.m_Low.m_Y * m_CellsPerUnit;
    return {.m_pCells = m_Least.data(),
            .m_nColumns = m_nColumns + 2,
            .m_fCosine = static_cast<float>(cosine),
            .m_fSine = static_cast<float>(sine),
            .m_fColumn = static_cast<float>(fromColumn),
            .m_fRow = static_cast<float>(fromRow),
            .m_fLastColumn = static_cast<float>(m_nColumns + 1),
            .m_fLastRow = static_cast<float>(m_nRows + 1),
            .m_fFactor = static_cast<float>(factor)};
}

CPairField::SNearest CPairField::FindNearest(SPoint at, std::span<const uint16_t> edges) const {
    SNearest nearest{nullptr, HUGE_VAL, 0.0};
    for (const uint16_t nEdge : edges) {
        const SBorderEdge& edge = m_Edges[nEdge];
        const SPoint from = at - edge.m_From;
        const double along = Dot(from, edge.m_Along);
        const double side = Cross(edge.m_Along, from);
        const double beyond = std::min(along, 0.0) + std::max(along - edge.m_Length, 0.0);
        const double square = side * side * (1.0 - PREFERENCE) + beyond * beyond;
        if (square < nearest.m_Square) {
            nearest = {&edge, square, side};
        }
    }
    return nearest;
}

SDepth CPairField::FindWayOut(SPoint at) const {
    const std::span<const uint16_t> edges = EdgesOf(m_Cells[CellAt(at)]);
    if (edges.empty()) {
        return {};
    }
    const SNearest nearest = FindNearest(at, edges);
    if (nearest.m_Side <= 0.0) {
        return {};
    }
    const SBorderEdge& edge = *nearest.m_pEdge;
    const double along = std::clamp(Dot(at - edge.m_From, edge.m_Along), 0.0, edge.m_Length);
    const SPoint way = edge.m_From + edge.m_Along * along - at;
    const double length = Length(way);
    // On the border the way has no length: across the edge, then.
    const SPoint out = length > 0.5 ? way * (1.0 / length) : SPoint{edge.m_Along.m_Y, -edge.m_Along.m_X};
    return {std::sqrt(nearest.m_Square), out};
}

}  // namespace nestrix
