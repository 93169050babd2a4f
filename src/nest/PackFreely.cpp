#include "nest/PackFreely.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <thread>

#include "nest/CPackWorker.h"
#include "nest/FirstPacking.h"
#include "nest/SinglePacking.h"

namespace nestrix {

namespace {

/// One search: what its workers share, and the workers.
class CPackSearch {
public:
    CPackSearch(const CPackProblem& problem, const SPackSettings& settings, CIncumbent& incumbent,
                CPackSink& sink)
        : m_Problem(problem),
          m_Incumbent(incumbent),
          m_Sink(sink),
          m_nWorkers(static_cast<size_t>(std::max(settings.m_nThreads, 1))),
          m_Exchange(m_nWorkers, [this](uint64_t nMeeting) { return SolutionOfOthers(nMeeting); }),
          m_Limit(m_nWorkers, StepsOfEach(settings.m_Limits), [&incumbent] { return incumbent.IsToEnd(); }) {
        if (CFieldTable::FitsAll(problem)) {
            m_pSharedFields = std::make_unique<CFieldTable>(problem);
        }
        m_nSeed = settings.m_nSeed;
        m_bGoesOn = settings.m_pStart != nullptr;
    }

    /// @return the best packing of all workers.
    SFreePacking Run(const std::vector<SFreePlacement>& first) {
        m_Results.resize(m_nWorkers);
        {
            std::vector<std::jthread> threads;
            for (size_t i = 1; i < m_nWorkers; ++i) {
                threads.emplace_back([this, i, &first] { Work(i, first); });
            }
            Work(0, first);
        }
        if (m_Fault) {
            std::rethrow_exception(m_Fault);
        }
        return *std::min_element(
            m_Results.begin(), m_Results.end(),
            [](const SFreePacking& a, const SFreePacking& b) { return a.m_nHeight < b.m_nHeight; });
    }

    /// How many steps all workers have taken together.
    [[nodiscard]] uint64_t Steps() const { return m_Limit.Steps() * m_nWorkers; }

private:
    [[nodiscard]] uint64_t StepsOfEach(const SPackLimits& limits) const {
        return limits.m_nSteps ? (*limits.m_nSteps + m_nWorkers - 1) / m_nWorkers : CStepLimit::NEVER;
    }

    void Work(size_t nWorker, const std::vector<SFreePlacement>& first) {
        try {
            std::unique_ptr<CFieldTable> pOwnFields;
            if (!m_pSharedFields) {
                pOwnFields = std::make_unique<CFieldTable>(m_Problem);
            }
            CPackWorker worker(m_Problem, m_pSharedFields ? *m_pSharedFields : *pOwnFields, first,
                               m_Incumbent, m_Exchange, m_Limit, nWorker, m_nSeed * m_nWorkers + nWorker,
                               m_bGoesOn);
            worker.Run();
            m_Results[nWorker] = worker.Best();
        } catch (...) {  // memory that is not there: the others end, too, and the caller hears of it
            m_Limit.Abort();
            m_Exchange.Leave();
            const std::lock_guard lock(m_FaultMutex);
            m_Fault = std::current_exception();
        }
    }

    /// What another search has found, certified here.
    [[nodiscard]] std::shared_ptr<const SSolution> SolutionOfOthers(uint64_t nMeeting) {
        const std::optional<SFreePacking> packing = m_Sink.PackingOfOthers();
        if (!packing) {
            return nullptr;
        }
        const std::vector<SFreePlacement> placed = FindFirstPacking(m_Problem, &*packing);
        (void)m_Incumbent.Offer(m_Problem.PackingOf(placed), nMeeting * CExchange::STEPS * m_nWorkers);
        return std::make_shared<SSolution>(SolutionOf(m_Problem, placed));
    }

    const CPackProblem& m_Problem;
    CIncumbent& m_Incumbent;
    CPackSink& m_Sink;
    size_t m_nWorkers;
    uint64_t m_nSeed = 0;
    bool m_bGoesOn = false;
    std::unique_ptr<CFieldTable> m_pSharedFields;
    CExchange m_Exchange;
    CStepLimit m_Limit;
    std::vector<SFreePacking> m_Results;  ///< each written by one worker
    std::mutex m_FaultMutex;
    std::exception_ptr m_Fault;
};

}  // namespace

SPackResult PackFreely(std::span<const SPiece> pieces, const SFreeStrip& strip, const SPackSettings& settings,
                       CPackSink& sink) {
    SPackResult result;
    result.m_Unfit = FindUnfitPieces(pieces, strip);
    if (!result.m_Unfit.empty()) {
        result.m_eEnd = EPackEnd::UNFIT;
        return result;
    }
    const CPackProblem problem(pieces, strip, settings.m_bUseHoles, settings.m_pStart);
    CIncumbent incumbent(problem, settings.m_Limits, sink);
    // A single piece has nothing to be packed with, wherever it lay earlier.
    const bool bSearch = problem.Items().size() >= 2;
    const std::vector<SFreePlacement> first =
        bSearch ? FindFirstPacking(problem, settings.m_pStart) : std::vector<SFreePlacement>{};
    result.m_Packing = problem.Items().size() == 1 ? PackSingle(problem) : problem.PackingOf(first);
    (void)incumbent.Offer(*result.m_Packing, 0);
    result.m_eEnd = bSearch ? incumbent.Reason() : EPackEnd::NOTHING_TO_GAIN;
    if (bSearch && !incumbent.IsLowEnough(*result.m_Packing)) {
        CPackSearch search(problem, settings, incumbent, sink);
        result.m_Packing = search.Run(first);
        result.m_nSteps = search.Steps();
        result.m_eEnd = incumbent.Reason();
    }
    result.m_Seconds = incumbent.Seconds();
    return result;
}

}  // namespace nestrix
