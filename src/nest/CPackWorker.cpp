#include "nest/CPackWorker.h"

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md.

/// The first shares by which the strip is made lower, and the last ones.
constexpr double FIRST_SQUEEZE = 0.1;
constexpr double LAST_SQUEEZE = 0.002;

/// One run, or walk, in so many tries all turns.
constexpr size_t RUNS_OF_MAIN_TURNS = 4;

/// Turning begins after so many steps: before, each packing is soon followed by a lower one.
constexpr uint64_t STEPS_WITHOUT_TURNS = 1'000;

/// A program of turns takes as long as so many steps; for each of those four others are taken.
constexpr uint64_t STEPS_OF_TURN = 160;
constexpr uint64_t STEPS_BESIDE_TURNS = 4;

}  // namespace

CPackWorker::CPackWorker(const CPackProblem& problem, CFieldTable& fields,
                         std::span<const SFreePlacement> first, CIncumbent& incumbent, CExchange& exchange,
                         CStepLimit& limit, size_t nWorker, uint64_t nSeed, bool bGoesOn)
    : m_Problem(problem),
      m_Incumbent(incumbent),
      m_Random(nSeed),
      m_pFirst(std::make_shared<SSolution>(SolutionOf(problem, first))),
      m_pPresent(m_pFirst),
      m_pBest(m_pFirst),
      m_pShown(m_pFirst),
      m_Steps(limit, nWorker, CExchange::STEPS,
              [this, &exchange, nWorker] { m_pShown = exchange.Meet(nWorker, m_pBest); }),
      m_Finder(problem, fields, m_pBest->m_Places, m_Random, m_Steps),
      m_Solver(problem, fields, m_Finder, m_Steps, [this](const SSolution& packing) { (void)Take(packing); }),
      m_Walker(problem, m_Finder, m_Steps, m_Random, nWorker),
      m_Explorer(problem, m_Finder, m_Random),
      m_nWorker(nWorker),
      m_nWorkers(limit.Workers()),
      m_nRuns(nWorker),
      m_nNextTurn(STEPS_WITHOUT_TURNS),
      m_Schedule(problem.Items().size(), m_nWorkers, bGoesOn),
      m_Breeder(problem, m_Finder, m_Random) {
    if (problem.HasAnyTurn()) {
        m_Turner.emplace(problem, m_Steps);
    }
}

void CPackWorker::Run() {
    if (m_nWorker == 0) {  // all workers would find the same
        m_Solver.Solve();
    }
    m_pFirst = m_pBest;
    while (!m_Steps.IsOver()) {
        switch (m_Schedule.Next(m_Steps.Steps(), m_pPresent->m_Height)) {
            case CSchedule::EStep::BEGIN_AFRESH:
                EndRun();
                BeginRun(std::nullopt);
                break;
            case CSchedule::EStep::STAY:
                break;
            case CSchedule::EStep::GO_ON:
                TryOtherTurns();
                Learn();
                m_pPresent = m_pBest;
                break;
            case CSchedule::EStep::BREED:
                EndRun();
                Learn();
                m_Breeder.Enter(*m_pBest);
                BeginRun(m_Breeder.Breed());
                break;
        }
        Improve();
        TurnIfDue();
    }
    Learn();
}

/// @param from where to begin if not afresh.
void CPackWorker::BeginRun(const std::optional<SSolution>& from) {
    TryOtherTurns();
    m_pPresent = m_pFirst;
    if (from) {
        (void)Take(*from);
    }
    Squeeze();
}

void CPackWorker::EndRun() {
    if (m_pPresent != m_pFirst) {
        m_Breeder.Enter(*m_pPresent);
    }
}

/// Most pieces lie best beside others that are turned by quarters against them: few runs try more turns.
void CPackWorker::TryOtherTurns() {
    ++m_nRuns;
    m_Finder.TryAllVersions(m_nRuns % RUNS_OF_MAIN_TURNS == 0);
}

