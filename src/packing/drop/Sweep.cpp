#include "packing/drop/Sweep.h"

#include <algorithm>
#include <array>
#include <bit>

#include "packing/drop/Gaps.h"

namespace nestrix {

namespace {

/// The points of one half at their place: those that fall.
struct SMovedPoints {
    const SProfilePoints& m_Points;
    float m_fX;
    float m_fY;

    [[nodiscard]] float X(size_t nPoint) const { return m_Points.m_X[nPoint] + m_fX; }
    [[nodiscard]] float Y(size_t nPoint) const { return m_Points.m_Y[nPoint] + m_fY; }

    /// Which of the four points from nPoint on lie in both ranges, bounds included.
    [[nodiscard]] unsigned int FindInside(size_t nPoint, const SRange& x, const SRange& y) const {
        const FloatLanes xs = LoadLanes(&m_Points.m_X[nPoint]) + m_fX;
        const FloatLanes ys = LoadLanes(&m_Points.m_Y[nPoint]) + m_fY;
        return BitsOf((xs >= x.m_fLow) & (xs <= x.m_fHigh) & (ys >= y.m_fLow) & (ys <= y.m_fHigh));
    }
};

/// Which of its two ends in x an edge starts at: upper profiles run left, lower ones run right.
enum class EStart { Low, High };

/// The edges of one half at their place: those that the points fall on.
template <EStart START>
class CMovedEdges {
public:
    CMovedEdges(const SProfileEdges& edges, float fX, float fY, float fMargin, const SRange& y)
        : m_Edges(edges),
          m_fX(fX),
          m_fY(fY),
          m_CellOffset{fY - fMargin, fY + fMargin},
          m_SpanX{edges.m_LowX.front() + fX, edges.m_fRight + fX},
          m_SpanY(y) {}

    [[nodiscard]] bool HasCells() const { return !m_Edges.m_Cells.empty(); }

    /// Where a point with a gap below fCut must lie.
    [[nodiscard]] const SRange& SpanX() const { return m_SpanX; }
    [[nodiscard]] SRange CandidateY(float fCut) const { return {m_SpanY.m_fLow, m_SpanY.m_fHigh + fCut}; }

    /// The cell at x, which lies in SpanX.
    [[nodiscard]] size_t CellAt(float fX) const {
        const float fCell = (fX - m_SpanX.m_fLow) * m_Edges.m_fCellsPerUnit;
        return static_cast<uint32_t>(std::clamp(fCell, 0.0F, m_Edges.m_fLastCell));
    }

    /// Whether a point in the cell may have a gap below fCut.
    [[nodiscard]] bool MayBeatCut(size_t nCell, float fY, float fCut) const {
        const SProfileCell& cell = m_Edges.m_Cells[nCell];
        // Without a branch: nobody could foresee it.
        return (fY >= cell.m_fLow + m_CellOffset.m_fLow) & (fY <= cell.m_fHigh + m_CellOffset.m_fHigh + fCut);
    }

    /// The smallest gap below a point, or fCut: by cells, four edges side by side.
    [[nodiscard]] float FindGapInCell(float fX, float fY, size_t nCell, float fCut) const {
        FloatLanes gaps = FloatLanes{} + fCut;
        size_t nEdge = m_Edges.m_FirstInCell[nCell];
        do {
            const FloatLanes low = LoadLanes(&m_Edges.m_LowX[nEdge]) + m_fX;
            const FloatLanes high = LoadLanes(&m_Edges.m_HighX[nEdge]) + m_fX;
            const SEdgeLanes edges{low, high, START == EStart::Low ? low : high,
                                   LoadLanes(&m_Edges.m_StartY[nEdge]) + m_fY, &m_Edges.m_Slopes[nEdge]};
            const FloatLanes met = GapsBelow(FloatLanes{} + fX, FloatLanes{} + fY, edges);
            gaps = met < gaps ? met : gaps;
            nEdge += LANES;
        } while (m_Edges.m_LowX[nEdge] + m_fX <= fX);
        return Smallest(gaps);
    }

    /// The smallest gap below a point, or fCut: one edge after the other.
    [[nodiscard]] float FindGapOneByOne(float fX, float fY, float fCut) const {
        for (size_t nEdge = CountLeftOf(fX); m_Edges.m_LowX[nEdge] + m_fX <= fX; ++nEdge) {
            const float fLow = m_Edges.m_LowX[nEdge] + m_fX;
            const float fHigh = m_Edges.m_HighX[nEdge] + m_fX;
            if (fHigh >= fX) {
                const float fStart = START == EStart::Low ? fLow : fHigh;
                const double along = static_cast<double>(fX) - static_cast<double>(fStart);
                const double height =
                    static_cast<double>(m_Edges.m_StartY[nEdge] + m_fY) + m_Edges.m_Slopes[nEdge] * along;
                if (static_cast<double>(fY) >= height) {
                    fCut = std::min(fCut, fY - static_cast<float>(height));
                }
            }
        }
        return fCut;
    }

private:
    /// How many edges lie wholly to the left of x, and before the first one that gets to it.
    [[nodiscard]] size_t CountLeftOf(float fX) const {
        size_t nCount = 0;
        for (size_t i = 0; i < m_Edges.m_nCount; i += LANES) {
            // They ascend, so the bits of those to the left come first.
            const unsigned int nLeft = BitsOf(LoadLanes(&m_Edges.m_RightsSoFar[i]) + m_fX < fX);
            nCount += static_cast<size_t>(std::countr_one(nLeft));
        }
        return nCount;
    }

