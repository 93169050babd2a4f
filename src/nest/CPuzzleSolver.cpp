#include "nest/CPuzzleSolver.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "nest/CCornerFitter.h"
#include "nest/FirstPacking.h"

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md.

/// What rounding may have taken from the drawings, as a share of the strip's width: nothing much, or more.
constexpr double TOLERANCES[] = {1e-5, 1e-4};

/// How many layouts are followed side by side, and what share of the pieces must have filled their corners
/// for more of them.
constexpr size_t LAYOUTS[] = {10, 100};
constexpr double LIKE_A_PUZZLE = 0.9;

/// What still overlaps in a layout is taken apart with so much patience; the first packing that is higher by
/// less than this share is good enough.
constexpr SPatience SEPARATING{40, 1};
constexpr double HIGHEST_RISE = 0.01;

}  // namespace

CPuzzleSolver::CPuzzleSolver(const CPackProblem& problem, CFieldTable& fields, CPackingFinder& finder,
                             CStepCounter& steps, CTake take)
    : m_Problem(problem), m_Fields(fields), m_Finder(finder), m_Steps(steps), m_Take(std::move(take)) {}

void CPuzzleSolver::Solve() {
    if (!CCornerFitter::IsWorthTrying(m_Problem)) {
        return;
    }
    for (const size_t nLayouts : LAYOUTS) {
        double filled = 0.0;
        for (const double tolerance : TOLERANCES) {
            filled = std::max(filled, Fit(nLayouts, tolerance));
        }
        if (filled < LIKE_A_PUZZLE) {
            return;
        }
    }
}

/// @return the share of the items that filled their corners.
double CPuzzleSolver::Fit(size_t nLayouts, double tolerance) {
    const auto fit = CCornerFitter(m_Problem, m_Fields, m_Steps, tolerance).Fit(nLayouts);
    if (!fit) {
        return 0.0;
    }
    const SSolution fitted{HeightOf(m_Problem, fit->m_Places), fit->m_Places};
    TakeLifted(fitted);  // exact drawings fit as they are
    const std::optional<SSolution> found =
        m_Finder.Find(fitted.m_Places, fitted.m_Height, SEPARATING, fitted.m_Height * (1.0 + HIGHEST_RISE));
    if (found) {
        TakeLifted(*found);
    }
    return fit->m_Filled;
}

/// Offers a layout, once what overlaps in it lies above the rest.
void CPuzzleSolver::TakeLifted(const SSolution& layout) const {
    m_Take(SolutionOf(m_Problem, LiftOverlapping(m_Problem, PlacementsOf(m_Problem, layout))));
}

}  // namespace nestrix
