#include "nest/CPlaceSampler.h"

#include <algorithm>

namespace nestrix {

namespace {

// So many batches of each kind are tried in a move.
constexpr size_t BATCHES_ANYWHERE = 5;
constexpr size_t BATCHES_AROUND = 3;
constexpr size_t BATCHES_TOUCHING = 3;

/// How far around the present place, as a share of the item's size.
constexpr double AROUND_SHARE = 0.5;

/// Up to so many items, lower bounds of all of them come first. Of more, most are too far off to matter, and
/// the bands of the layout tell the neighbours faster.
constexpr size_t MOST_RANKED_ITEMS = 128;

}  // namespace

SCandidate CPlaceSampler::FindBest() {
    m_Batches.clear();
    for (size_t i = 0; i < BATCHES_ANYWHERE + BATCHES_AROUND + BATCHES_TOUCHING; ++i) {
        SBatch& batch = m_Batches.emplace_back();
        if (i < BATCHES_ANYWHERE) {
            DrawAnywhere(batch);
        } else if (i < BATCHES_ANYWHERE + BATCHES_AROUND) {
            DrawAround(batch);
        } else {
            DrawTouching(batch);
        }
    }
    if (m_Overlap.Layout().Count() <= MOST_RANKED_ITEMS) {
        return FindBestByRank();
    }
    SCandidate best;
    for (const SBatch& batch : m_Batches) {
        for (size_t i = 0; i < batch.m_nCount; ++i) {
            TakeIfLess({batch.m_At[i], batch.m_nVersion}, best);
        }
    }
    return best;
}

size_t CPlaceSampler::AnyVersion() {
    const std::vector<size_t>& versions = m_Overlap.VersionsOfItem();
    return versions[m_Random.Index(versions.size())];
}

void CPlaceSampler::DrawAnywhere(SBatch& batch) {
    batch.m_nVersion = AnyVersion();
    const SPlaneBox& room = m_Overlap.Layout().RoomFor(batch.m_nVersion);
    if (room.IsEmpty()) {
        return;
    }
    for (SPoint& at : batch.m_At) {
        at.m_X = m_Random.Between(room.m_Low.m_X, room.m_High.m_X);
        at.m_Y = m_Random.Between(room.m_Low.m_Y, room.m_High.m_Y);
    }
    batch.m_nCount = batch.m_At.size();
}

void CPlaceSampler::DrawAround(SBatch& batch) {
    const SPlace& present = m_Overlap.Layout().PlaceOf(m_Overlap.Item());
    batch.m_nVersion = m_Random.Toss() ? present.m_nVersion : AnyVersion();
    const SPlaneBox& room = m_Overlap.Layout().RoomFor(batch.m_nVersion);
    if (room.IsEmpty()) {
        return;
    }
    const double around = AROUND_SHARE * m_Overlap.SizeOfItem();
    for (SPoint& at : batch.m_At) {
        const double x = m_Random.Between(-around, around);
        at = room.Nearest(present.m_At + SPoint{x, m_Random.Between(-around, around)});
    }
    batch.m_nCount = batch.m_At.size();
}

void CPlaceSampler::DrawTouching(SBatch& batch) {
    const CLayout& layout = m_Overlap.Layout();
    batch.m_nVersion = AnyVersion();
    const SPlaneBox& room = layout.RoomFor(batch.m_nVersion);
    for (size_t i = 0; i < batch.m_At.size(); ++i) {
        const size_t nOther = m_Random.Index(layout.Count());
        const double edge = m_Random.Share();
        // A corner of the border in one of three: there it touches another neighbour's border most often.
        const double along = m_Random.Index(3) == 0 ? 0.0 : m_Random.Share();
        if (nOther == m_Overlap.Item()) {
            continue;
        }
        const SPlace& other = layout.PlaceOf(nOther);
        const SPoint at =
            layout.Fields().PlaceOnBorder(batch.m_nVersion, other.m_nVersion, other.m_At, edge, along);
        if (room.Contains(at)) {
            batch.m_At[batch.m_nCount++] = at;
        }
    }
}

/// Asks for lower bounds of all places first, and then for the exact overlap of the least of them, as long as
/// that can be the best.
SCandidate CPlaceSampler::FindBestByRank() {
    Rank();
    const auto isWorse = [](const SRanked& a, const SRanked& b) {
        return a.m_fLeast != b.m_fLeast
                   ? a.m_fLeast > b.m_fLeast
                   : std::pair(a.m_nBatch, a.m_nPlace) > std::pair(b.m_nBatch, b.m_nPlace);
    };
    std::make_heap(m_Ranked.begin(), m_Ranked.end(), isWorse);
    SCandidate best;
    while (!m_Ranked.empty() && static_cast<double>(m_Ranked.front().m_fLeast) < best.m_Value) {
        const SBatch& batch = m_Batches[m_Ranked.front().m_nBatch];
        TakeIfLess({batch.m_At[m_Ranked.front().m_nPlace], batch.m_nVersion}, best);
        std::pop_heap(m_Ranked.begin(), m_Ranked.end(), isWorse);
        m_Ranked.pop_back();
    }
    return best;
}

void CPlaceSampler::TakeIfLess(const SPlace& place, SCandidate& best) const {
    const double value = m_Overlap.ValueAt(place, best.m_Value);
    if (value < best.m_Value) {
        best = {place, value};
    }
}

void CPlaceSampler::Rank() {
    m_nVersionsKnown = 0;
    m_Ranked.clear();
    for (uint32_t nBatch = 0; nBatch < m_Batches.size(); ++nBatch) {
        const SBatch& batch = m_Batches[nBatch];
        if (batch.m_nCount == 0) {
            continue;
        }
        SPlaceBatch places{};
        for (size_t i = 0; i < batch.m_nCount; ++i) {
            places.m_fX[i] = static_cast<float>(batch.m_At[i].m_X);
            places.m_fY[i] = static_cast<float>(batch.m_At[i].m_Y);
        }
        SumLeastDepths(LeastDepthsOf(batch.m_nVersion), places);
        for (uint32_t i = 0; i < batch.m_nCount; ++i) {
            m_Ranked.push_back({places.m_fLeast[i], nBatch, i});
        }
    }
}

const std::vector<SLeastDepths>& CPlaceSampler::LeastDepthsOf(size_t nVersion) {
    const auto end = m_LeastDepths.begin() + static_cast<std::ptrdiff_t>(m_nVersionsKnown);
    const auto known = std::find_if(m_LeastDepths.begin(), end,
                                    [nVersion](const auto& entry) { return entry.first == nVersion; });
    if (known != end) {
        return known->second;
    }
    if (m_nVersionsKnown == m_LeastDepths.size()) {
        m_LeastDepths.emplace_back();
    }
    auto& entry = m_LeastDepths[m_nVersionsKnown++];
    entry.first = nVersion;
    m_Overlap.CollectLeastDepths(nVersion, entry.second);
    return entry.second;
}

}  // namespace nestrix
