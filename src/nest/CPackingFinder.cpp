#include "nest/CPackingFinder.h"

#include <cmath>
#include <utility>

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md.

/// Of more items than this a compaction takes long, and waits for less overlap.
constexpr size_t QUICKLY_COMPACTED_ITEMS = 64;
constexpr double MOST_OVERLAP_OF_MANY = 0.003;

/// Then the overlap must have become so much less for the next one.
constexpr double NEXT_TRY = 0.7;
constexpr double NEXT_TRY_OF_MANY = 0.5;

/// How far the items move in one compaction, as a share of their size; how many compactions follow each
/// other, as long as they gain; and what overlap must become for another try to take the rest apart.
constexpr double REACH_SHARE = 0.1;
constexpr int COMPACTIONS = 8;
constexpr int COMPACTIONS_OF_MANY = 3;
constexpr double STILL_LESS = 0.7;

}  // namespace

CPackingFinder::CPackingFinder(const CPackProblem& problem, CFieldTable& fields,
                               std::span<const SPlace> places, CRandom& random, CStepCounter& steps)
    : m_Steps(steps),
      m_Layout(problem, fields, places),
      m_Separator(m_Layout, random, steps),
      m_Compactor(problem) {
    const auto count = static_cast<double>(places.size());
    m_WholeOverlap = std::sqrt(problem.TotalArea() * count);
    m_Reach = REACH_SHARE * std::sqrt(problem.TotalArea() / count);
}

std::optional<SSolution> CPackingFinder::Find(std::span<const SPlace> places, double height,
                                              const SEffort& effort, double lowEnough) {
    m_Found.reset();
    if (!m_Steps.Take()) {
        return std::nullopt;
    }
    m_Layout.Assign(places, height);
    const bool bMany = m_Layout.Count() > QUICKLY_COMPACTED_ITEMS;
    double tried = (bMany ? MOST_OVERLAP_OF_MANY : effort.m_MostOverlap) * m_WholeOverlap;
    const auto improved = [&](double overlap) {
        if (overlap > tried) {
            return false;
        }
        tried = overlap * (bMany ? NEXT_TRY_OF_MANY : NEXT_TRY);
        Compact();
        return m_Found && m_Found->m_Height < lowEnough;
    };
    if (m_Separator.Separate(effort.m_Patience, improved)) {
        Compact();
    }
    return std::exchange(m_Found, std::nullopt);
}

/// Compacts the layout as long as that gains, and keeps the lowest packing that comes out.
void CPackingFinder::Compact() {
    std::vector<SPlace> places = m_Layout.Places();
    const int nRounds = m_Layout.Count() > QUICKLY_COMPACTED_ITEMS ? COMPACTIONS_OF_MANY : COMPACTIONS;
    double overlap = HUGE_VAL;
    bool bValid = false;
    for (int i = 0; i < nRounds; ++i) {
        std::optional<CCompactor::SResult> compacted = m_Compactor.Compact(places, m_Reach);
        if (!compacted) {
            return;
        }
        places = std::move(compacted->m_Places);
        if (compacted->m_Overlap > 0.0) {
            if (compacted->m_Overlap > STILL_LESS * overlap || bValid) {
                return;
            }
            overlap = compacted->m_Overlap;
            continue;
        }
        if (!Keep(places)) {
            return;
        }
        bValid = true;
    }
}

/// @return whether the packing is lower than that found before.
bool CPackingFinder::Keep(const std::vector<SPlace>& places) {
    const double height = HeightOf(m_Layout.Problem(), places);
    const bool bLower = !m_Found || height < m_Found->m_Height * (1.0 - LEAST_GAIN);
    if (bLower) {
        m_Found = {height, places};
    }
    return bLower;
}

}  // namespace nestrix