void CPackWorker::Improve() {
    if (m_Solver.IsPuzzleLikely() && 2 * m_Solver.Steps() <= m_Steps.Steps()) {
        m_Solver.Lower(m_pBest->m_Height);
        return;
    }
    // What it takes is another object: the walk's own beginning stays.
    const std::shared_ptr<const SSolution> pPresent = m_pPresent;
    const auto take = [this](const SSolution& packing) { return Take(packing); };
    const uint64_t nBefore = m_Steps.Steps();
    const bool bLate = m_Schedule.IsLate(nBefore);
    const bool bExplores = bLate && m_nExploredMore <= 0;
    if (bExplores) {
        m_Explorer.Explore(*pPresent, take);
    } else {
        m_Walker.Walk(*pPresent, take);
    }
    if (bLate) {
        const auto nSteps = static_cast<int64_t>(m_Steps.Steps() - nBefore);
        m_nExploredMore += bExplores ? nSteps : -nSteps;
    }
}

void CPackWorker::Squeeze() {
    for (double share = FIRST_SQUEEZE; share >= LAST_SQUEEZE && !m_Steps.IsOver();) {
        const double height = m_pPresent->m_Height;
        const std::optional<SSolution> found = m_Finder.Find(m_pPresent->m_Places, height * (1.0 - share),
                                                             BEGINNING, height * (1.0 - LEAST_GAIN));
        if (!found || !Take(*found)) {
            share /= 2.0;
        }
    }
}

bool CPackWorker::Take(const SSolution& found) {
    const bool bKept = Keep(found);
    m_bToTurn = m_bToTurn || bKept;
    TurnIfDue();
    return bKept;
}

/// Keeps a packing if it is the best of the present run.
/// @return whether it is.
bool CPackWorker::Keep(const SSolution& found) {
    if (found.m_Height >= m_pPresent->m_Height) {
        return false;
    }
    if (found.m_Height >= m_pBest->m_Height) {
        m_pPresent = std::make_shared<SSolution>(found);
        return true;
    }
    const SFreePacking packing = PackingOf(m_Problem, found);
    if (!m_Incumbent.Offer(packing, m_Steps.Steps() * m_nWorkers)) {
        return false;
    }
    m_pPresent = m_pBest = std::make_shared<SSolution>(found);
    if (m_Incumbent.IsLowEnough(packing)) {
        m_Steps.Finish();
    }
    return true;
}

/// Lowers the best of the present run by turning, if that is new and was not done too often.
void CPackWorker::TurnIfDue() {
    if (!m_Turner || !m_bToTurn || m_Steps.Steps() < m_nNextTurn) {
        return;
    }
    m_bToTurn = false;
    const uint64_t nBefore = m_Steps.Steps();
    const std::optional<SFreePacking> lower =
        m_Turner->Lower(PackingOf(m_Problem, *m_pPresent), Best().m_nHeight);
    m_nNextTurn = m_Steps.Steps() + (m_Steps.Steps() - nBefore) * STEPS_OF_TURN * STEPS_BESIDE_TURNS;
    if (lower && lower->m_nHeight < Best().m_nHeight &&
        m_Incumbent.Offer(*lower, m_Steps.Steps() * m_nWorkers)) {
        m_Turned = lower;
        if (m_Incumbent.IsLowEnough(*lower)) {
            m_Steps.Finish();
        }
    }
}

SFreePacking CPackWorker::Best() const {
    SFreePacking best = PackingOf(m_Problem, *m_pBest);
    return m_Turned && m_Turned->m_nHeight < best.m_nHeight ? *m_Turned : best;
}

/// Takes over what another worker showed, if it is better.
void CPackWorker::Learn() {
    if (m_pShown->m_Height < m_pBest->m_Height) {
        m_pBest = m_pShown;
    }
}

}  // namespace nestrix
