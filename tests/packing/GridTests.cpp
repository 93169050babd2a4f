#include "packing/SGrid.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>

#include "packing/SFreePacking.h"
#include "tests/support/CSeededRandom.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using testing::ElementsAre;

TEST(Grid, UnitIsTheLargestPowerOfTenThatIsATenMillionthOfTheWidthOrLess) {
    EXPECT_EQ(GridFor(400.0).m_nExponent, -5);
    EXPECT_EQ(GridFor(1e7).m_nExponent, 0);
    EXPECT_EQ(GridFor(std::nextafter(1e7, 0.0)).m_nExponent, -1);
    EXPECT_EQ(GridFor(1.0).m_nExponent, -7);
    EXPECT_EQ(GridFor(1.0 / 3.0).m_nExponent, -8);
    EXPECT_EQ(GridFor(1e-14).m_nExponent, -21);
    EXPECT_EQ(GridFor(1e28).m_nExponent, 21);
    EXPECT_EQ(GridFor(1e300).m_nExponent, GRID_EXPONENT_MOST);
    EXPECT_EQ(GridFor(1e-300).m_nExponent, -GRID_EXPONENT_MOST);
}

TEST(Grid, LengthsAreRoundedToTheNearestUnitAndHalvesAwayFromZero) {
    const SGrid halves{0};
    EXPECT_EQ(halves.Count(2.5), 3);
    EXPECT_EQ(halves.Count(-2.5), -3);
    EXPECT_EQ(halves.Count(2.4999), 2);
    EXPECT_EQ(SGrid{-2}.Count(0.07), 7);
    EXPECT_EQ(SGrid{3}.Count(-12499.0), -12);
}

TEST(Grid, LengthsOfUnitsAreTheNearestDoublesToTheirDecimals) {
    EXPECT_EQ(SGrid{-5}.Length(1500150), 15.0015);
    EXPECT_EQ(SGrid{-1}.Length(3), 0.3);
    EXPECT_EQ(SGrid{-22}.Length(-7), -7e-22);
    EXPECT_EQ(SGrid{4}.Length(12), 120000.0);
}

TEST(Grid, UnitsThatAreWrittenOutAreReadBack) {
    support::CSeededRandom random(1);
    for (int i = 0; i < support::RandomCases(20000); ++i) {
        const SGrid grid{random.Range(-GRID_EXPONENT_MOST, GRID_EXPONENT_MOST)};
        const int64_t nUnits = int64_t{random.Range(-(1 << 30), 1 << 30)} * random.Range(0, 1 << 16);
        ASSERT_EQ(grid.Count(grid.Length(nUnits)), nUnits) << grid.m_nExponent;
    }
}

TEST(GridShape, BeginsInTheLowerLeftCornerOfItsOutline) {
    const SShape shape{{{-3.0, 20.04}, {7.0, 20.0}, {1.0, 30.0}}, {{{1.06, 22.0}, {2.0, 22.0}, {1.0, 23.0}}}};
    const SGridShape rounded = OnGrid(shape, {-1});
    EXPECT_THAT(rounded.m_Outline, ElementsAre(SGridPoint{0, 0}, SGridPoint{100, 0}, SGridPoint{40, 100}));
    ASSERT_EQ(rounded.m_Holes.size(), 1U);
    EXPECT_THAT(rounded.m_Holes[0], ElementsAre(SGridPoint{41, 20}, SGridPoint{50, 20}, SGridPoint{40, 30}));
}

TEST(Direction, IsThatOfTheMathematicalLibraryToTheLastDigits) {
    support::CSeededRandom random(2);
    for (int i = 0; i < support::RandomCases(100000); ++i) {
        const double degrees = static_cast<double>(random.Between(-360.0F, 360.0F)) / 1.1;
        const long double radians = static_cast<long double>(degrees) * std::numbers::pi_v<long double> / 180;
        const SDirection direction = DirectionOf(degrees);
        ASSERT_NEAR(direction.m_Cosine, static_cast<double>(std::cos(radians)), 1e-15) << degrees;
        ASSERT_NEAR(direction.m_Sine, static_cast<double>(std::sin(radians)), 1e-15) << degrees;
    }
}

TEST(Direction, OfQuarterTurnsIsExactHoweverOftenTheyGoRound) {
    for (const double turns : {0.0, 1.0, -1.0, 1000.0, -12345678.0}) {
        const auto expect = [turns](double degrees, double cosine, double sine) {
            const SDirection direction = DirectionOf(degrees + 360.0 * turns);
            EXPECT_EQ(direction.m_Cosine, cosine) << degrees << " and " << turns;
            EXPECT_EQ(direction.m_Sine, sine) << degrees << " and " << turns;
        };
        expect(0, 1, 0);
        expect(90, 0, 1);
        expect(180, -1, 0);
        expect(270, 0, -1);
    }
}

TEST(Laid, QuarterTurnsAndMirroringsLoseNothing) {
    const int64_t nLarge = GRID_LENGTH_MOST - 1;
    const SGridShape shape{{{0, 0}, {nLarge, 3}, {7, nLarge}}, {{{1, 2}, {3, 2}, {2, 5}}}};
    EXPECT_THAT(Laid(shape, 90, false).m_Outline,
                ElementsAre(SGridPoint{0, 0}, SGridPoint{-3, nLarge}, SGridPoint{-nLarge, 7}));
    EXPECT_THAT(Laid(shape, 180, false).m_Holes[0],
                ElementsAre(SGridPoint{-1, -2}, SGridPoint{-3, -2}, SGridPoint{-2, -5}));
    EXPECT_THAT(Laid(shape, 0, true).m_Outline,
                ElementsAre(SGridPoint{0, 0}, SGridPoint{-nLarge, 3}, SGridPoint{-7, nLarge}));
    EXPECT_THAT(Laid(shape, -90, true).m_Outline,
                ElementsAre(SGridPoint{0, 0}, SGridPoint{3, nLarge}, SGridPoint{nLarge, 7}))
        << "mirrored first, then turned";
}

TEST(Laid, OtherTurnsAreRoundedToTheNearestUnit) {
    EXPECT_THAT(Laid(SGridShape{{{1000, 0}, {0, 1000}}, {}}, 30, false).m_Outline,
                ElementsAre(SGridPoint{866, 500}, SGridPoint{-500, 866}));
}

}  // namespace

}  // namespace nestrix
