#pragma once

#include <cstddef>
#include <cstdint>

namespace nestrix {

/// When a worker begins afresh, and when it goes on from the best.
///
/// What comes of a search depends on how it began, and after some time little more does. So in each round all
/// workers together begin four runs afresh, and then go on from the best for as long as these took. Each
/// round is twice as long as the one before.
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

private:
    uint64_t m_nRunSteps;
    size_t m_nRuns;          ///< of each worker in a round
    size_t m_nBegun = 0;     ///< of the present round
    uint64_t m_nBegin = 0;   ///< of the round
    uint64_t m_nGoesOn = 0;  ///< when all runs of the round were over; 0 before
    bool m_bGoesOn;
};

}  // namespace nestrix
