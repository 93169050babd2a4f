#include "nest/CWalker.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md.

/// A walk asks for a strip lower by a share between these. Sometimes it leaps: between heights at which
/// pieces fit without play there may be no packing.
constexpr double SHORTEST_STEP = 0.001;
constexpr double LONGEST_STEP = 0.01;
constexpr double LEAPS = 0.2;  ///< of all steps
constexpr double LONGEST_LEAP = 0.04;

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

}  // namespace

struct CWalker::SManner {
    SEffort m_Effort;            ///< of an attempt
    int m_nLongest = 0;          ///< so many attempts in a row without a better packing than the best
    double m_Share = 0.0;        ///< of all steps
    bool m_bLearnsRise = false;  ///< from how often it goes on
};

// Some pieces find to lower packings sooner by many attempts, others by patience with each.
const std::array<CWalker::SManner, 2> CWalker::MANNERS{
    {{.m_Effort = {{20, 1}}, .m_nLongest = 100, .m_Share = 0.8},
     {.m_Effort = {{200, 2}}, .m_nLongest = 12, .m_Share = 0.2, .m_bLearnsRise = true}}};

CWalker::CWalker(const CPackProblem& problem, CPackingFinder& finder, CStepCounter& steps, CRandom& random,
                 size_t nFirst)
    : m_Finder(finder),
      m_Steps(steps),
      m_Random(random),
      m_Disturber(problem, random),
      m_Rise(std::min(HIGHEST_RISE, HIGHEST_RISE_BY_ITEM / static_cast<double>(problem.Items().size()))),
      m_LearntRise(m_Rise),
      m_nFirst(nFirst) {}

void CWalker::Walk(const SSolution& best, const std::function<bool(const SSolution&)>& take) {
    const size_t nManner = NextManner();
    const SManner& manner = MANNERS[nManner];
    const uint64_t nBefore = m_Steps.Steps();
    SSolution present = best;
    int nVain = 0;
    while (nVain < manner.m_nLongest && !m_Steps.IsOver()) {
        const double share = DrawStep();
        const std::vector<SPlace> places =
            nVain == 0 ? present.m_Places : m_Disturber.Disturbed(present.m_Places);
        const std::optional<SSolution> found = m_Finder.Find(
            places, present.m_Height * (1.0 - share), manner.m_Effort, present.m_Height * (1.0 - LEAST_GAIN));
        nVain = found && take(*found) ? 0 : nVain + 1;
        if (found && GoesOnFrom(manner, present, *found)) {
            present = *found;
        }
    }
    m_StepsOf[nManner] += m_Steps.Steps() - nBefore;
}

/// By what share a lower strip is asked for: small steps more often.
double CWalker::DrawStep() {
    const double longest = m_Random.Share() < LEAPS ? LONGEST_LEAP : LONGEST_STEP;
    const double share = m_Random.Share();
    return SHORTEST_STEP + (longest - SHORTEST_STEP) * share * m_Random.Share();
}

/// The manner that has taken least of its share.
size_t CWalker::NextManner() const {
    const auto taken = [this](size_t nManner) {
        return static_cast<double>(m_StepsOf[nManner]) / MANNERS[nManner].m_Share;
    };
    size_t nLeast = m_nFirst % MANNERS.size();
    for (size_t i = 1; i < MANNERS.size(); ++i) {
        const size_t nManner = (m_nFirst + i) % MANNERS.size();
        if (taken(nManner) < taken(nLeast)) {
            nLeast = nManner;
        }
    }
    return nLeast;
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

}  // namespace nestrix
