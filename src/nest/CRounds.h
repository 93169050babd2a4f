#pragma once

#include <cstddef>
#include <cstdint>

namespace nestrix {

/// When a worker begins afresh, and when it goes on from the best.
///
/// What comes of a search depends on how it began, and after some time little more does. So in each round all
/// workers together begin four runs afresh, and then go on from the best for as long as these took. Runs are
/// twice as long as in the round before, up to a limit, which also holds for going on.
class CRounds {
public:
    enum class EStep {
        BEGIN_AFRESH,
        STAY,  ///< with what the present run has found
        GO_ON  ///< from the best of all
    };

    /// @param nItems the more, the longer a run.
    /// @param bGoesOn whether the search goes on from an earlier packing: then it begins there once, and
    /// nothing afresh.
    CRounds(size_t nItems, size_t nWorkers, bool bGoesOn);

    /// What comes next.
    /// @param nSteps that the worker has taken; never less than the last time.
    [[nodiscard]] EStep Next(uint64_t nSteps);

    /// Whether the last run begun afresh has taken the steps of one of the first round.
    [[nodiscard]] bool IsLate(uint64_t nSteps) const { return nSteps - m_nRunBegin >= m_nFirstRunSteps; }

private:
    uint64_t m_nFirstRunSteps;
    uint64_t m_nMostSteps;  ///< of a run, or of going on
    uint64_t m_nRunSteps;
    size_t m_nRuns;         ///< of each worker in a round
    size_t m_nBegun = 0;    ///< of the present round
    uint64_t m_nBegin = 0;  ///< of the round
    uint64_t m_nRunBegin = 0;
    uint64_t m_nGoesOn = 0;  ///< when all runs of the round were over; 0 before
    bool m_bGoesOn;
};

}  // namespace nestrix
