#include "tests/support/FreePieces.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "packing/PointVectors.h"

namespace nestrix::support {

CRing RectangleRing(double left, double bottom, double width, double height) {
    return {{left, bottom}, {left + width, bottom}, {left + width, bottom + height}, {left, bottom + height}};
}

SPiece PieceOf(CRing outline, std::vector<CRing> holes) {
    SPiece piece;
    piece.m_Shape = {std::move(outline), std::move(holes)};
    return piece;
}

SPiece RegularPiece(int nVertices, double radius) {
    CRing ring;
    for (int i = 0; i < nVertices; ++i) {
        const double angle = 2 * std::numbers::pi * i / nVertices;
        ring.push_back({std::round(radius * std::cos(angle) * 1e3) / 1e3,
                        std::round(radius * std::sin(angle) * 1e3) / 1e3});
    }
    return PieceOf(ring);
}

SPiece Star(int nPoints, double inner, double outer) {
    SPiece star = RegularPiece(2 * nPoints, outer);
    for (size_t i = 0; i < star.m_Shape.m_Outline.size(); i += 2) {
        star.m_Shape.m_Outline[i] = star.m_Shape.m_Outline[i] * (inner / outer);
    }
    return star;
}

SFreePacking PackingAt(const SFreeStrip& strip, std::span<const SPiece> pieces,
                       const std::vector<SGridPoint>& at) {
    SFreePacking packing{strip, {}, {}, 0};
    for (size_t i = 0; i < at.size(); ++i) {
        packing.m_Placed.push_back({static_cast<int>(i), false, 0.0, at[i]});
    }
    packing.m_nHeight = HeightOf(PlacedShapes(pieces, packing));
    return packing;
}

SShape AsDrawn(const SGridShape& shape) {
    const auto drawn = [](const CGridRing& ring) {
        CRing points;
        for (const SGridPoint point : ring) {
            points.push_back({static_cast<double>(point.m_nX), static_cast<double>(point.m_nY)});
        }
        return points;
    };
    SShape result{drawn(shape.m_Outline), {}};
    for (const CGridRing& hole : shape.m_Holes) {
        result.m_Holes.push_back(drawn(hole));
    }
    return result;
}

}  // namespace nestrix::support
