#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace nestrix::certify {

/// The part of the line of a sweep that something takes.
struct SRange {
    int64_t m_nLow = 0;
    int64_t m_nHigh = 0;
};

/// Things with a number each, of which is known what they take up along two axes: finds those that may meet.
/// Goes over them in the order of their low ends along the first axis, so that a thing is compared with those
/// only that begin before it ends.
///
/// Order of use: Add all, then ask.
class CRangeSweep {
public:
    void Reserve(size_t nThings) { m_Things.reserve(nThings); }

    void Add(SRange along, SRange across, int nIndex) { m_Things.push_back({along, across, nIndex}); }

    /// Calls visit(i, j) once for each two things whose ranges meet along both axes, until it returns true.
    /// @return whether it did.
    template <class TVisit>
    bool VisitPairs(TVisit&& visit) {
        Sort();
        for (size_t i = 0; i < m_Things.size(); ++i) {
            if (VisitFrom(i + 1, m_Things, m_Things[i], visit)) {
                return true;
            }
        }
        return false;
    }

    /// The same for pairs of a thing of this sweep with one of another, in this order.
    template <class TVisit>
    bool VisitPairs(CRangeSweep& other, TVisit&& visit) {
        Sort();
        other.Sort();
        const auto visitSwapped = [&visit](int i, int j) { return visit(j, i); };
        size_t i = 0;
        size_t j = 0;
        while (i < m_Things.size() && j < other.m_Things.size()) {
            const bool bMine = m_Things[i].m_Along.m_nLow <= other.m_Things[j].m_Along.m_nLow;
            if (bMine ? VisitFrom(j, other.m_Things, m_Things[i], visit)
                      : VisitFrom(i, m_Things, other.m_Things[j], visitSwapped)) {
                return true;
            }
            ++(bMine ? i : j);
        }
        return false;
    }

private:
    struct SThing {
        SRange m_Along;
        SRange m_Across;
        int m_nIndex = 0;
    };
    using CThings = std::vector<SThing>;

    /// The thing with those of the rest that begin before it ends.
    template <class TVisit>
    static bool VisitFrom(size_t nFirst, const CThings& rest, const SThing& thing, TVisit& visit) {
        for (size_t i = nFirst; i < rest.size() && rest[i].m_Along.m_nLow <= thing.m_Along.m_nHigh; ++i) {
            if (rest[i].m_Across.m_nLow <= thing.m_Across.m_nHigh &&
                thing.m_Across.m_nLow <= rest[i].m_Across.m_nHigh &&
                visit(thing.m_nIndex, rest[i].m_nIndex)) {
                return true;
            }
        }
        return false;
    }

    void Sort() {
        std::sort(m_Things.begin(), m_Things.end(), [](const SThing& a, const SThing& b) {
            return a.m_Along.m_nLow != b.m_Along.m_nLow ? a.m_Along.m_nLow < b.m_Along.m_nLow
                                                        : a.m_nIndex < b.m_nIndex;
        });
    }

    CThings m_Things;
};

}  // namespace nestrix::certify
