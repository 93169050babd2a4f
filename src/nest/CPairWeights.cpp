#include "nest/CPairWeights.h"

#include <algorithm>

namespace nestrix {

namespace {

// Measured over instances and seeds: the weights must grow fast and forget slowly (docs/packing-freely.md).
constexpr double LEAST_GROWTH = 1.2;
constexpr double MOST_GROWTH = 2.0;  ///< of the pair that overlaps most
constexpr double DECAY = 0.99;

/// From here on all are scaled down: their ratios are what counts.
constexpr double LARGEST_WEIGHT = 1e12;
constexpr double SCALE_DOWN = 1e-6;

}  // namespace

void CPairWeights::Reset() {
    for (std::vector<SWeight>& row : m_Rows) {
        row.clear();
    }
    m_Largest = 1.0;
}

void CPairWeights::Update(std::span<const SOverlap> overlaps) {
    double most = 0.0;
    for (const SOverlap& overlap : overlaps) {
        most = std::max(most, overlap.m_Measure);
    }
    for (const SOverlap& overlap : overlaps) {
        const double factor = LEAST_GROWTH + (MOST_GROWTH - LEAST_GROWTH) * overlap.m_Measure / most;
        Grow(overlap.m_nFirst, overlap.m_nSecond, factor);
        Grow(overlap.m_nSecond, overlap.m_nFirst, factor);
    }
    DecayOthers();
    if (m_Largest > LARGEST_WEIGHT) {
        ScaleDown();
    }
}

void CPairWeights::Grow(size_t nItem, uint32_t nOther, double factor) {
    std::vector<SWeight>& row = m_Rows[nItem];
    auto found = std::find_if(row.begin(), row.end(),
                              [nOther](const SWeight& weight) { return weight.m_nOther == nOther; });
    if (found == row.end()) {
        found = row.insert(found, {nOther, false, 1.0});
    }
    found->m_Weight *= factor;
    found->m_bGrown = true;
    m_Largest = std::max(m_Largest, found->m_Weight);
}

void CPairWeights::DecayOthers() {
    for (std::vector<SWeight>& row : m_Rows) {
        for (SWeight& weight : row) {
            weight.m_Weight *= weight.m_bGrown ? 1.0 : DECAY;
            weight.m_bGrown = false;
        }
        std::erase_if(row, [](const SWeight& weight) { return weight.m_Weight <= 1.0; });
    }
}

void CPairWeights::ScaleDown() {
    for (std::vector<SWeight>& row : m_Rows) {
        for (SWeight& weight : row) {
            weight.m_Weight *= SCALE_DOWN;
        }
        std::erase_if(row, [](const SWeight& weight) { return weight.m_Weight <= 1.0; });
    }
    m_Largest *= SCALE_DOWN;
}

}  // namespace nestrix
