#include "nest/CCornerFitter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace nestrix {

namespace {

/// Borders of more points are curves or ragged: few of their corners meet, and all are looked at.
constexpr size_t MOST_ITEMS = 200;
constexpr size_t MOST_POINTS = 32;

/// Layouts whose scores differ by less are the same, made in another way.
constexpr double SAME_SCORE = 1e-12;

// Measured over sheets cut into rectangles and letters: docs/packing-freely.md.
constexpr double LARGE_COUNTS = 1.0;
constexpr double EMPTY_COUNTS = 3.0;

}  // namespace

CCornerFitter::CCornerFitter(const CPackProblem& problem, CFieldTable& fields, CStepCounter& steps,
                             double tolerance, double height)
    : m_Problem(problem),
      m_Steps(steps),
      m_CornerProblem(problem, fields, tolerance * static_cast<double>(problem.Strip().m_nWidth), height) {}

bool CCornerFitter::IsWorthTrying(const CPackProblem& problem) {
    size_t nPoints = 0;
    for (const SVersion& version : problem.Versions()) {
        nPoints += version.m_Shape.m_Outline.size();
    }
    return problem.Strip().m_nSpacing == 0 && problem.Items().size() <= MOST_ITEMS &&
           nPoints <= MOST_POINTS * problem.Versions().size();
}

std::optional<CCornerFitter::SFit> CCornerFitter::Fit(size_t nLayouts) {
    std::vector<SBranch> branches{{CCornerLayout(m_CornerProblem)}};
    for (size_t nPlaced = 0; nPlaced < m_Problem.Items().size(); ++nPlaced) {
        m_Twigs.clear();
        for (size_t i = 0; i < branches.size(); ++i) {
            if (!m_Steps.Take()) {
                return std::nullopt;
            }
            Grow(branches[i], i);
        }
        if (m_Twigs.empty()) {
            break;
        }
        branches = BestOf(branches, nLayouts);
    }
    return Finished(branches.front());
}

/// Finds the pieces that fit the lowest corner, of those that any piece fits.
void CCornerFitter::Grow(SBranch& branch, size_t nBranch) {
    const size_t nBefore = m_Twigs.size();
    while (m_Twigs.size() == nBefore) {
        const std::optional<CCornerLayout::SCorner> corner = branch.m_Layout.FindLowestCorner();
        if (!corner) {
            return;
        }
        m_EmptyArea = branch.m_Layout.EmptyAreaBelow(corner->m_At.m_Y);
        for (size_t nPiece = 0; nPiece < m_Problem.Pieces().size(); ++nPiece) {
            if (branch.m_Layout.LeftOf(nPiece) > 0) {
                for (const size_t nVersion : m_Problem.MainVersionsOf(nPiece)) {
                    TryCorners(branch, nBranch, *corner, nVersion, nPiece);
                }
            }
        }
        if (m_Twigs.size() == nBefore) {
            branch.m_Layout.Close(*corner);
        }
    }
}

void CCornerFitter::TryCorners(const SBranch& branch, size_t nBranch, const CCornerLayout::SCorner& corner,
                               size_t nVersion, size_t nPiece) {
    const SCornerShape& shape = m_CornerProblem.ShapeOf(nVersion);
    for (const SCornerShape::SSide& side : shape.m_Sides) {
        const SPlace place{corner.m_At - side.m_From, nVersion};
        if (!IsWithin(side.m_Corner, corner.m_Gap) || !branch.m_Layout.HasRoomFor(place)) {
            continue;
        }
        const bool bFills = side.m_Corner.m_Width > corner.m_Gap.m_Width - SAME_ANGLE;
        STwig twig{nBranch,
                   nPiece,
                   place,
                   branch.m_Contact + branch.m_Layout.ContactOf(place),
                   branch.m_Perimeter + shape.m_Perimeter,
                   branch.m_Area + m_Problem.AreaOf(nPiece),
                   branch.m_nFilled + (bFills ? 1 : 0),
                   0.0};
        twig.m_Score = ScoreOf(branch, twig);
        m_Twigs.push_back(twig);
    }
}

double CCornerFitter::ScoreOf(const SBranch& branch, const STwig& twig) const {
    // Of the borders, those that touch; of the pieces, those that fill their corners; of all area, what is
    // placed, and what stays empty.
    return twig.m_Contact / twig.m_Perimeter +
           twig.m_nFilled / static_cast<double>(branch.m_Layout.Placed().size() + 1) +
           (LARGE_COUNTS * twig.m_Area - EMPTY_COUNTS * m_EmptyArea) / m_Problem.TotalArea();
}

/// The branches that the best twigs make, each once.
std::vector<CCornerFitter::SBranch> CCornerFitter::BestOf(const std::vector<SBranch>& branches,
                                                          size_t nMost) {
    std::stable_sort(m_Twigs.begin(), m_Twigs.end(),
                     [](const STwig& a, const STwig& b) { return a.m_Score > b.m_Score; });
    std::vector<SBranch> best;
    double last = HUGE_VAL;
    for (const STwig& twig : m_Twigs) {
        if (best.size() == nMost) {
            break;
        }
        if (twig.m_Score > last - SAME_SCORE) {
            continue;
        }
        last = twig.m_Score;
        best.push_back({branches[twig.m_nBranch].m_Layout, twig.m_Contact, twig.m_Perimeter, twig.m_Area,
                        twig.m_nFilled});
        best.back().m_Layout.Add(twig.m_nPiece, twig.m_Place);
    }
    return best;
}

CCornerFitter::SFit CCornerFitter::Finished(const SBranch& branch) const {
    std::vector<CCornerLayout::SPlaced> placed = branch.m_Layout.Placed();
    SFit fit{{},
             branch.m_nFilled / static_cast<double>(std::max<size_t>(m_Problem.Items().size(), 1)),
             placed.size() == m_Problem.Items().size()};
    double top = m_CornerProblem.Room().m_Low.m_Y;
    for (const CCornerLayout::SPlaced& item : placed) {
        top = std::max(top, m_CornerProblem.BoxOf(item.m_Place).m_High.m_Y);
    }
    for (size_t nPiece = 0; nPiece < m_Problem.Pieces().size(); ++nPiece) {
        for (int i = branch.m_Layout.LeftOf(nPiece); i > 0; --i) {
            const size_t nVersion = m_Problem.MainVersionsOf(nPiece).front();
            const SPlaneBox& box = m_CornerProblem.ShapeOf(nVersion).m_Box;
            const SPoint corner{m_CornerProblem.Room().m_Low.m_X, top};
            placed.push_back({nPiece, {corner - box.m_Low, nVersion}});
            top += box.m_High.m_Y - box.m_Low.m_Y;
        }
    }
    // The items of the problem are in the order of their pieces.
    std::stable_sort(placed.begin(), placed.end(),
                     [](const auto& a, const auto& b) { return a.m_nPiece < b.m_nPiece; });
    for (const CCornerLayout::SPlaced& item : placed) {
        const SPoint at = item.m_Place.m_At;
        fit.m_Places.push_back({{std::round(at.m_X), std::round(at.m_Y)}, item.m_Place.m_nVersion});
    }
    return fit;
}

}  // namespace nestrix
