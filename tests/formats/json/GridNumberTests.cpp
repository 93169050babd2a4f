#include "formats/json/GridNumber.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>

#include "tests/support/CSeededRandom.h"
#include "tests/support/RandomCases.h"

using namespace nestrix;

namespace {

TEST(GridNumber, IsTheDecimalThatTheGridMeans) {
    EXPECT_EQ(GridDigits(0, {-5}), "0");
    EXPECT_EQ(GridDigits(12345678, {-5}), "123.45678");
    EXPECT_EQ(GridDigits(-12345678, {-5}), "-123.45678");
    EXPECT_EQ(GridDigits(100000, {-5}), "1");
    EXPECT_EQ(GridDigits(-7, {-5}), "-0.00007");
    EXPECT_EQ(GridDigits(120, {-1}), "12");
    EXPECT_EQ(GridDigits(125, {-1}), "12.5");
    EXPECT_EQ(GridDigits(-12, {0}), "-12");
    EXPECT_EQ(GridDigits(12, {3}), "12000");
    EXPECT_EQ(GridDigits(INT64_MIN, {-20}), "-0.09223372036854775808");
}

TEST(GridNumber, ReadAsADoubleIsCountedAsTheSameUnits) {
    support::CSeededRandom random(3);
    for (int i = 0; i < support::RandomCases(100000); ++i) {
        const SGrid grid{random.Range(-GRID_EXPONENT_MOST, GRID_EXPONENT_MOST)};
        const auto nUnits = static_cast<int64_t>(random.Index(uint64_t{1} << 47)) - GRID_LENGTH_MOST;
        const std::string digits = GridDigits(nUnits, grid);
        double number = 0.0;
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
        ASSERT_EQ(grid.Count(number), nUnits) << digits;
    }
}

}  // namespace
