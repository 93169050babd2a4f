#include "nest/CPlaceRefiner.h"

#include <iterator>

namespace nestrix {

namespace {

// Shares of an item's size, the square root of its area.
constexpr double FIRST_STEP_SHARE = 0.2;  ///< of the descent
constexpr double LAST_STEP_SHARE = 0.03;  ///< the polish goes on from there
constexpr double POLISH_SHARE = 0.3;      ///< how far that may move
constexpr double VICINITY_SHARE = 0.4;    ///< farther off, neighbours are gathered anew

constexpr int MOST_POLISHES = 8;

/// Less than this share is no gain.
constexpr double GAIN = 0.9999;

}  // namespace

void CPlaceRefiner::Refine(SCandidate& candidate) {
    const double size = m_Overlap.SizeOfItem();
    m_Vicinity.Enter(candidate.m_Place, size * VICINITY_SHARE);
    Descend(candidate, size);
    if (candidate.m_Value > 0.0) {
        Polish(candidate, size * POLISH_SHARE);
    }
}

/// Tries steps forth and back along the axes and the diagonals, longer ones after a success, shorter ones
/// after a failure.
void CPlaceRefiner::Descend(SCandidate& candidate, double size) {
    constexpr SPoint WAYS[] = {{1.0, 0.0}, {0.0, 1.0}, {1.0, 1.0}, {1.0, -1.0}};
    const SPlaneBox& room = m_Overlap.Layout().RoomFor(candidate.m_Place.m_nVersion);
    for (double step = size * FIRST_STEP_SHARE; step >= size * LAST_STEP_SHARE;) {
        const SPoint way = WAYS[m_Random.Index(std::size(WAYS))] * step;
        const double before = candidate.m_Value;
        const SPoint from = candidate.m_Place.m_At;
        for (const SPoint move : {-way, way}) {
            const SPoint at = room.Nearest(from + move);
            const double value = m_Vicinity.ValueAt(at, candidate.m_Value);
            if (value < candidate.m_Value) {
                candidate.m_Value = value;
                candidate.m_Place.m_At = at;
            }
        }
        if (candidate.m_Value <= 0.0) {
            return;
        }
        step *= candidate.m_Value < before ? 1.1 : 0.5;
    }
}

/// Takes the overlaps for hinges, goes where the model is least, corrects the model by what is met there, and
/// goes again (a majorise-minimise scheme, since another edge of a neighbour may be met on the way).
void CPlaceRefiner::Polish(SCandidate& candidate, double reach) {
    const CPackProblem& problem = m_Overlap.Layout().Problem();
    const double tolerance = problem.Slack() / 4.0;
    // Aimed a little beyond the border: what ends on it would count as overlapping at random.
    const double beyond = problem.Slack() / 2.0;
    const SPoint origin = candidate.m_Place.m_At;
    const SPlaneBox& room = m_Overlap.Layout().RoomFor(candidate.m_Place.m_nVersion);
    const SPoint reaching{reach, reach};
    CHingeModel model({room.Nearest(origin - reaching) - origin, room.Nearest(origin + reaching) - origin});
    candidate.m_Value = m_Vicinity.GatherHinges(origin, beyond, m_Hinges);
    for (const CHingeModel::SHinge& hinge : m_Hinges) {
        (void)model.Enter(hinge, {}, tolerance);
    }
    for (int i = 0; i < MOST_POLISHES && candidate.m_Value > 0.0; ++i) {
        const SPoint move = model.FindBest(candidate.m_Place.m_At - origin);
        if (model.ValueAt(move) >= candidate.m_Value * GAIN) {
            return;
        }
        const SPoint at = room.Nearest(origin + move);
        const double value = m_Vicinity.GatherHinges(at, beyond, m_Hinges);
        bool bChanged = false;
        if (value < candidate.m_Value * GAIN) {
            candidate.m_Place.m_At = at;
            candidate.m_Value = value;
            bChanged = true;
        }
        for (const CHingeModel::SHinge& hinge : m_Hinges) {
            bChanged |= model.Enter(hinge, at - origin, tolerance);
        }
        if (!bChanged) {
            return;
        }
    }
}

}  // namespace nestrix