    const SProfileEdges& m_Edges;
    float m_fX;
    float m_fY;
    SRange m_CellOffset;  ///< turns a cell's bounds into bounds in the strip
    SRange m_SpanX;
    SRange m_SpanY;
};

/// The smallest gap below fCut between points and few edges.
template <class TEdges>
float SweepFewEdges(const SMovedPoints& points, const TEdges& edges, float fCut) {
    for (size_t nFirst = 0; nFirst < points.m_Points.m_nCount; nFirst += LANES) {
        unsigned int nRemaining = points.FindInside(nFirst, edges.SpanX(), edges.CandidateY(fCut));
        for (; nRemaining != 0; nRemaining &= nRemaining - 1) {
            const size_t nPoint = nFirst + static_cast<size_t>(std::countr_zero(nRemaining));
            fCut = edges.FindGapOneByOne(points.X(nPoint), points.Y(nPoint), fCut);
        }
    }
    return fCut;
}

constexpr size_t CHUNK = 64;

/// The same for up to CHUNK points from nFirst on, and many edges. The lowest point in range narrows the gap;
/// the others are sifted with the bounds of their cells, without a branch, before any edge is looked at.
template <class TEdges>
float SweepChunk(const SMovedPoints& points, size_t nFirst, const TEdges& edges, float fCut) {
    const size_t nEnd = std::min(points.m_Points.m_nCount, nFirst + CHUNK);
    const SRange candidateY = edges.CandidateY(fCut);
    uint64_t nRemaining = 0;
    for (size_t nPoint = nFirst; nPoint < nEnd; nPoint += LANES) {
        nRemaining |= uint64_t{points.FindInside(nPoint, edges.SpanX(), candidateY)} << (nPoint - nFirst);
    }
    if (nRemaining == 0) {
        return fCut;
    }
    struct SCandidate {
        float m_fX;
        float m_fY;
        size_t m_nCell;
    };
    const auto nextCandidate = [&] {
        const size_t nPoint = nFirst + static_cast<size_t>(std::countr_zero(nRemaining));
        return SCandidate{points.X(nPoint), points.Y(nPoint), edges.CellAt(points.X(nPoint))};
    };
    const SCandidate lowest = nextCandidate();
    fCut = edges.FindGapInCell(lowest.m_fX, lowest.m_fY, lowest.m_nCell, fCut);
    std::array<SCandidate, CHUNK> candidates;
    size_t nCandidates = 0;
    for (nRemaining &= nRemaining - 1; nRemaining != 0; nRemaining &= nRemaining - 1) {
        const SCandidate next = nextCandidate();
        candidates[nCandidates] = next;
        nCandidates += edges.MayBeatCut(next.m_nCell, next.m_fY, fCut) ? 1 : 0;
    }
    for (size_t i = 0; i < nCandidates; ++i) {
        fCut = edges.FindGapInCell(candidates[i].m_fX, candidates[i].m_fY, candidates[i].m_nCell, fCut);
    }
    return fCut;
}

/// The smallest gap below fCut between points and the edges below them.
template <class TEdges>
float Sweep(const SMovedPoints& points, const TEdges& edges, float fCut, const CRelaxed<bool>* pAbandoned) {
    if (!edges.HasCells()) {
        return SweepFewEdges(points, edges, fCut);
    }
    size_t nFirst = 0;
    do {
        fCut = SweepChunk(points, nFirst, edges, fCut);
        nFirst += CHUNK;
    } while (nFirst < points.m_Points.m_nCount && !IsMade(pAbandoned));
    return fCut;
}

}  // namespace

// Flattened: 1 to 3 % of a layout, measured.
[[gnu::flatten]] float FindGap(const SMovedHalf& front, const SMovedHalf& back, float fCut,
                               const CRelaxed<bool>* pAbandoned) {
    if (back.m_Half.m_Edges.m_nCount != 0) {
        const CMovedEdges<EStart::High> edges(back.m_Half.m_Edges, back.m_fX, back.m_fY, back.m_fMargin,
                                              back.m_Y);
        fCut = Sweep({front.m_Half.m_Points, front.m_fX, front.m_fY}, edges, fCut, pAbandoned);
    }
    if (front.m_Half.m_Edges.m_nCount != 0) {
        const CMovedEdges<EStart::Low> edges(front.m_Half.m_Edges, front.m_fX, -front.m_fY, front.m_fMargin,
                                             {-front.m_Y.m_fHigh, -front.m_Y.m_fLow});
        fCut = Sweep({back.m_Half.m_Points, back.m_fX, -back.m_fY}, edges, fCut, pAbandoned);
    }
    return fCut;
}

}  // namespace nestrix
