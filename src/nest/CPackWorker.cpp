#include "nest/CPackWorker.h"

#include <algorithm>
#include <utility>

#include "nest/CPuzzleSolver.h"

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md.

/// The first shares by which the strip is made lower, and the last ones.
constexpr double FIRST_SQUEEZE = 0.1;
constexpr double LAST_SQUEEZE = 0.002;
constexpr SPatience SQUEEZING{40, 1};

/// A walk asks for a strip lower by a share between these, and soon gives up: another beginning leads to a
/// packing sooner than more patience with the present one.
constexpr SPatience WALKING{20, 1};
constexpr double SHORTEST_STEP = 0.001;
constexpr double LONGEST_STEP = 0.01;

/// How much higher, as a share, a packing may be to go on from. Exchanging two of many pieces changes a
/// smaller part of the strip: less, then.
constexpr double HIGHEST_RISE = 0.01;
constexpr double HIGHEST_RISE_BY_ITEM = 0.3;

/// So many attempts in a row without a better packing than the best, and the walk begins again at that.
constexpr int LONGEST_WALK = 100;

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
      m_nWorker(nWorker),
      m_nWorkers(limit.Workers()) {
    for (size_t i = 0; i < first.size(); ++i) {
        m_LargeFirst.push_back(i);
    }
    std::stable_sort(m_LargeFirst.begin(), m_LargeFirst.end(), [&](size_t a, size_t b) {
        return problem.AreaOf(problem.Items()[a]) > problem.AreaOf(problem.Items()[b]);
    });
}

void CPackWorker::Run() {
    // All workers would find the same.
    if (m_nWorker == 0) {
        const auto take = [this](const SSolution& packing) { (void)Take(packing); };
        CPuzzleSolver(m_Problem, m_Fields, m_Finder, m_Steps, take).Solve();
    }
    Squeeze();
    while (!m_Steps.IsOver()) {
        Walk();
    }
}

void CPackWorker::Squeeze() {
    for (double share = FIRST_SQUEEZE; share >= LAST_SQUEEZE && !m_Steps.IsOver();) {
        const double height = m_pBest->m_Height;
        const std::optional<SSolution> found =
            m_Finder.Find(m_pBest->m_Places, height * (1.0 - share), SQUEEZING, height * (1.0 - LEAST_GAIN));
        if (!found || !Take(*found)) {
            share /= 2.0;
        }
    }
}

/// From the best packing on, until nothing better has been found for long.
void CPackWorker::Walk() {
    Learn();
    const double rise =
        std::min(HIGHEST_RISE, HIGHEST_RISE_BY_ITEM / static_cast<double>(m_pBest->m_Places.size()));
    SSolution present = *m_pBest;
    int nVain = 0;
    while (nVain < LONGEST_WALK && !m_Steps.IsOver()) {
        // Small steps more often: the square of a random number.
        const double longest = LONGEST_STEP - SHORTEST_STEP;
        const double share = SHORTEST_STEP + longest * m_Random.Share() * m_Random.Share();
        const std::optional<SSolution> found =
            m_Finder.Find(nVain == 0 ? present.m_Places : Disturbed(present.m_Places),
                          present.m_Height * (1.0 - share), WALKING, present.m_Height * (1.0 - LEAST_GAIN));
        const bool bBest = found && Take(*found);
        nVain = bBest ? 0 : nVain + 1;
        if (found && found->m_Height < present.m_Height * (1.0 + rise * m_Random.Share())) {
            present = *found;
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

/// Exchanges two large items of different pieces.
std::vector<SPlace> CPackWorker::Disturbed(std::vector<SPlace> places) {
    constexpr int TRIES = 50;
    const size_t nLarge = std::max<size_t>(2, m_LargeFirst.size() / 2);
    for (int i = 0; i < TRIES; ++i) {
        const size_t a = m_LargeFirst[m_Random.Index(nLarge)];
        const size_t b = m_LargeFirst[m_Random.Index(nLarge)];
        if (m_Problem.Items()[a] != m_Problem.Items()[b]) {
            std::swap(places[a].m_At, places[b].m_At);
            break;
        }
    }
    return places;
}

}  // namespace nestrix
