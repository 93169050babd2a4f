#include <gtest/gtest.h>

#include "certify/Certify.h"
#include "tests/support/CCommaLocale.h"

namespace nestrix {

namespace {

using EKind = SViolation::EKind;

TEST(InWords, PlacementsAndPiecesAreCountedFromOne) {
    EXPECT_EQ(InWords({EKind::OVERLAP, 10, 14, 0.0125}), "placements 11 and 15 overlap by 0.0125");
    EXPECT_EQ(InWords({EKind::SPACING, 0, 1, 2.5}), "placements 1 and 2 are nearer than the spacing by 2.5");
    EXPECT_EQ(InWords({EKind::STRIP, 2, -1, 1.0}),
              "placement 3 reaches 1 out of the strip or into its margin");
    EXPECT_EQ(InWords({EKind::UNKNOWN_PIECE, 0, -1, 0.0}), "placement 1 is of a piece that the set has not");
    EXPECT_EQ(InWords({EKind::TURN, 0, -1, 0.0}),
              "placement 1 is turned or mirrored as its piece does not allow");
    EXPECT_EQ(InWords({EKind::SHAPE, 4, -1, 0.0}),
              "placement 5 has an outline that crosses itself, has no inside, or cannot be calculated with");
}

TEST(InWords, TheSignOfAnAmountTellsMissingFromTooMuch) {
    EXPECT_EQ(InWords({EKind::QUANTITY, 2, -1, 2.0}), "2 copies of piece 3 missing");
    EXPECT_EQ(InWords({EKind::QUANTITY, 2, -1, -1.0}), "1 copy of piece 3 too many");
    EXPECT_EQ(InWords({EKind::HEIGHT, -1, -1, 0.5}), "the height is too great by 0.5");
    EXPECT_EQ(InWords({EKind::HEIGHT, -1, -1, -0.5}), "the height is too small by 0.5");
}

TEST(InWords, AStripOfItsOwnFaultHasNoPlacement) {
    EXPECT_EQ(InWords({EKind::STRIP, -1, -1, 0.0}), "the strip or its grid cannot be calculated with");
}

TEST(InWords, NumbersHaveADecimalPointUnderEveryLocale) {
    const support::CCommaLocale locale;
    EXPECT_EQ(InWords({EKind::OVERLAP, 0, 1, 1.5}), "placements 1 and 2 overlap by 1.5");
}

}  // namespace

}  // namespace nestrix
