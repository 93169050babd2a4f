#include "nest/ForbiddenBorder.h"

#include <algorithm>
#include <optional>

namespace nestrix {

namespace {

/// So near to a line, a point is on it: some thousand times what rounding takes from places on a grid of 1e8
/// units, and far below a unit.
constexpr double ON_LINE = 1e-4;

/// Border edges shorter than this, in units, are left out.
constexpr double SHORTEST_EDGE = 1e-3;

/// From one share of an edge's length to another, 0 to 1.
struct SRun {
    double m_From = 0.0;
    double m_To = 1.0;
};

struct SSide {
    SPoint m_From;
    SPoint m_To;
    SPoint m_Normal;
    SPlaneBox m_Box;
};

/// The run of the side that lies inside a region. A side along one of the region's own, both facing the same
/// way, counts as inside if `bYields`: of two such sides one must stay. Facing opposite ways, both stay, and
/// between them is a slit.
std::optional<SRun> FindHidden(const SSide& side, const SForbiddenRegion& region, bool bYields) {
    SRun run;
    for (const SHalfPlane& half : region.m_Sides) {
        const double from = half.Outside(side.m_From);
        const double to = half.Outside(side.m_To);
        if (std::abs(from) < ON_LINE && std::abs(to) < ON_LINE) {
            if (bYields && Dot(half.m_Normal, side.m_Normal) > 0.0) {
                continue;
            }
            return std::nullopt;
        }
        if (from >= -ON_LINE && to >= -ON_LINE) {
            return std::nullopt;
        }
        if (from < 0.0 && to < 0.0) {
            continue;
        }
        const double share = from / (from - to);
        if (from > to) {
            run.m_From = std::max(run.m_From, share);
        } else {
            run.m_To = std::min(run.m_To, share);
        }
        if (run.m_From >= run.m_To) {
            return std::nullopt;
        }
    }
    return run;
}

void AppendEdge(const SSide& side, SRun run, std::vector<SBorderEdge>& border) {
    const SPoint along = side.m_To - side.m_From;
    const double length = Length(along);
    const double left = (run.m_To - run.m_From) * length;
    if (left >= SHORTEST_EDGE) {
        border.push_back({side.m_From + along * run.m_From, along * (1.0 / length), left});
    }
}

/// What the hidden runs leave of a side.
void AppendLeft(const SSide& side, std::vector<SRun>& hidden, std::vector<SBorderEdge>& border) {
    std::sort(hidden.begin(), hidden.end(), [](const SRun& a, const SRun& b) {
        return a.m_From < b.m_From || (a.m_From == b.m_From && a.m_To < b.m_To);
    });
    double from = 0.0;
    for (const SRun& run : hidden) {
        if (run.m_From > from) {
            AppendEdge(side, {from, run.m_From}, border);
        }
        from = std::max(from, run.m_To);
    }
    if (from < 1.0) {
        AppendEdge(side, {from, 1.0}, border);
    }
}

}  // namespace

std::vector<SBorderEdge> FindBorder(std::span<const SForbiddenRegion> regions) {
    std::vector<SBorderEdge> border;
    std::vector<SRun> hidden;
    for (size_t nOwn = 0; nOwn < regions.size(); ++nOwn) {
        const SForbiddenRegion& own = regions[nOwn];
        for (size_t i = 0; i < own.m_Corners.size(); ++i) {
            SSide side{
                own.m_Corners[i], own.m_Corners[(i + 1) % own.m_Corners.size()], own.m_Sides[i].m_Normal, {}};
            if (Cross(side.m_Normal, side.m_To - side.m_From) <= 0.0) {
                continue;  // moved inward so far that nothing is left of it
            }
            side.m_Box.Include(side.m_From);
            side.m_Box.Include(side.m_To);
            hidden.clear();
            for (size_t nOther = 0; nOther < regions.size(); ++nOther) {
                if (nOther == nOwn || GapOf(side.m_Box, regions[nOther].m_Box) > 0.0) {
                    continue;
                }
                if (const std::optional<SRun> run = FindHidden(side, regions[nOther], nOther < nOwn)) {
                    hidden.push_back(*run);
                }
            }
            AppendLeft(side, hidden, border);
        }
    }
    return border;
}

}  // namespace nestrix
