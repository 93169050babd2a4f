#include "nest/CExplorer.h"

#include <optional>
#include <vector>

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md.

/// By what share a lower strip is asked for.
constexpr double STEP = 0.001;

constexpr SEffort PATIENT{{200, 2}};

constexpr size_t MOST_FAILURES = 1'000;

}  // namespace

CExplorer::CExplorer(const CPackProblem& problem, CPackingFinder& finder, CRandom& random)
    : m_Finder(finder), m_Random(random), m_Disturber(problem, random), m_Failures(MOST_FAILURES) {}

void CExplorer::Explore(const SSolution& best, const std::function<bool(const SSolution&)>& take) {
    if (best.m_Height != m_Height) {
        m_Height = best.m_Height;
        m_Failures.Clear();
    }
    const std::vector<SPlace> places =
        m_Failures.IsEmpty() ? best.m_Places : m_Disturber.Disturbed(m_Failures.Draw(m_Random).m_Places);
    const std::optional<SSolution> found =
        m_Finder.Find(places, m_Height * (1.0 - STEP), PATIENT, m_Height * (1.0 - LEAST_GAIN));
    if (!found || !take(*found)) {
        m_Failures.Keep(m_Finder.Failure());
    }
}

}  // namespace nestrix
