#include "nest/CPuzzleSolver.h"

#include <algorithm>
#include <optional>
#include <utility>

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

/// Below the height of the best packing, half way to that of a full one: how often, how many layouts at first
/// and how many at most, and how many times as many the next time.
constexpr int HALVINGS = 5;
constexpr size_t FEWEST_LAYOUTS = 30;
constexpr size_t MOST_LAYOUTS = 3000;
constexpr size_t MORE_LAYOUTS = 3;

/// What does not fit then is pressed into a strip lower by this share than the best packing.
constexpr double PRESSED = 0.002;

/// Of a layout that still overlaps, the first packing that is higher by less than this share is good enough.
constexpr double HIGHEST_RISE = 0.01;

}  // namespace

CPuzzleSolver::CPuzzleSolver(const CPackProblem& problem, CFieldTable& fields, CPackingFinder& finder,
                             CStepCounter& steps, CTake take)
    : m_Problem(problem),
      m_Fields(fields),
      m_Finder(finder),
      m_Steps(steps),
      m_Take(std::move(take)),
      m_nLayouts(FEWEST_LAYOUTS) {}

void CPuzzleSolver::Solve() {
    if (!CCornerFitter::IsWorthTrying(m_Problem)) {
        return;
    }
    for (const size_t nLayouts : LAYOUTS) {
        double filled = 0.0;
        for (const double tolerance : TOLERANCES) {
            if (const auto fit = Fit(nLayouts, tolerance, HUGE_VAL)) {
                filled = std::max(filled, fit->m_Filled);
                Offer(*fit);
            }
        }
        m_bLikely = filled >= LIKE_A_PUZZLE;
        if (!m_bLikely) {
            return;
        }
    }
}

void CPuzzleSolver::Lower(double height) {
    const SGridStrip& strip = m_Problem.Strip();
    double low = static_cast<double>(strip.m_nMargin) +
                 m_Problem.TotalArea() / static_cast<double>(strip.m_nWidth - 2 * strip.m_nMargin);
    for (int i = 0; i < HALVINGS && !m_Steps.IsOver(); ++i) {
        const double middle = (low + height) / 2.0;
        const auto fit = Fit(m_nLayouts, TOLERANCES[0], middle);
        if (fit && fit->m_bComplete) {
            Offer(*fit);
            height = middle;
        } else if (fit) {
            PressIn(*fit, height);
            low = middle;
        }
    }
    m_nLayouts = std::min(m_nLayouts * MORE_LAYOUTS, MOST_LAYOUTS);
}

/// @return nothing when the steps are used up.
std::optional<CCornerFitter::SFit> CPuzzleSolver::Fit(size_t nLayouts, double tolerance, double height) {
    const uint64_t nBefore = m_Steps.Steps();
    std::optional<CCornerFitter::SFit> fit =
        CCornerFitter(m_Problem, m_Fields, m_Steps, tolerance, height).Fit(nLayouts);
    m_nSteps += m_Steps.Steps() - nBefore;
    return fit;
}

void CPuzzleSolver::Offer(const CCornerFitter::SFit& fit) {
    const SSolution fitted{HeightOf(m_Problem, fit.m_Places), fit.m_Places};
    TakeLifted(fitted);  // exact drawings fit as they are
    const std::optional<SSolution> found =
        m_Finder.Find(fitted.m_Places, fitted.m_Height, BEGINNING, fitted.m_Height * (1.0 + HIGHEST_RISE));
    if (found) {
        TakeLifted(*found);
    }
}

/// Looks for room for what lies above the rest.
void CPuzzleSolver::PressIn(const CCornerFitter::SFit& fit, double height) {
    const uint64_t nBefore = m_Steps.Steps();
    const double lowEnough = height * (1.0 - LEAST_GAIN);
    if (const auto found = m_Finder.Find(fit.m_Places, height * (1.0 - PRESSED), BEGINNING, lowEnough)) {
        m_Take(*found);
    }
    m_nSteps += m_Steps.Steps() - nBefore;
}

/// Offers a layout, once what overlaps in it lies above the rest.
void CPuzzleSolver::TakeLifted(const SSolution& layout) const {
    m_Take(SolutionOf(m_Problem, LiftOverlapping(m_Problem, PlacementsOf(m_Problem, layout))));
}

}  // namespace nestrix
