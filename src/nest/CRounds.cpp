#include "nest/CRounds.h"

#include <algorithm>

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md.

constexpr size_t RUNS = 4;                        ///< of all workers in a round
constexpr uint64_t FIRST_STEPS_BY_ITEM = 20'000;  ///< of each run in the first round
constexpr uint64_t MOST_STEPS_BY_ITEM = 80'000;   ///< of a run, or of going on

}  // namespace

CRounds::CRounds(size_t nItems, size_t nWorkers, bool bGoesOn)
    : m_nFirstRunSteps(FIRST_STEPS_BY_ITEM * nItems),
      m_nMostSteps(MOST_STEPS_BY_ITEM * nItems),
      m_nRunSteps(bGoesOn ? 0 : m_nFirstRunSteps),
      m_nRuns(bGoesOn ? 1 : (RUNS + nWorkers - 1) / nWorkers),
      m_bGoesOn(bGoesOn) {}

CRounds::EStep CRounds::Next(uint64_t nSteps) {
    if (m_nGoesOn > 0 && !m_bGoesOn && nSteps - m_nGoesOn >= std::min(m_nGoesOn - m_nBegin, m_nMostSteps)) {
        m_nRunSteps = std::min(2 * m_nRunSteps, m_nMostSteps);
        m_nBegun = 0;
        m_nBegin = nSteps;
        m_nGoesOn = 0;
    }
    if (m_nGoesOn > 0) {
        return EStep::GO_ON;
    }
    if (nSteps - m_nBegin < m_nBegun * m_nRunSteps) {
        return EStep::STAY;
    }
    if (m_nBegun < m_nRuns) {
        ++m_nBegun;
        m_nRunBegin = nSteps;
        return EStep::BEGIN_AFRESH;
    }
    m_nGoesOn = nSteps;
    return EStep::GO_ON;
}

}  // namespace nestrix
