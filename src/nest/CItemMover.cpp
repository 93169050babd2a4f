#include "nest/CItemMover.h"

#include <algorithm>

namespace nestrix {

namespace {

// So many places of each kind are tried in a move.
constexpr int PLACES_ANYWHERE = 40;
constexpr int PLACES_AROUND = 20;
constexpr int PLACES_TOUCHING = 20;

// Shares of an item's size, the square root of its area.
constexpr double AROUND_SHARE = 0.5;      ///< how far around the present place
constexpr double FIRST_STEP_SHARE = 0.2;  ///< of the descent
constexpr double LAST_STEP_SHARE = 0.002;
constexpr double POLISH_SHARE = 0.3;  ///< how far the last polish may move

constexpr int MOST_POLISHES = 8;

/// Less than this share is no gain.
constexpr double GAIN = 0.9999;

SPoint Clamped(SPoint point, const SPlaneBox& room) {
    return {std::min(std::max(point.m_X, room.m_Low.m_X), room.m_High.m_X),
            std::min(std::max(point.m_Y, room.m_Low.m_Y), room.m_High.m_Y)};
}

bool IsEmpty(const SPlaneBox& room) {
    return room.m_High.m_X < room.m_Low.m_X || room.m_High.m_Y < room.m_Low.m_Y;
}

bool IsIn(SPoint point, const SPlaneBox& room) {
    return point.m_X >= room.m_Low.m_X && point.m_X <= room.m_High.m_X && point.m_Y >= room.m_Low.m_Y &&
           point.m_Y <= room.m_High.m_Y;
}

}  // namespace

CItemMover::CItemMover(CLayout& layout, const CPairWeights& weights, CRandom& random)
    : m_Layout(layout), m_Weights(weights), m_Random(random) {
    const CPackProblem& problem = layout.Problem();
    const double mean = problem.TotalArea() / static_cast<double>(problem.Items().size());
    for (const size_t nPiece : problem.Items()) {
        // The fourth root of the area.
        m_Scales.push_back(std::sqrt(std::sqrt(problem.AreaOf(nPiece) / mean)));
    }
    m_Factors = m_Scales;
}

void CItemMover::LoadFactors(size_t nItem) {
    for (const CPairWeights::SWeight& weight : m_Weights.RowOf(nItem)) {
        m_Factors[weight.m_nOther] = m_Scales[weight.m_nOther] * weight.m_Weight;
    }
    m_Factors[nItem] = 0.0;
}

void CItemMover::UnloadFactors(size_t nItem) {
    for (const CPairWeights::SWeight& weight : m_Weights.RowOf(nItem)) {
        m_Factors[weight.m_nOther] = m_Scales[weight.m_nOther];
    }
    m_Factors[nItem] = m_Scales[nItem];
}

bool CItemMover::Move(size_t nItem) {
    LoadFactors(nItem);
    SCandidate present{m_Layout.PlaceOf(nItem), 0.0};
    present.m_Value = ValueAt(nItem, present.m_Place, HUGE_VAL);
    const double before = present.m_Value;
    bool bMoved = false;
    if (before > 0.0) {
        SCandidate best;
        TryPlaces(nItem, best);
        Refine(nItem, present);
        if (best.m_Value < HUGE_VAL) {
            Refine(nItem, best);
        }
        const bool bOther =
            best.m_Value < present.m_Value || (best.m_Value == present.m_Value && m_Random.Toss());
        const SCandidate& chosen = bOther ? best : present;
        bMoved = chosen.m_Value <= before;
        if (bMoved) {
            m_Layout.Move(nItem, chosen.m_Place);
        }
    }
    UnloadFactors(nItem);
    return bMoved;
}

double CItemMover::ValueAt(size_t nItem, const SPlace& place, double limit) const {
    double value = 0.0;
    m_Layout.VisitNeighbours(place, [&](size_t nOther) {
        if (nOther != nItem) {
            const SPlace& other = m_Layout.PlaceOf(nOther);
            value += m_Layout.Fields().DepthOf(place.m_nVersion, place.m_At, other.m_nVersion, other.m_At,
                                               m_Factors[nOther], limit - value);
        }
        return value < limit;
    });
    return value;
}

size_t CItemMover::AnyVersionOf(size_t nItem) {
    const CPackProblem& problem = m_Layout.Problem();
    const std::vector<size_t>& versions = problem.VersionsOf(problem.Items()[nItem]);
    return versions[m_Random.Index(versions.size())];
}

void CItemMover::Try(size_t nItem, const SPlace& place, SCandidate& best) const {
    const double value = ValueAt(nItem, place, best.m_Value);
    if (value < best.m_Value) {
        best = {place, value};
    }
}

void CItemMover::TryPlaces(size_t nItem, SCandidate& best) {
    const SPlace present = m_Layout.PlaceOf(nItem);
    const CPackProblem& problem = m_Layout.Problem();
    const double around = AROUND_SHARE * std::sqrt(problem.AreaOf(problem.Items()[nItem]));
    for (int i = 0; i < PLACES_ANYWHERE; ++i) {
        const size_t nVersion = AnyVersionOf(nItem);
        const SPlaneBox room = m_Layout.RoomFor(nVersion);
        if (!IsEmpty(room)) {
            const double x = m_Random.Between(room.m_Low.m_X, room.m_High.m_X);
            Try(nItem, {{x, m_Random.Between(room.m_Low.m_Y, room.m_High.m_Y)}, nVersion}, best);
        }
    }
    for (int i = 0; i < PLACES_AROUND; ++i) {
        const size_t nVersion = m_Random.Toss() ? present.m_nVersion : AnyVersionOf(nItem);
        const SPlaneBox room = m_Layout.RoomFor(nVersion);
        if (!IsEmpty(room)) {
            const double x = m_Random.Between(-around, around);
            const SPoint at = present.m_At + SPoint{x, m_Random.Between(-around, around)};
            Try(nItem, {Clamped(at, room), nVersion}, best);
        }
    }
    for (int i = 0; i < PLACES_TOUCHING; ++i) {
        const size_t nVersion = AnyVersionOf(nItem);
        const size_t nOther = m_Random.Index(m_Layout.Count());
        const double edge = m_Random.Share();
        // A corner of the border in one of three: there it touches another neighbour's border most often.
        const double along = m_Random.Index(3) == 0 ? 0.0 : m_Random.Share();
        if (nOther == nItem) {
            continue;
        }
        const SPlace& other = m_Layout.PlaceOf(nOther);
        const SPoint at =
            m_Layout.Fields().PlaceOnBorder(nVersion, other.m_nVersion, other.m_At, edge, along);
        if (IsIn(at, m_Layout.RoomFor(nVersion))) {
            Try(nItem, {at, nVersion}, best);
        }
    }
}

void CItemMover::Refine(size_t nItem, SCandidate& candidate) {
    const CPackProblem& problem = m_Layout.Problem();
    const double size = std::sqrt(problem.AreaOf(problem.Items()[nItem]));
    Descend(nItem, candidate, size);
    if (candidate.m_Value > 0.0) {
        Polish(nItem, candidate, size * POLISH_SHARE);
    }
}

/// Tries steps forth and back along the axes and the diagonals, longer ones after a success, shorter ones
/// after a failure.
void CItemMover::Descend(size_t nItem, SCandidate& candidate, double size) {
    constexpr SPoint WAYS[] = {{1.0, 0.0}, {0.0, 1.0}, {1.0, 1.0}, {1.0, -1.0}};
    const SPlaneBox room = m_Layout.RoomFor(candidate.m_Place.m_nVersion);
    for (double step = size * FIRST_STEP_SHARE; step >= size * LAST_STEP_SHARE;) {
        const SPoint way = WAYS[m_Random.Index(std::size(WAYS))] * step;
        SCandidate best = candidate;
        for (const SPoint move : {-way, way}) {
            Try(nItem, {Clamped(candidate.m_Place.m_At + move, room), candidate.m_Place.m_nVersion}, best);
        }
        if (best.m_Value < candidate.m_Value) {
            candidate = best;
            step *= 1.1;
            if (best.m_Value <= 0.0) {
                return;
            }
        } else {
            step *= 0.5;
        }
    }
}

double CItemMover::GatherHinges(size_t nItem, const SPlace& place) {
    // Aimed a little beyond the border: what ends on it would count as overlapping at random.
    const double beyond = m_Layout.Problem().Slack() / 2.0;
    double value = 0.0;
    m_Hinges.clear();
    m_Layout.VisitNeighbours(place, [&](size_t nOther) {
        if (nOther != nItem) {
            const SPlace& other = m_Layout.PlaceOf(nOther);
            const SDepth depth =
                m_Layout.Fields().FindWayOut(place.m_nVersion, place.m_At, other.m_nVersion, other.m_At);
            if (depth.m_Depth > 0.0) {
                value += m_Factors[nOther] * depth.m_Depth;
                m_Hinges.push_back(
                    {static_cast<uint32_t>(nOther), depth.m_Depth + beyond, depth.m_Out, m_Factors[nOther]});
            }
        }
        return true;
    });
    return value;
}

/// Takes the overlaps for hinges, goes where the model is least, corrects the model by what is met there, and
/// goes again (a majorise-minimise scheme, since another edge of a neighbour may be met on the way).
void CItemMover::Polish(size_t nItem, SCandidate& candidate, double reach) {
    const double tolerance = m_Layout.Problem().Slack() / 4.0;
    const SPoint origin = candidate.m_Place.m_At;
    const SPlaneBox room = m_Layout.RoomFor(candidate.m_Place.m_nVersion);
    const SPoint reaching{reach, reach};
    CHingeModel model({Clamped(origin - reaching, room) - origin, Clamped(origin + reaching, room) - origin});
    candidate.m_Value = GatherHinges(nItem, candidate.m_Place);
    for (const CHingeModel::SHinge& hinge : m_Hinges) {
        (void)model.Enter(hinge, {}, tolerance);
    }
    for (int i = 0; i < MOST_POLISHES && candidate.m_Value > 0.0; ++i) {
        const SPoint move = model.FindBest(candidate.m_Place.m_At - origin);
        if (model.ValueAt(move) >= candidate.m_Value * GAIN) {
            return;
        }
        const SPlace place{Clamped(origin + move, room), candidate.m_Place.m_nVersion};
        const double value = GatherHinges(nItem, place);
        bool bChanged = false;
        if (value < candidate.m_Value * GAIN) {
            candidate = {place, value};
            bChanged = true;
        }
        for (const CHingeModel::SHinge& hinge : m_Hinges) {
            bChanged |= model.Enter(hinge, place.m_At - origin, tolerance);
        }
        if (!bChanged) {
            return;
        }
    }
}

}  // namespace nestrix
