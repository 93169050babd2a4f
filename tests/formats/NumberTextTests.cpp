#include "base/NumberText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "tests/support/CCommaLocale.h"

namespace nestrix {

TEST(ShortestDigits, AreReadBackAsTheSameNumber) {
    for (const double number :
         {0.1, 1.0 / 3.0, 123.456, -7.25, 1e-14, 1e28, 5e-324, std::numeric_limits<double>::max()}) {
        EXPECT_EQ(std::strtod(ShortestDigits(number).c_str(), nullptr), number);
    }
}

TEST(ShortestDigits, AreAsFewAsPossibleAndHaveNoExponent) {
    EXPECT_EQ(ShortestDigits(0.1), "0.1");
    EXPECT_EQ(ShortestDigits(100000.0), "100000");
    EXPECT_EQ(ShortestDigits(0.00001), "0.00001");
    EXPECT_EQ(ShortestDigits(-0.0), "0");
}

TEST(Decimals, AreRoundedAndAllWritten) {
    EXPECT_EQ(Decimals(2.0, 2), "2.00");
    EXPECT_EQ(Decimals(76.849, 1), "76.8");
    EXPECT_EQ(Decimals(99.96, 1), "100.0");
}

TEST(NumberText, HasADecimalPointUnderADecimalComma) {
    const support::CCommaLocale locale;
    EXPECT_EQ(ShortestDigits(1.5), "1.5");
    EXPECT_EQ(Decimals(1.5, 2), "1.50");
}

}  // namespace nestrix
