#include "nest/FirstPacking.h"

#include <algorithm>
#include <optional>
#include <span>

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

/// A placement for each item: those that lack one lie above all others, by their boxes.
std::vector<SFreePlacement> StackLacking(const CPackProblem& problem,
                                         std::span<const std::optional<SFreePlacement>> placements) {
    std::vector<SFreePlacement> kept;
    std::vector<size_t> lacking;
    for (size_t i = 0; i < placements.size(); ++i) {
        if (placements[i]) {
            kept.push_back(*placements[i]);
        } else {
            lacking.push_back(i);
        }
    }
    const int64_t nFloor = kept.empty() ? problem.Strip().m_nMargin
                                        : problem.PackingOf(kept).m_nHeight + problem.Strip().m_nSpacing;
    const std::vector<SFreePlacement> above = PackBoxes(problem, lacking, nFloor);
    std::vector<SFreePlacement> all;
    size_t nAbove = 0;
    for (const std::optional<SFreePlacement>& placement : placements) {
        all.push_back(placement ? *placement : above[nAbove++]);
    }
    return all;
}

/// The items to be taken away so that none of these violations is left: again and again the one that has to
/// do with most of them.
std::vector<size_t> FindCulprits(std::vector<SViolation> violations, size_t nItems) {
    std::vector<size_t> culprits;
    while (true) {
        std::vector<int> shares(nItems, 0);
        for (const SViolation& violation : violations) {
            for (const int nItem : {violation.m_nFirst, violation.m_nSecond}) {
                if (nItem >= 0) {
                    ++shares[static_cast<size_t>(nItem)];
                }
            }
        }
        const auto most = std::max_element(shares.begin(), shares.end());
        if (most == shares.end() || *most == 0) {
            return culprits;
        }
        const auto nCulprit = static_cast<int>(most - shares.begin());
        culprits.push_back(static_cast<size_t>(nCulprit));
        std::erase_if(violations, [nCulprit](const SViolation& violation) {
            return violation.m_nFirst == nCulprit || violation.m_nSecond == nCulprit;
        });
    }
}

}  // namespace

std::vector<SFreePlacement> LiftOverlapping(const CPackProblem& problem, std::vector<SFreePlacement> placed) {
    const SCertificate certificate = Certify(problem.Pieces(), problem.PackingOf(placed));
    if (certificate.IsValid()) {
        return placed;
    }
    std::vector<std::optional<SFreePlacement>> kept(placed.begin(), placed.end());
    for (const size_t nItem : FindCulprits(certificate.m_Violations, placed.size())) {
        kept[nItem].reset();
    }
    placed = StackLacking(problem, kept);
    return Certify(problem.Pieces(), problem.PackingOf(placed)).IsValid() ? placed : PackAllBoxes(problem);
}

std::vector<SFreePlacement> FindFirstPacking(const CPackProblem& problem, const SFreePacking* pStart) {
    return pStart == nullptr ? PackAllBoxes(problem)
                             : LiftOverlapping(problem, StackLacking(problem, MatchItems(problem, *pStart)));
}

}  // namespace nestrix
