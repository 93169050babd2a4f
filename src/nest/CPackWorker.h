#pragma once

#include <memory>
#include <optional>
#include <span>

#include "nest/CBreeder.h"
#include "nest/CExchange.h"
#include "nest/CExplorer.h"
#include "nest/CIncumbent.h"
#include "nest/CPackingFinder.h"
#include "nest/CPuzzleSolver.h"
#include "nest/CRandom.h"
#include "nest/CSchedule.h"
#include "nest/CStepCounter.h"
#include "nest/CTurner.h"
#include "nest/CWalker.h"
#include "nest/Places.h"

namespace nestrix {

/// One thread of a search. The first of all tries to fit the pieces together like a puzzle. Then each makes
/// the strip lower in large steps, as long as that succeeds, and then walks from packing to packing.
/// Later it also explores layouts that overlap, for half of the steps. It does so again and again, afresh or
/// with two packings crossed (see CSchedule). Where pieces may be turned by any angle, it also lowers what it
/// finds by turning: what comes of that is handed out, and the search goes on in its own turns.
class CPackWorker {
public:
    /// @param first a valid packing: a placement for each item.
    /// @param bGoesOn whether that is worth going on from: then nothing begins afresh.
    CPackWorker(const CPackProblem& problem, CFieldTable& fields, std::span<const SFreePlacement> first,
                CIncumbent& incumbent, CExchange& exchange, CStepLimit& limit, size_t nWorker, uint64_t nSeed,
                bool bGoesOn);

    /// Returns when the steps are used up.
    void Run();

    /// The best packing that it knows, certified.
    [[nodiscard]] SFreePacking Best() const;

private:
    void Improve();
    void BeginRun(const std::optional<SSolution>& from);
    void EndRun();
    void TryOtherTurns();
    void Squeeze();
    bool Take(const SSolution& found);
    bool Keep(const SSolution& found);
    void TurnIfDue();
    void Learn();

    const CPackProblem& m_Problem;
    CIncumbent& m_Incumbent;
    CRandom m_Random;
    std::shared_ptr<const SSolution> m_pFirst;    ///< where each run begins
    std::shared_ptr<const SSolution> m_pPresent;  ///< the best of the present run
    std::shared_ptr<const SSolution> m_pBest;     ///< its own, or one learnt from others
    std::shared_ptr<const SSolution> m_pShown;    ///< the best of all workers when they last met
    CStepCounter m_Steps;
    CPackingFinder m_Finder;
    CPuzzleSolver m_Solver;
    CWalker m_Walker;
    CExplorer m_Explorer;
    size_t m_nWorker;
    size_t m_nWorkers;
    size_t m_nRuns;  ///< afresh, or walks that went on from the best; workers count from different numbers
    uint64_t m_nNextTurn;  ///< not before so many steps
    CSchedule m_Schedule;
    CBreeder m_Breeder;
    int64_t m_nExploredMore = 0;           ///< steps, than it walked late in runs
    std::optional<CTurner> m_Turner;       ///< where pieces may be turned by any angle
    std::optional<SFreePacking> m_Turned;  ///< the lowest that it found
    bool m_bToTurn = false;                ///< the best of the present run
};

}  // namespace nestrix
