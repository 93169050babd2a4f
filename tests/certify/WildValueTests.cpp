#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "tests/certify/ViolationMatchers.h"
#include "tests/support/CSeededRandom.h"
#include "tests/support/FreePieces.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// Values that no packer should give, and some file may: they are named, and nothing breaks.

namespace {

using EKind = SViolation::EKind;
using support::IsViolation;
using support::PieceOf;
using support::RectangleRing;
using support::ViolationsOf;
using testing::ElementsAre;

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr int64_t LEAST = std::numeric_limits<int64_t>::min();
constexpr int64_t GREATEST = std::numeric_limits<int64_t>::max();

const std::vector<SPiece> SQUARE{PieceOf(RectangleRing(0, 0, 10, 10))};

SFreePacking SquareAt(SGridPoint at) {
    return {{}, {}, {{0, false, 0.0, at}}, 10};
}

TEST(WildValues, OfTheStripAreNamed) {
    for (const SFreeStrip& strip :
         {SFreeStrip{0, 0, 0}, SFreeStrip{-1, 0, 0}, SFreeStrip{std::nan(""), 0, 0},
          SFreeStrip{INFINITE, 0, 0}, SFreeStrip{1e300, 0, 0}, SFreeStrip{400, -1, 0},
          SFreeStrip{400, INFINITE, 0}, SFreeStrip{400, 0, std::nan("")}, SFreeStrip{400, 0, -1}}) {
        SFreePacking packing = SquareAt({0, 0});
        packing.m_Strip = strip;
        EXPECT_THAT(ViolationsOf(SQUARE, packing), ElementsAre(IsViolation(EKind::STRIP, -1, -1)));
    }
}

TEST(WildValues, OfTheGridAreNamed) {
    for (const int nExponent : {GRID_EXPONENT_MOST + 1, -GRID_EXPONENT_MOST - 1,
                                std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        SFreePacking packing = SquareAt({0, 0});
        packing.m_Grid.m_nExponent = nExponent;
        EXPECT_THAT(ViolationsOf(SQUARE, packing), ElementsAre(IsViolation(EKind::STRIP, -1, -1)));
    }
}

TEST(WildValues, OfPlacesAreNamed) {
    for (const SGridPoint at : {SGridPoint{GREATEST, 0}, SGridPoint{0, LEAST}, SGridPoint{LEAST, GREATEST},
                                SGridPoint{GRID_LENGTH_MOST, 0}, SGridPoint{0, GRID_LENGTH_MOST + 1}}) {
        EXPECT_THAT(ViolationsOf(SQUARE, SquareAt(at)), ElementsAre(IsViolation(EKind::SHAPE, 0, -1)));
    }
}

TEST(WildValues, OfHeightsAreNamed) {
    for (const int64_t nHeight : {LEAST, GREATEST}) {
        SFreePacking packing = SquareAt({0, 0});
        packing.m_nHeight = nHeight;
        EXPECT_THAT(ViolationsOf(SQUARE, packing), ElementsAre(IsViolation(EKind::HEIGHT, -1, -1)));
    }
}

TEST(WildValues, OfVerticesAreNamed) {
    for (const double wild : {INFINITE, -INFINITE, std::nan(""), 1e300, -1e300, 1e17}) {
        const std::vector<SPiece> inOutline{PieceOf({{0, 0}, {wild, 0}, {0, 10}})};
        EXPECT_THAT(ViolationsOf(inOutline, SquareAt({0, 0})), ElementsAre(IsViolation(EKind::SHAPE, 0, -1)));
        const std::vector<SPiece> first{PieceOf({{0, wild}, {10, 0}, {0, 10}})};
        EXPECT_THAT(ViolationsOf(first, SquareAt({0, 0})), ElementsAre(IsViolation(EKind::SHAPE, 0, -1)));
        const std::vector<SPiece> inHole{PieceOf(RectangleRing(0, 0, 9, 9), {{{1, 1}, {2, wild}, {1, 2}}})};
        EXPECT_THAT(ViolationsOf(inHole, SquareAt({0, 0})), ElementsAre(IsViolation(EKind::SHAPE, 0, -1)));
    }
}

TEST(WildValues, OfQuantitiesDemandNothing) {
    std::vector<SPiece> pieces = SQUARE;
    pieces[0].m_nQuantity = std::numeric_limits<int>::min();
    const auto violations = ViolationsOf(pieces, SquareAt({0, 0}));
    ASSERT_THAT(violations, ElementsAre(IsViolation(EKind::QUANTITY, 0, -1)));
    EXPECT_EQ(violations[0].m_Amount, -1.0);
}

TEST(WildValues, AreExaminedInAnyCombination) {
    support::CSeededRandom random(4);
    const auto wild = [&random] {
        return random.Pick(
            {0.0, 1.0, 10.0, -3.5, 400.0, 1e-9, 1e9, 7e13, -7e13, 1e300, INFINITE, std::nan("")});
    };
    for (int i = 0; i < support::RandomCases(20000); ++i) {
        std::vector<SPiece> pieces(2);
        for (SPiece& piece : pieces) {
            for (CRing* pRing : {&piece.m_Shape.m_Outline, &piece.m_Shape.m_Holes.emplace_back()}) {
                for (int nLeft = random.Range(0, 4); nLeft > 0; --nLeft) {
                    pRing->push_back({wild(), wild()});
                }
            }
            piece.m_Turns = {random.Percent(50), {wild()}};
        }
        SFreePacking packing{{wild(), wild(), wild()}, {random.Range(-23, 23)}, {}, 0};
        for (int j = 0; j < 3; ++j) {
            packing.m_Placed.push_back({random.Range(-1, 2),
                                        random.Percent(20),
                                        wild(),
                                        {random.Pick({int64_t{0}, GREATEST, LEAST, GRID_LENGTH_MOST}), 0}});
        }
        ASSERT_FALSE(Certify(pieces, packing).IsValid()) << "one placement is too many";
    }
}

TEST(WildValues, OfManyPiecesOnOneSpotAreNamedUpToALimit) {
    std::vector<SPiece> pieces = SQUARE;
    pieces[0].m_nQuantity = 1000;
    SFreePacking packing = SquareAt({0, 0});
    packing.m_Placed.resize(1000, packing.m_Placed.front());
    EXPECT_EQ(ViolationsOf(pieces, packing).size(), PAIRS_NAMED_MOST);
}

}  // namespace

}  // namespace nestrix
