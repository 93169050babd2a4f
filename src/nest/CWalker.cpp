#include "nest/CWalker.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md.

/// A walk asks for a strip lower by a share between these.
constexpr double SHORTEST_STEP = 0.001;
constexpr double LONGEST_STEP = 0.01;

/// How much higher, as a share, a packing may be to go on from. Exchanging two of many pieces changes a
/// smaller part of the strip: less, then.
constexpr double HIGHEST_RISE = 0.01;
constexpr double HIGHEST_RISE_BY_ITEM = 0.3;

/// What is learnt keeps to these shares of it. One packing in ten that are found is gone on from.
constexpr double LEAST_LEARNT = 0.1;
constexpr double MOST_LEARNT = 4.0;
constexpr double LESS = 0.91;
constexpr double MORE = 1.01;

/// Packings that differ by less, as a share, are taken for the same.
constexpr double SAME_HEIGHT = 1e-5;

/// The strips, as shares above the best, in which a packing is looked for after exchanges at random.
constexpr double FIRST_ABOVE = 0.01;
constexpr double NEXT_ABOVE = 0.02;
constexpr double LAST_ABOVE = 0.2;
constexpr SPatience AFTER_EXCHANGES{40, 1};

}  // namespace

struct CWalker::SManner {
    SPatience m_Patience;        ///< with an attempt
    int m_nLongest = 0;          ///< so many attempts in a row without a better packing than the best
    bool m_bLearnsRise = false;  ///< from how often it goes on
    int m_nExchanges = 0;        ///< at random, before it begins
};

// Some pieces find to lower packings sooner by another beginning, others by more patience with the present
// one.
const std::array<CWalker::SManner, 3> CWalker::MANNERS{
    {{{20, 1}, 100, false, 0}, {{200, 2}, 12, true, 0}, {{20, 1}, 200, false, 5}}};

CWalker::CWalker(const CPackProblem& problem, CPackingFinder& finder, CStepCounter& steps, CRandom& random,
                 size_t nFirst)
    : m_Problem(problem),
      m_Finder(finder),
      m_Steps(steps),
      m_Random(random),
      m_LargeFirst(problem.Items().size()),
      m_Rise(std::min(HIGHEST_RISE, HIGHEST_RISE_BY_ITEM / static_cast<double>(problem.Items().size()))),
      m_LearntRise(m_Rise),
      m_nFirst(nFirst) {
    std::iota(m_LargeFirst.begin(), m_LargeFirst.end(), size_t{0});
    std::stable_sort(m_LargeFirst.begin(), m_LargeFirst.end(), [&](size_t a, size_t b) {
        return problem.AreaOf(problem.Items()[a]) > problem.AreaOf(problem.Items()[b]);
    });
}

void CWalker::Walk(const SSolution& best, const std::function<bool(const SSolution&)>& take) {
    const size_t nManner = LeastUsedManner();
    const SManner& manner = MANNERS[nManner];
    const uint64_t nBefore = m_Steps.Steps();
    SSolution present = Begin(manner, best);
    int nVain = 0;
    while (nVain < manner.m_nLongest && !m_Steps.IsOver()) {
        // Small steps more often: the square of a random number.
        const double longest = LONGEST_STEP - SHORTEST_STEP;
        const double share = SHORTEST_STEP + longest * m_Random.Share() * m_Random.Share();
        const std::vector<SPlace> places = nVain == 0 ? present.m_Places : Disturbed(present.m_Places);
        const std::optional<SSolution> found =
            m_Finder.Find(places, present.m_Height * (1.0 - share), manner.m_Patience,
                          present.m_Height * (1.0 - LEAST_GAIN));
        nVain = found && take(*found) ? 0 : nVain + 1;
        if (found && GoesOnFrom(manner, present, *found)) {
            present = *found;
        }
    }
    m_StepsOf[nManner] += m_Steps.Steps() - nBefore;
}

size_t CWalker::LeastUsedManner() const {
    size_t nLeast = m_nFirst % MANNERS.size();
    for (size_t i = 1; i < MANNERS.size(); ++i) {
        const size_t nManner = (m_nFirst + i) % MANNERS.size();
        if (m_StepsOf[nManner] < m_StepsOf[nLeast]) {
            nLeast = nManner;
        }
    }
    return nLeast;
}

/// The best packing, or one that its exchanges lead to.
SSolution CWalker::Begin(const SManner& manner, const SSolution& best) {
    if (manner.m_nExchanges == 0) {
        return best;
    }
    std::vector<SPlace> places = best.m_Places;
    for (int i = 0; i < manner.m_nExchanges; ++i) {
        ExchangeAnyTwo(places);
    }
    for (double above = FIRST_ABOVE; above < LAST_ABOVE; above += NEXT_ABOVE) {
        if (std::optional<SSolution> found =
                m_Finder.Find(places, best.m_Height * (1.0 + above), AFTER_EXCHANGES, HUGE_VAL)) {
            return *std::move(found);
        }
    }
    return best;
}

/// Whether the walk goes on from what it found. A manner that learns its rise does so here: from one answer
/// to the next, less after each that leads away and more after each that does not.
bool CWalker::GoesOnFrom(const SManner& manner, const SSolution& present, const SSolution& found) {
    const double ratio = found.m_Height / present.m_Height;
    const double rise = manner.m_bLearnsRise ? m_LearntRise : m_Rise;
    const bool bGoesOn = ratio < 1.0 + rise * m_Random.Share();
    if (manner.m_bLearnsRise) {
        const bool bMoves = bGoesOn && std::abs(ratio - 1.0) > SAME_HEIGHT;
        m_LearntRise =
            std::clamp(m_LearntRise * (bMoves ? LESS : MORE), LEAST_LEARNT * m_Rise, MOST_LEARNT * m_Rise);
    }
    return bGoesOn;
}

/// Exchanges two large items of different pieces.
std::vector<SPlace> CWalker::Disturbed(std::vector<SPlace> places) {
    constexpr int TRIES = 50;
    const size_t nLarge = std::min(m_LargeFirst.size(), std::max<size_t>(2, m_LargeFirst.size() / 2));
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

/// Exchanges any two items, and turns the first one at random.
void CWalker::ExchangeAnyTwo(std::vector<SPlace>& places) {
    const size_t a = m_Random.Index(places.size());
    const size_t b = m_Random.Index(places.size());
    std::swap(places[a].m_At, places[b].m_At);
    const std::vector<size_t>& versions = m_Problem.VersionsOf(m_Problem.Items()[a]);
    places[a].m_nVersion = versions[m_Random.Index(versions.size())];
}

}  // namespace nestrix
