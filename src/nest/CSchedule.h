#pragma once

#include <cstddef>
#include <cstdint>

namespace nestrix {

/// When a worker begins a run, and how.
///
/// What comes of a search depends on how it began, and after some time little more does. So at first all
/// workers together begin four runs afresh, and go on from the best for as long as these took. Then each
/// begins as many afresh as make a population, and from there on runs are bred of that. One that finds the
/// best packing of its worker is given as long again.
class CSchedule {
public:
    enum class EStep {
        BEGIN_AFRESH,
        STAY,   ///< with what the present run has found
        GO_ON,  ///< from the best of all
        BREED   ///< from what other runs have found
    };

    /// @param nItems the more, the longer a run.
    /// @param bGoesOn whether the search goes on from an earlier packing: then it begins there once, and
    /// goes on for ever.
    CSchedule(size_t nItems, size_t nWorkers, bool bGoesOn);

    /// What comes next.
    /// @param nSteps that the worker has taken; never less than the last time.
    /// @param found the height of the lowest packing of the present run.
    [[nodiscard]] EStep Next(uint64_t nSteps, double found);

    /// Whether the last run has taken the steps of one, and is given more.
    [[nodiscard]] bool IsLate(uint64_t nSteps) const { return nSteps - m_nRunBegin >= m_nRunSteps; }

private:
    [[nodiscard]] EStep BeginRun(EStep eHow, uint64_t nSteps, uint64_t nUntil);

    uint64_t m_nRunSteps;
    size_t m_nFirstRuns;  ///< of each worker, before it goes on from the best
    bool m_bGoesOn;
    EStep m_ePresent = EStep::STAY;  ///< what is done until the next run begins
    uint64_t m_nUntil = 0;           ///< so many steps
    uint64_t m_nRunBegin = 0;
    size_t m_nBegun = 0;
    double m_Least;  ///< the height of the lowest packing found, when a run was last over
};

}  // namespace nestrix
