#include "nest/CPackWorker.h"

#include "nest/CPuzzleSolver.h"

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md.

/// The first shares by which the strip is made lower, and the last ones.
constexpr double FIRST_SQUEEZE = 0.1;
constexpr double LAST_SQUEEZE = 0.002;

}  // namespace

CPackWorker::CPackWorker(const CPackProblem& problem, CFieldTable& fields,
                         std::span<const SFreePlacement> first, CIncumbent& incumbent, CExchange& exchange,
                         CStepLimit& limit, size_t nWorker, uint64_t nSeed)
    : m_Problem(problem),
      m_Fields(fields),
      m_Incumbent(incumbent),
      m_Random(nSeed),
      m_pBest(std::make_shared<SSolution>(SolutionOf(problem, first))),
      m_pShown(m_pBest),
      m_Steps(limit, nWorker, CExchange::STEPS,
              [this, &exchange, nWorker] { m_pShown = exchange.Meet(nWorker, m_pBest); }),
      m_Finder(problem, fields, m_pBest->m_Places, m_Random, m_Steps),
      m_Walker(problem, m_Finder, m_Steps, m_Random, nWorker),
      m_nWorker(nWorker),
      m_nWorkers(limit.Workers()) {}

void CPackWorker::Run() {
    CPuzzleSolver solver(m_Problem, m_Fields, m_Finder, m_Steps,
                         [this](const SSolution& packing) { (void)Take(packing); });
    if (m_nWorker == 0) {  // all workers would find the same
        solver.Solve();
    }
    Squeeze();
    while (!m_Steps.IsOver()) {
        Learn();
        if (solver.IsPuzzleLikely() && 2 * solver.Steps() <= m_Steps.Steps()) {
            solver.Lower(m_pBest->m_Height);
            continue;
        }
        // What it takes is another object: the walk's own beginning stays.
        const std::shared_ptr<const SSolution> pBest = m_pBest;
        m_Walker.Walk(*pBest, [this](const SSolution& packing) { return Take(packing); });
    }
}

void CPackWorker::Squeeze() {
    for (double share = FIRST_SQUEEZE; share >= LAST_SQUEEZE && !m_Steps.IsOver();) {
        const double height = m_pBest->m_Height;
        const std::optional<SSolution> found =
            m_Finder.Find(m_pBest->m_Places, height * (1.0 - share), BEGINNING, height * (1.0 - LEAST_GAIN));
        if (!found || !Take(*found)) {
            share /= 2.0;
        }
    }
}

/// Keeps a packing if it is the best.
/// @return whether it is.
bool CPackWorker::Take(const SSolution& found) {
    if (found.m_Height >= m_pBest->m_Height) {
        return false;
    }
    const SFreePacking packing = PackingOf(m_Problem, found);
    if (!m_Incumbent.Offer(packing, m_Steps.Steps() * m_nWorkers)) {
        return false;
    }
    m_pBest = std::make_shared<SSolution>(found);
    if (m_Incumbent.IsLowEnough(packing)) {
        m_Steps.Finish();
    }
    return true;
}

/// Takes over what another worker showed, if it is better.
void CPackWorker::Learn() {
    if (m_pShown->m_Height < m_pBest->m_Height) {
        m_pBest = m_pShown;
    }
}

}  // namespace nestrix
