#include "nest/FirstPacking.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "certify/Certify.h"
#include "nest/BoxPacking.h"

namespace nestrix {

namespace {

std::vector<SFreePlacement> PackAllBoxes(const CPackProblem& problem) {
    std::vector<size_t> items(problem.Items().size());
    for (size_t i = 0; i < items.size(); ++i) {
        items[i] = i;
    }
    return PackBoxes(problem, items, problem.Strip().m_nMargin);
}

/// The same place on the problem's grid, which is another one where the strip's width differs.
SFreePlacement OnGridOf(const CPackProblem& problem, const SGrid& grid, SFreePlacement placement) {
    if (!(grid == problem.Grid())) {
        placement.m_At = {problem.Grid().Count(grid.Length(placement.m_At.m_nX)),
                          problem.Grid().Count(grid.Length(placement.m_At.m_nY))};
    }
    return placement;
}

/// The earlier placements by item; nothing for items that it lacks.
std::vector<std::optional<SFreePlacement>> MatchItems(const CPackProblem& problem,
                                                      const SFreePacking& start) {
    const std::vector<size_t>& items = problem.Items();
    std::vector<std::optional<SFreePlacement>> matched(items.size());
    std::vector<size_t> next(problem.Pieces().size());  // of each piece's items
    for (size_t nPiece = 0; nPiece < next.size(); ++nPiece) {
        next[nPiece] =
            static_cast<size_t>(std::lower_bound(items.begin(), items.end(), nPiece) - items.begin());
    }
    for (const SFreePlacement& placement : start.m_Placed) {
        const size_t nPiece = static_cast<size_t>(placement.m_nPiece);
        if (placement.m_nPiece < 0 || nPiece >= next.size() ||
            !problem.FindVersion(nPiece, placement.m_Degrees, placement.m_bMirrored)) {
            continue;
        }
        const size_t nItem = next[nPiece];
        if (nItem < items.size() && items[nItem] == nPiece) {
            matched[nItem] = OnGridOf(problem, start.m_Grid, placement);
            ++next[nPiece];
        }
    }
    return matched;
}

}  // namespace

std::vector<SFreePlacement> FindFirstPacking(const CPackProblem& problem, const SFreePacking* pStart) {
    if (pStart == nullptr) {
        return PackAllBoxes(problem);
    }
    const std::vector<std::optional<SFreePlacement>> matched = MatchItems(problem, *pStart);
    std::vector<SFreePlacement> kept;
    std::vector<size_t> lacking;
    for (size_t i = 0; i < matched.size(); ++i) {
        if (matched[i]) {
            kept.push_back(*matched[i]);
        } else {
            lacking.push_back(i);
        }
    }
    const int64_t nFloor = kept.empty() ? problem.Strip().m_nMargin
                                        : problem.PackingOf(kept).m_nHeight + problem.Strip().m_nSpacing;
    const std::vector<SFreePlacement> above = PackBoxes(problem, lacking, nFloor);
    std::vector<SFreePlacement> all;
    size_t nAbove = 0;
    for (const std::optional<SFreePlacement>& placement : matched) {
        all.push_back(placement ? *placement : above[nAbove++]);
    }
    return Certify(problem.Pieces(), problem.PackingOf(all)).IsValid() ? all : PackAllBoxes(problem);
}

}  // namespace nestrix
