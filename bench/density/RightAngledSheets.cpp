#include "bench/density/RightAngledSheets.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <map>
#include <set>
#include <utility>

#include "nest/CRandom.h"

namespace nestrix::bench {

namespace {

struct SCellPoint {
    int m_nX;
    int m_nY;

    auto operator<=>(const SCellPoint&) const = default;
    SCellPoint operator+(const SCellPoint& other) const { return {m_nX + other.m_nX, m_nY + other.m_nY}; }
};

/// Each by its lower left corner.
using CCells = std::set<SCellPoint>;

/// To the neighbours of a cell, counter-clockwise from below.
constexpr SCellPoint WAYS[] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};

/// The sides of cells that border others, counter-clockwise about the cells: from where to where. Empty where
/// the cells touch only at a corner.
std::map<SCellPoint, SCellPoint> SidesOf(const CCells& cells) {
    constexpr SCellPoint CORNERS[] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    std::map<SCellPoint, SCellPoint> sides;
    for (const SCellPoint cell : cells) {
        for (size_t i = 0; i < 4; ++i) {
            if (!cells.contains(cell + WAYS[i]) &&
                !sides.emplace(cell + CORNERS[i], cell + CORNERS[(i + 1) % 4]).second) {
                return {};
            }
        }
    }
    return sides;
}

/// The corners of the cells' outline; none where it is not one simple ring.
std::vector<SCellPoint> OutlineOf(const CCells& cells) {
    const std::map<SCellPoint, SCellPoint> sides = SidesOf(cells);
    std::vector<SCellPoint> outline;
    if (sides.empty()) {
        return outline;
    }
    size_t nSides = 0;
    SCellPoint before = sides.begin()->first;
    SCellPoint at = sides.begin()->second;
    do {
        const SCellPoint next = sides.at(at);
        if ((next.m_nX == at.m_nX) != (at.m_nX == before.m_nX)) {
            outline.push_back(at);
        }
        before = std::exchange(at, next);
        ++nSides;
    } while (at != sides.begin()->second);
    return nSides == sides.size() ? outline : std::vector<SCellPoint>();
}

/// A part of the cells that hangs together, grown from any of them.
CCells PartOf(const CCells& cells, size_t nCells, CRandom& random) {
    std::vector<SCellPoint> open{*std::next(cells.begin(), static_cast<int>(random.Index(cells.size())))};
    CCells part;
    while (part.size() < nCells && !open.empty()) {
        const size_t nNext = random.Index(open.size());
        const SCellPoint cell = open[nNext];
        open.erase(open.begin() + static_cast<std::ptrdiff_t>(nNext));
        if (part.insert(cell).second) {
            for (const SCellPoint way : WAYS) {
                if (cells.contains(cell + way)) {
                    open.push_back(cell + way);
                }
            }
        }
    }
    return part;
}

/// Parts cells in two of about the same number, both without holes.
std::pair<CCells, CCells> Halved(const CCells& cells, CRandom& random) {
    for (;;) {
        const double share = random.Between(0.35, 0.65);
        const auto nCells = static_cast<size_t>(std::lround(share * static_cast<double>(cells.size())));
        const CCells part = PartOf(cells, std::max<size_t>(nCells, 1), random);
        CCells rest;
        std::set_difference(cells.begin(), cells.end(), part.begin(), part.end(),
                            std::inserter(rest, rest.end()));
        if (!OutlineOf(part).empty() && !OutlineOf(rest).empty()) {
            return {part, rest};
        }
    }
}

}  // namespace

std::vector<CRing> CutIntoRectangles(double sheet, int nPieces, uint64_t nSeed) {
    CRandom random(nSeed);
    std::vector<SPoint> sizes{{sheet, sheet}};
    while (static_cast<int>(sizes.size()) < nPieces) {
        const auto largest = std::max_element(
            sizes.begin(), sizes.end(), [](SPoint a, SPoint b) { return a.m_X * a.m_Y < b.m_X * b.m_Y; });
        SPoint rest = *largest;
        double SPoint::*const pSide = rest.m_X > rest.m_Y ? &SPoint::m_X : &SPoint::m_Y;
        (*largest).*pSide = std::round(rest.*pSide * random.Between(0.3, 0.7));
        rest.*pSide -= (*largest).*pSide;
        sizes.push_back(rest);
    }
    std::vector<CRing> rings;
    for (const SPoint size : sizes) {
        rings.push_back({{0.0, 0.0}, {size.m_X, 0.0}, size, {0.0, size.m_Y}});
    }
    return rings;
}

std::vector<CRing> CutIntoLetters(double sheet, int nPieces, uint64_t nSeed) {
    CRandom random(nSeed);
    const int nSide = static_cast<int>(std::ceil(std::sqrt(5.0 * nPieces)));
    std::vector<CCells> pieces(1);
    for (int i = 0; i < nSide * nSide; ++i) {
        pieces[0].insert({i % nSide, i / nSide});
    }
    while (static_cast<int>(pieces.size()) < nPieces) {
        const auto largest =
            std::max_element(pieces.begin(), pieces.end(),
                             [](const CCells& a, const CCells& b) { return a.size() < b.size(); });
        auto [part, rest] = Halved(*largest, random);
        *largest = std::move(part);
        pieces.push_back(std::move(rest));
    }
    std::vector<CRing> rings;
    for (const CCells& piece : pieces) {
        CRing& ring = rings.emplace_back();
        for (const SCellPoint corner : OutlineOf(piece)) {
            ring.push_back(
                {std::round(corner.m_nX * sheet / nSide), std::round(corner.m_nY * sheet / nSide)});
        }
    }
    return rings;
}

}  // namespace nestrix::bench
