#include "tests/nest/FreeSets.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "certify/Certify.h"
#include "tests/support/FreePieces.h"

namespace nestrix::support {

SPiece Copies(SPiece piece, int nQuantity, std::vector<double> degrees) {
    piece.m_nQuantity = nQuantity;
    piece.m_Turns.m_Degrees = std::move(degrees);
    return piece;
}

SPiece Box(double width, double height) {
    return PieceOf(RectangleRing(0, 0, width, height));
}

SPiece RightTriangle(double width, double height) {
    return PieceOf({{0, 0}, {width, 0}, {0, height}});
}

SPiece LetterL(double side) {
    return PieceOf({{0, 0}, {side, 0}, {side, side / 3}, {side / 3, side / 3}, {side / 3, side}, {0, side}});
}

SPiece Frame(double side, double holeSide) {
    const double border = (side - holeSide) / 2;
    return PieceOf(RectangleRing(0, 0, side, side), {RectangleRing(border, border, holeSide, holeSide)});
}

SPiece Comb(int nTeeth) {
    CRing outline{{0, 0}, {20.0 * nTeeth - 10.0, 0}};
    for (int i = nTeeth - 1; i >= 0; --i) {
        const double left = 20.0 * i;
        outline.insert(outline.end(), {{left + 10, 40}, {left, 40}});
        if (i > 0) {
            outline.insert(outline.end(), {{left, 10}, {left - 10, 10}});
        }
    }
    return PieceOf(std::move(outline));
}

SPiece Flower(int nWaves) {
    constexpr int POINTS = 60;
    CRing outline;
    for (int i = 0; i < POINTS; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / POINTS;
        const double radius = 10.0 + 3.0 * std::cos(nWaves * angle);
        outline.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return PieceOf(std::move(outline));
}

std::vector<SPiece> MixedSet() {
    const std::vector<double> quarters{0.0, 90.0, 180.0, 270.0};
    return {Copies(LetterL(24), 5, quarters), Copies(RightTriangle(20, 15), 6, quarters),
            Copies(Frame(30, 14), 2, {0.0}), Copies(RegularPiece(7, 6.0), 3, {0.0, 180.0})};
}

std::vector<SPiece> TurnedSet() {
    std::vector<SPiece> pieces{Copies(LetterL(24), 1, {0.0, 30.0, 90.0, 200.0}),
                               Copies(RightTriangle(20, 15), 1, {0.0, 45.0, 180.0}), Frame(30, 14)};
    pieces[0].m_bMirrored = true;
    return pieces;
}

std::vector<SPiece> Puzzle() {
    const std::vector<CRing> rings{
        {{0.0, 0.0}, {27.0, 0.0}, {22.0, 17.0}, {0.0, 36.0}},
        {{27.0, 0.0}, {60.0, 0.0}, {60.0, 31.0}, {41.0, 25.0}, {22.0, 17.0}},
        {{22.0, 17.0}, {41.0, 25.0}, {30.0, 44.0}},
        {{41.0, 25.0}, {60.0, 31.0}, {60.0, 60.0}, {35.0, 60.0}, {30.0, 44.0}},
        {{0.0, 36.0}, {22.0, 17.0}, {30.0, 44.0}, {35.0, 60.0}, {0.0, 60.0}},
    };
    std::vector<SPiece> pieces;
    for (const CRing& ring : rings) {
        SPiece piece;
        piece.m_Shape.m_Outline = ring;
        pieces.push_back(Copies(std::move(piece), 1, {0.0, 180.0}));
    }
    return pieces;
}

std::vector<SPiece> RandomBoxes(CSeededRandom& random, int nPieces, int nMost) {
    std::vector<SPiece> pieces;
    for (int i = 0; i < nPieces; ++i) {
        const int nWidth = random.Range(1, nMost);
        const SPiece box = Box(nWidth, random.Range(1, nMost));
        pieces.push_back(random.Percent(50) ? Copies(box, random.Range(1, 3), {0.0, 90.0}) : box);
    }
    return pieces;
}

std::string FaultOf(std::span<const SPiece> pieces, const SFreePacking& packing) {
    const SCertificate certificate = Certify(pieces, packing);
    return certificate.IsValid() ? "" : InWords(certificate.m_Violations.front());
}

}  // namespace nestrix::support
