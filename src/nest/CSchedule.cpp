#include "nest/CSchedule.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "nest/CBreeder.h"

namespace nestrix {

namespace {

// Both were measured over instances and seeds: docs/packing-freely.md.

constexpr size_t FIRST_RUNS = 4;  ///< of all workers
constexpr uint64_t RUN_STEPS_BY_ITEM = 20'000;

}  // namespace

CSchedule::CSchedule(size_t nItems, size_t nWorkers, bool bGoesOn)
    : m_nRunSteps(RUN_STEPS_BY_ITEM * nItems),
      m_nFirstRuns(bGoesOn ? 1 : (FIRST_RUNS + nWorkers - 1) / nWorkers),
      m_bGoesOn(bGoesOn),
      m_Least(HUGE_VAL) {}

CSchedule::EStep CSchedule::Next(uint64_t nSteps, double found) {
    if (nSteps < m_nUntil) {
        return m_ePresent;
    }
    const bool bBest = found < m_Least;
    m_Least = std::min(m_Least, found);
    if (m_nBegun < m_nFirstRuns) {
        // A walk that took longer leaves the next run less.
        return BeginRun(EStep::BEGIN_AFRESH, nSteps, m_bGoesOn ? 0 : (m_nBegun + 1) * m_nRunSteps);
    }
    if (m_nBegun == m_nFirstRuns) {
        ++m_nBegun;
        m_nUntil = m_bGoesOn ? std::numeric_limits<uint64_t>::max() : 2 * nSteps;
        return m_ePresent = EStep::GO_ON;
    }
    if (bBest && m_ePresent == EStep::STAY) {
        m_nUntil = nSteps + m_nRunSteps;
        return EStep::STAY;
    }
    return BeginRun(m_nBegun < CBreeder::POPULATION ? EStep::BEGIN_AFRESH : EStep::BREED, nSteps,
                    nSteps + m_nRunSteps);
}

CSchedule::EStep CSchedule::BeginRun(EStep eHow, uint64_t nSteps, uint64_t nUntil) {
    ++m_nBegun;
    m_nRunBegin = nSteps;
    m_nUntil = nUntil;
    m_ePresent = EStep::STAY;
    return eHow;
}

}  // namespace nestrix
