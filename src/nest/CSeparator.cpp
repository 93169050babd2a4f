#include "nest/CSeparator.h"

#include <algorithm>
#include <utility>

namespace nestrix {

namespace {

/// Only a total overlap below this share of the least so far is clear progress.
constexpr double PROGRESS = 0.98;

}  // namespace

CSeparator::CSeparator(CLayout& layout, CRandom& random, CStepCounter& steps)
    : m_Layout(layout),
      m_Random(random),
      m_Steps(steps),
      m_Weights(layout.Count()),
      m_Mover(layout, m_Weights, random) {}

double CSeparator::MeasureOverlap() {
    m_Overlaps.clear();
    m_Overlapping.clear();
    double total = 0.0;
    std::vector<bool> overlapping(m_Layout.Count(), false);
    for (size_t nItem = 0; nItem < m_Layout.Count(); ++nItem) {
        const SPlace& place = m_Layout.PlaceOf(nItem);
        m_Layout.VisitNeighbours(place, [&](size_t nOther) {
            if (nOther > nItem) {
                const SPlace& other = m_Layout.PlaceOf(nOther);
                const double depth =
                    m_Layout.Fields().DepthOf(place.m_nVersion, place.m_At, other.m_nVersion, other.m_At);
                if (depth > 0.0) {
                    const double measure = depth * m_Mover.ScaleOf(nItem, nOther);
                    m_Overlaps.push_back(
                        {static_cast<uint32_t>(nItem), static_cast<uint32_t>(nOther), measure});
                    total += measure;
                    overlapping[nItem] = overlapping[nOther] = true;
                }
            }
            return true;
        });
    }
    for (size_t nItem = 0; nItem < m_Layout.Count(); ++nItem) {
        if (overlapping[nItem]) {
            m_Overlapping.push_back(nItem);
        }
    }
    return total;
}

bool CSeparator::Separate(const SPatience& patience, const std::function<bool(double)>& improved) {
    m_Weights.Reset();
    m_Least = HUGE_VAL;
    for (int nStrike = 0; nStrike < patience.m_nStrikes; ++nStrike) {
        const double before = m_Least;
        const EOutcome outcome = Strike(patience, improved);
        if (outcome == EOutcome::SEPARATED) {
            return true;
        }
        m_Layout.Assign(m_Best, m_Layout.Height());
        if (outcome == EOutcome::OVER || (nStrike > 0 && m_Least > PROGRESS * before)) {
            return false;
        }
    }
    return false;
}

CSeparator::EOutcome CSeparator::Strike(const SPatience& patience,
                                        const std::function<bool(double)>& improved) {
    for (int nWithout = 0; nWithout < patience.m_nPasses;) {
        const double total = MeasureOverlap();
        if (total <= 0.0) {
            return EOutcome::SEPARATED;
        }
        nWithout = total < PROGRESS * m_Least ? 0 : nWithout + 1;
        const bool bLeast = total < m_Least;
        if (bLeast) {
            m_Least = total;
            m_Best = m_Layout.Places();
        }
        if (bLeast && improved(total)) {
            return EOutcome::SEPARATED;
        }
        m_Weights.Update(m_Overlaps);
        if (!MoveOverlapping()) {
            return EOutcome::OVER;
        }
    }
    return EOutcome::STUCK;
}

/// Moves each item that overlaps once, in random order.
/// @return false when the search is over.
bool CSeparator::MoveOverlapping() {
    for (size_t i = m_Overlapping.size(); i > 1; --i) {
        std::swap(m_Overlapping[i - 1], m_Overlapping[m_Random.Index(i)]);
    }
    for (const size_t nItem : m_Overlapping) {
        if (!m_Steps.Take()) {
            return false;
        }
        (void)m_Mover.Move(nItem);
    }
    return true;
}

}  // namespace nestrix
