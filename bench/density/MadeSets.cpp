#include "bench/density/MadeSets.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <stdexcept>

#include "bench/density/RightAngledSheets.h"
#include "nest/CRandom.h"
#include "packing/PointVectors.h"

namespace nestrix::bench {

namespace {

constexpr double SHEET = 1000.0;
const std::vector<double> QUARTERS{0.0, 90.0, 180.0, 270.0};

double TwiceAreaOf(const CRing& ring) {
    double area = 0.0;
    for (size_t i = 0; i < ring.size(); ++i) {
        area += Cross(ring[i], ring[(i + 1) % ring.size()]);
    }
    return area;
}

/// The part of a convex ring that lies to the left of the line through `at` along `way`.
CRing LeftOf(const CRing& ring, SPoint at, SPoint way) {
    CRing left;
    for (size_t i = 0; i < ring.size(); ++i) {
        const SPoint a = ring[i];
        const SPoint b = ring[(i + 1) % ring.size()];
        const double aSide = Cross(way, a - at);
        const double bSide = Cross(way, b - at);
        if (aSide >= 0.0) {
            left.push_back(a);
        }
        if ((aSide > 0.0) != (bSide > 0.0) && aSide != bSide) {
            const SPoint crossing = a + (b - a) * (aSide / (aSide - bSide));
            left.push_back({std::round(crossing.m_X * 1e6) / 1e6, std::round(crossing.m_Y * 1e6) / 1e6});
        }
    }
    return left;
}

SPiece PieceOf(CRing outline, std::vector<double> turns) {
    SPiece piece;
    piece.m_Shape.m_Outline = std::move(outline);
    piece.m_Turns.m_Degrees = std::move(turns);
    return piece;
}

/// r(φ) = size · (1 + some waves), so that no outline crosses itself.
CRing MakeBlob(CRandom& random, double size, int nVertices) {
    double amplitudes[5];
    double phases[5];
    for (int i = 0; i < 5; ++i) {
        amplitudes[i] = random.Between(0.0, 0.35 / (i + 1));
        phases[i] = random.Between(0.0, 2.0 * std::numbers::pi);
    }
    const double stretch = random.Between(1.0, 2.5);
    CRing outline;
    for (int i = 0; i < nVertices; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / nVertices;
        double radius = size;
        for (int k = 0; k < 5; ++k) {
            radius += size * amplitudes[k] * std::cos((k + 2) * angle + phases[k]);
        }
        outline.push_back({radius * std::cos(angle) * stretch, radius * std::sin(angle)});
    }
    return outline;
}

SInstance SheetOf(const std::string& kind, const std::vector<CRing>& rings, const std::vector<double>& turns,
                  uint64_t nSeed) {
    SInstance instance{
        kind + "-" + std::to_string(rings.size()) + "-" + std::to_string(nSeed), {SHEET, 0.0, 0.0}, {}, {}};
    for (const CRing& ring : rings) {
        instance.m_Pieces.push_back(PieceOf(ring, turns));
    }
    return instance;
}

}  // namespace

SInstance MakeCutSheet(int nPieces, uint64_t nSeed) {
    CRandom random(nSeed);
    std::vector<CRing> rings{{{0.0, 0.0}, {SHEET, 0.0}, {SHEET, SHEET}, {0.0, SHEET}}};
    while (static_cast<int>(rings.size()) < nPieces) {
        const auto largest = std::max_element(rings.begin(), rings.end(), [](const CRing& a, const CRing& b) {
            return TwiceAreaOf(a) < TwiceAreaOf(b);
        });
        SPoint middle{0.0, 0.0};
        for (const SPoint point : *largest) {
            middle = middle + point * (1.0 / static_cast<double>(largest->size()));
        }
        const double angle = random.Between(0.0, std::numbers::pi);
        const SPoint way{std::cos(angle), std::sin(angle)};
        const CRing one = LeftOf(*largest, middle, way);
        const CRing other = LeftOf(*largest, middle, -way);
        *largest = one;
        rings.push_back(other);
    }
    return SheetOf("sheet", rings, {0.0, 180.0}, nSeed);
}

SInstance MakeRectangles(int nPieces, uint64_t nSeed) {
    return SheetOf("rectangles", CutIntoRectangles(SHEET, nPieces, nSeed), QUARTERS, nSeed);
}

SInstance MakeLetters(int nPieces, uint64_t nSeed) {
    return SheetOf("letters", CutIntoLetters(SHEET, nPieces, nSeed), QUARTERS, nSeed);
}

SInstance MakeBlobs(int nPieces, uint64_t nSeed) {
    CRandom random(nSeed);
    SInstance instance{
        "blobs-" + std::to_string(nPieces) + "-" + std::to_string(nSeed), {SHEET, 0.0, 0.0}, {}, {}};
    for (int i = 0; i < nPieces; ++i) {
        const int nVertices = 50 + static_cast<int>(random.Index(71));
        const double size = random.Between(25.0, 75.0);
        instance.m_Pieces.push_back(PieceOf(MakeBlob(random, size, nVertices), QUARTERS));
    }
    return instance;
}

SInstance MakeCopies(int nPieces, int nKinds, int nVertices, uint64_t nSeed) {
    CRandom random(nSeed);
    SInstance instance{"copies-" + std::to_string(nPieces) + "-" + std::to_string(nKinds) + "-" +
                           std::to_string(nVertices) + "-" + std::to_string(nSeed),
                       {SHEET, 0.0, 0.0},
                       {},
                       {}};
    for (int i = 0; i < nKinds; ++i) {
        const double size = random.Between(15.0, 45.0);
        SPiece piece = PieceOf(MakeBlob(random, size, nVertices), QUARTERS);
        piece.m_nQuantity = nPieces / nKinds + (i < nPieces % nKinds ? 1 : 0);
        instance.m_Pieces.push_back(std::move(piece));
    }
    return instance;
}

SInstance MakeSet(const std::string& name) {
    int nPieces = 0;
    int nKinds = 0;
    int nVertices = 0;
    unsigned long long nSeed = 0;
    if (std::sscanf(name.c_str(), "sheet-%d-%llu", &nPieces, &nSeed) == 2) {
        return MakeCutSheet(nPieces, nSeed);
    }
    if (std::sscanf(name.c_str(), "rectangles-%d-%llu", &nPieces, &nSeed) == 2) {
        return MakeRectangles(nPieces, nSeed);
    }
    if (std::sscanf(name.c_str(), "letters-%d-%llu", &nPieces, &nSeed) == 2) {
        return MakeLetters(nPieces, nSeed);
    }
    if (std::sscanf(name.c_str(), "blobs-%d-%llu", &nPieces, &nSeed) == 2) {
        return MakeBlobs(nPieces, nSeed);
    }
    if (std::sscanf(name.c_str(), "copies-%d-%d-%d-%llu", &nPieces, &nKinds, &nVertices, &nSeed) == 4) {
        return MakeCopies(nPieces, nKinds, nVertices, nSeed);
    }
    throw std::invalid_argument("no such set: " + name);
}

}  // namespace nestrix::bench
