#include "nest/CPackProblem.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "certify/Certify.h"
#include "nest/ConvexParts.h"
#include "nest/SameLooks.h"
#include "nest/Simplify.h"

namespace nestrix {

namespace {

/// The search works with outlines of at most so many points, if they can be had by leaving out what differs
/// by less than a share of the piece's size (the square root of its area). What that takes or adds, the
/// compaction puts right.
constexpr size_t SIMPLE_POINTS = 28;
constexpr double LEAST_SIMPLIFIED_SHARE = 0.0015;
constexpr double MOST_SIMPLIFIED_SHARE = 0.012;

/// Fields take time that grows with the fourth power of the points: with more than this, several seconds. So
/// ragged outlines are simplified further, and those with deep gaps stand for their hulls.
constexpr size_t MOST_POINTS = 100;
constexpr double MOST_RAGGED_SHARE = 0.2;

void Move(SGridShape& shape, SGridPoint by) {
    const auto moveRing = [by](CGridRing& ring) {
        for (SGridPoint& point : ring) {
            point = point + by;
        }
    };
    moveRing(shape.m_Outline);
    std::for_each(shape.m_Holes.begin(), shape.m_Holes.end(), moveRing);
}

SGridPoint Negative(SGridPoint point) {
    return {-point.m_nX, -point.m_nY};
}

SGridPoint MiddleOf(const SGridBox& box) {
    return {box.m_Low.m_nX + box.Width() / 2, box.m_Low.m_nY + box.Height() / 2};
}

/// A single point as it is laid.
SGridPoint Laid(SGridPoint point, double degrees, bool bMirrored) {
    return Laid(SGridShape{{point}, {}}, degrees, bMirrored).m_Outline.front();
}

size_t CountPoints(const SGridShape& shape) {
    size_t nPoints = shape.m_Outline.size();
    for (const CGridRing& hole : shape.m_Holes) {
        nPoints += hole.size();
    }
    return nPoints;
}

SGridShape SimplifiedForSearch(const SGridShape& shape, double area) {
    const double size = std::sqrt(area);
    SGridShape simple = shape;
    for (double share = LEAST_SIMPLIFIED_SHARE; CountPoints(simple) > SIMPLE_POINTS; share *= 2.0) {
        const size_t nPoints = CountPoints(simple);
        if (share > (nPoints > MOST_POINTS ? MOST_RAGGED_SHARE : MOST_SIMPLIFIED_SHARE)) {
            break;
        }
        simple = Simplified(shape, share * size);
    }
    if (CountPoints(simple) <= MOST_POINTS) {
        return simple;
    }
    return Simplified({HullOf(shape.m_Outline), {}}, MOST_SIMPLIFIED_SHARE * size);
}

double GridAreaOf(const SGridShape& shape) {
    CInt128 area = TwiceArea(shape.m_Outline);
    for (const CGridRing& hole : shape.m_Holes) {
        area += TwiceArea(hole);
    }
    return static_cast<double>(area) / 2.0;
}

/// Whether an earlier packing, if there is one, laid a piece like this.
bool IsUsedBy(const SFreePacking* pStart, int nPiece, double degrees, bool bMirrored) {
    return pStart != nullptr && std::any_of(pStart->m_Placed.begin(), pStart->m_Placed.end(),
                                            [&](const SFreePlacement& placement) {
                                                return placement.m_nPiece == nPiece &&
                                                       placement.m_bMirrored == bMirrored &&
                                                       NormalisedTurn(placement.m_Degrees) == degrees;
                                            });
}

/// Adds the turns in which an earlier packing laid a piece.
void AddEarlierTurns(const SFreePacking& start, int nPiece, bool bMirrored, STurnsToTry& turns) {
    for (const SFreePlacement& placement : start.m_Placed) {
        if (placement.m_nPiece != nPiece || placement.m_bMirrored != bMirrored ||
            !std::isfinite(placement.m_Degrees)) {
            continue;
        }
        const STurnsToTry absolute{placement.m_Degrees, {}};
        const double step = absolute.DegreesOf(-turns.m_Base);
        if (std::find(turns.m_Steps.begin(), turns.m_Steps.end(), step) == turns.m_Steps.end()) {
            turns.m_Steps.push_back(step);
        }
    }
}

}  // namespace

CPackProblem::CPackProblem(std::span<const SPiece> pieces, const SFreeStrip& strip, bool bUseHoles,
                           const SFreePacking* pStart)
    : m_Pieces(pieces),
      m_Strip(strip),
      m_Grid(GridFor(strip.m_Width)),
      m_GridStrip(OnGrid(strip, m_Grid)),
      m_Slack(static_cast<double>(m_GridStrip.m_nWidth) * 0x1p-22),
      m_bUseHoles(bUseHoles),
      m_eBase(FindBase(pieces, m_Grid)) {
    for (size_t nPiece = 0; nPiece < pieces.size(); ++nPiece) {
        AddPiece(nPiece, pStart);
        m_MainVersionsOf.push_back(FindMainVersions(nPiece));
    }
}

void CPackProblem::AddPiece(size_t nPiece, const SFreePacking* pStart) {
    const SPiece& piece = m_Pieces[nPiece];
    m_VersionsOf.emplace_back();
    m_Areas.push_back(0.0);
    if (piece.m_nQuantity <= 0) {
        return;
    }
    AddVersions(nPiece, false, m_eBase, pStart);
    if (piece.m_bMirrored) {
        AddVersions(nPiece, true, m_eBase, pStart);
    }
    if (m_VersionsOf[nPiece].empty()) {  // none of those fits; one of these does
        AddVersions(nPiece, false, EBase::LONGEST_SIDE, pStart);
    }
    // On the grid, so that it does not depend on where the piece was drawn.
    m_Areas[nPiece] = GridAreaOf(Cleaned(OnGrid(piece.m_Shape, m_Grid)));
    m_Items.insert(m_Items.end(), static_cast<size_t>(piece.m_nQuantity), nPiece);
    m_TotalArea += m_Areas[nPiece] * piece.m_nQuantity;
}

void CPackProblem::AddVersions(size_t nPiece, bool bMirrored, EBase eBase, const SFreePacking* pStart) {
    const SPiece& piece = m_Pieces[nPiece];
    SGridShape drawn = OnGrid(piece.m_Shape, m_Grid);
    if (!m_bUseHoles) {
        drawn.m_Holes.clear();
    }
    const SGridPoint middle = MiddleOf(BoxOf(drawn.m_Outline));
    const int64_t nRoom = m_GridStrip.m_nWidth - 2 * m_GridStrip.m_nMargin;
    STurnsToTry turns = FindTurnsToTry(piece, bMirrored, m_Grid, nRoom, eBase);
    if (pStart != nullptr && piece.m_Turns.m_bAny) {
        AddEarlierTurns(*pStart, static_cast<int>(nPiece), bMirrored, turns);
    }
    SGridShape figure = Cleaned(nestrix::Laid(drawn, turns.m_Base, bMirrored));
    Move(figure, Negative(Laid(middle, turns.m_Base, bMirrored)));
    const size_t nFigure = FindFigure(figure);
    for (const double step : turns.m_Steps) {
        const double degrees = turns.DegreesOf(step);
        const SGridShape laid = nestrix::Laid(drawn, degrees, bMirrored);
        if (!IsSound(laid)) {
            continue;  // where it touches itself, rounding has put it across itself
        }
        SVersion version{
            nFigure, FindTurn(step), bMirrored, degrees, Cleaned(laid), Laid(middle, degrees, bMirrored), {}};
        Move(version.m_Shape, Negative(version.m_Reference));
        version.m_Box = BoxOf(version.m_Shape.m_Outline);
        if (version.m_Box.Width() <= nRoom) {
            AddVersion(nPiece, std::move(version),
                       IsUsedBy(pStart, static_cast<int>(nPiece), degrees, bMirrored));
        }
    }
}

void CPackProblem::AddVersion(size_t nPiece, SVersion version, bool bInAnyCase) {
    std::vector<size_t>& versions = m_VersionsOf[nPiece];
    const bool bKnown = !bInAnyCase && std::any_of(versions.begin(), versions.end(), [&](size_t nVersion) {
        return LookTheSame(m_Versions[nVersion], version);
    });
    if (!bKnown) {
        versions.push_back(m_Versions.size());
        m_Versions.push_back(std::move(version));
    }
}

std::vector<size_t> CPackProblem::FindMainVersions(size_t nPiece) const {
    const std::vector<size_t>& all = m_VersionsOf[nPiece];
    std::vector<size_t> main;
    std::copy_if(all.begin(), all.end(), std::back_inserter(main), [this](size_t nVersion) {
        return std::fmod(m_Turns[m_Versions[nVersion].m_nTurn], 90.0) == 0.0;
    });
    return m_Pieces[nPiece].m_Turns.m_bAny && !main.empty() ? main : all;
}

size_t CPackProblem::FindFigure(const SGridShape& shape) {
    const auto isSame = [&](const SFigure& figure) {
        return figure.m_Shape.m_Outline == shape.m_Outline && figure.m_Shape.m_Holes == shape.m_Holes;
    };
    const auto found = std::find_if(m_Figures.begin(), m_Figures.end(), isSame);
    if (found == m_Figures.end()) {
        const double area = GridAreaOf(shape);
        m_Figures.push_back({shape, ConvexPartsOf(SimplifiedForSearch(shape, area)), area});
        return m_Figures.size() - 1;
    }
    return static_cast<size_t>(found - m_Figures.begin());
}

size_t CPackProblem::FindTurn(double degrees) {
    const auto found = std::find(m_Turns.begin(), m_Turns.end(), degrees);
    if (found == m_Turns.end()) {
        m_Turns.push_back(degrees);
        return m_Turns.size() - 1;
    }
    return static_cast<size_t>(found - m_Turns.begin());
}

std::optional<size_t> CPackProblem::FindVersion(size_t nPiece, double degrees, bool bMirrored) const {
    const double normalised = NormalisedTurn(degrees);
    for (const size_t nVersion : m_VersionsOf[nPiece]) {
        if (m_Versions[nVersion].m_Degrees == normalised && m_Versions[nVersion].m_bMirrored == bMirrored) {
            return nVersion;
        }
    }
    return std::nullopt;
}

bool CPackProblem::HasAnyTurn() const {
    return std::any_of(m_Items.begin(), m_Items.end(),
                       [this](size_t nPiece) { return m_Pieces[nPiece].m_Turns.m_bAny; });
}

int64_t CPackProblem::LeastHeight() const {
    const double width = static_cast<double>(m_GridStrip.m_nWidth - 2 * m_GridStrip.m_nMargin);
    double area = 0.0;
    int64_t nTallest = 0;
    for (const size_t nPiece : m_Items) {
        int64_t nLowest = std::numeric_limits<int64_t>::max();
        for (const size_t nVersion : m_VersionsOf[nPiece]) {
            nLowest = std::min(nLowest, m_Versions[nVersion].m_Box.Height());
        }
        if (!m_Pieces[nPiece].m_Turns.m_bAny) {  // in a turn that was not tried it may lie lower
            nTallest = std::max(nTallest, nLowest);
        }
        area += m_Figures[m_Versions[m_VersionsOf[nPiece].front()].m_nFigure].m_Area;
    }
    return m_GridStrip.m_nMargin + std::max(nTallest, static_cast<int64_t>(area / width));
}

SFreePlacement CPackProblem::PlacementOf(size_t nItem, size_t nVersion, SGridPoint at) const {
    const SVersion& version = m_Versions[nVersion];
    return {static_cast<int>(m_Items[nItem]), version.m_bMirrored, version.m_Degrees,
            at - version.m_Reference};
}

SFreePacking CPackProblem::PackingOf(std::span<const SFreePlacement> placed) const {
    SFreePacking packing{m_Strip, m_Grid, {placed.begin(), placed.end()}, 0};
    packing.m_nHeight = HeightOf(PlacedShapes(m_Pieces, packing));
    return packing;
}

}  // namespace nestrix
