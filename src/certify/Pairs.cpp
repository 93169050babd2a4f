#include "certify/Pairs.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include "certify/Amounts.h"
#include "certify/CBoxSweep.h"
#include "certify/Inside.h"
#include "certify/Spacing.h"

namespace nestrix::certify {

namespace {

std::optional<SViolation> Examine(const SBorder& first, const SBorder& second, int64_t nDistance,
                                  double unit) {
    using EKind = SViolation::EKind;
    if (Overlap(first, second)) {
        return SViolation{EKind::OVERLAP, -1, -1, DepthOf(first, second) * unit};
    }
    if (nDistance > 0 && AreNearer(first, second, nDistance)) {
        // What is missing of the spacing itself, which is one unit more.
        const double missing = static_cast<double>(nDistance + 1) - DistanceBetween(first, second, nDistance);
        return SViolation{EKind::SPACING, -1, -1, missing * unit};
    }
    return std::nullopt;
}

}  // namespace

std::vector<SViolation> FindWrongPairs(std::span<const SBorder> borders, int64_t nDistance, double unit) {
    CBoxSweep sweep;
    sweep.Reserve(borders.size());
    for (size_t i = 0; i < borders.size(); ++i) {
        if (!borders[i].m_Box.IsEmpty()) {
            // Half on either side, rounded up.
            sweep.Add(Grown(borders[i].m_Box, (nDistance + 1) / 2), static_cast<int>(i));
        }
    }
    std::vector<SViolation> wrong;
    sweep.VisitPairs([&](int i, int j) {
        const auto [nFirst, nSecond] = std::minmax(i, j);
        if (std::optional<SViolation> violation =
                Examine(borders[static_cast<size_t>(nFirst)], borders[static_cast<size_t>(nSecond)],
                        nDistance, unit)) {
            violation->m_nFirst = nFirst;
            violation->m_nSecond = nSecond;
            wrong.push_back(*violation);
        }
        return wrong.size() >= PAIRS_NAMED_MOST;
    });
    std::sort(wrong.begin(), wrong.end(), [](const SViolation& a, const SViolation& b) {
        return std::tie(a.m_nFirst, a.m_nSecond) < std::tie(b.m_nFirst, b.m_nSecond);
    });
    return wrong;
}

}  // namespace nestrix::certify
