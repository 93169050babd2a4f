#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "ga/CContainer.h"
#include "tests/ga/CScriptedDraws.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/CStdoutCapture.h"

namespace nestrix {

namespace {

using support::PrintedBy;

/// The entry that the wheel chooses for a draw of about fPercent, with one entry left out unless negative.
int Chosen(std::vector<float> shares, double fPercent, int nExclude = -1) {
    CContainer container;
    const CScriptedDraws draws({DrawOfPercent(fPercent)});
    const int nChosen = container.RandomEvent(shares.data(), static_cast<int>(shares.size()), nExclude);
    EXPECT_EQ(draws.Count(), 1);
    return nChosen;
}

/// The same, with what is printed.
std::string Printed(std::vector<float> shares, double fPercent, int nExclude, int nExpected) {
    return PrintedBy([&] { EXPECT_EQ(Chosen(std::move(shares), fPercent, nExclude), nExpected); });
}

TEST(Roulette, WidensEverySliceByOnePercentAtItsUpperEnd) {
    EXPECT_EQ(Chosen({0.25F, 0.25F, 0.25F, 0.25F}, 25.5), 0);
    EXPECT_EQ(Chosen({0.25F, 0.25F, 0.25F, 0.25F}, 26.5), 1);
}

TEST(Roulette, ChoosesTheFirstEntryUpToOnePercentBeyondItsShare) {
    EXPECT_EQ(Chosen({0.0F, 1.0F}, 0.99), 0);
    EXPECT_EQ(Chosen({0.0F, 1.0F}, 1.01), 1);
}

TEST(Roulette, ChoosesTheFirstEntryWhoseWidenedEndLiesBeyondTheDraw) {
    const std::vector<float> shares(10, 0.1F);
    for (int nTenths = 2; nTenths < 1000; nTenths += 5) {
        const double fPercent = nTenths * 0.1;
        int nExpected = 0;
        while (10.0 * (nExpected + 1) + 1.0 < fPercent) {
            ++nExpected;
        }
        EXPECT_EQ(Chosen(shares, fPercent), nExpected) << fPercent;
    }
}

TEST(Roulette, ReachesBothEndsOfTheWheel) {
    EXPECT_EQ(Chosen({0.5F, 0.5F}, 0), 0);
    EXPECT_EQ(Chosen({0.5F, 0.5F}, 100), 1);
}

TEST(Roulette, OfOneEntryChoosesIt) {
    EXPECT_EQ(Chosen({1.0F}, 99.9), 0);
}

TEST(Roulette, IsTheSameThroughBothOperationsWhenNothingIsLeftOut) {
    std::vector<float> shares = {0.2F, 0.3F, 0.5F};
    for (const double fPercent : {5.0, 20.5, 21.5, 50.9, 51.5, 99.0}) {
        const int nExpected = Chosen(shares, fPercent);
        CContainer container;
        const CScriptedDraws draws({DrawOfPercent(fPercent)});
        EXPECT_EQ(container.RandomEventCore(shares.data(), 3), nExpected) << fPercent;
    }
}

TEST(Roulette, ThatFallsShortOfTheDrawSaysSoAndChoosesNothing) {
    EXPECT_EQ(Printed({0.25F, 0.25F}, 75, -1, -1),
              "P dint exists r=75.000000,sum=0.500000 upper_boundary=50.000000\n");
}

TEST(Roulette, ThatFallsShortByLessThanOnePercentStillChoosesItsLastEntry) {
    EXPECT_EQ(Printed({0.49F, 0.49F}, 98.9, -1, 1), "");
    EXPECT_NE(Printed({0.49F, 0.49F}, 99.1, -1, -1), "");
}

TEST(Roulette, WithoutEntriesDrawsOnceAndSaysThatItIsEmpty) {
    EXPECT_EQ(Printed({}, 50, -1, -1), "P dint exists r=50.000000,sum=0.000000 upper_boundary=0.000000\n");
}

TEST(Roulette, OfSharesThatAreNoNumbersChoosesTheFirst) {
    const float fNone = std::nanf("");
    EXPECT_EQ(Chosen({fNone, fNone, fNone}, 50), 0);
    EXPECT_EQ(Chosen({0.1F, fNone, 0.5F}, 50), 1);
}

TEST(Roulette, ChoosesAnEntryWhoseDistanceNoIntegerCanHold) {
    EXPECT_EQ(Chosen({-1e30F, 1.0F}, 50), 0);
    EXPECT_EQ(Chosen({-std::numeric_limits<float>::infinity(), 1.0F}, 50), 0);
    EXPECT_EQ(Chosen({-22'000'000.0F, 1.0F}, 50), 0) << "100 times the share is below all integers";
    EXPECT_EQ(Chosen({-21'000'000.0F, 22'000'000.0F}, 50), 1);
}

TEST(Roulette, OfNegativeSharesGoesBackwards) {
    EXPECT_EQ(Chosen({-0.5F, 1.5F}, 50), 1);
    EXPECT_EQ(Chosen({1.5F, -0.5F}, 99), 0);
}

TEST(RouletteWithoutOneEntry, ReturnsAnIndexIntoTheShortenedList) {
    EXPECT_EQ(Chosen({0.5F, 0.5F}, 50, 0), 0);
    EXPECT_EQ(Chosen({0.5F, 0.5F}, 50, 1), 0);
    EXPECT_EQ(Chosen({0.25F, 0.25F, 0.5F}, 90, 0), 1);
}

TEST(RouletteWithoutOneEntry, ScalesTheOthersToAFullWheel) {
    // 0.2 and 0.6 become a quarter and three quarters.
    EXPECT_EQ(Chosen({0.2F, 0.2F, 0.6F}, 25.5, 1), 0);
    EXPECT_EQ(Chosen({0.2F, 0.2F, 0.6F}, 26.5, 1), 1);
    EXPECT_EQ(Chosen({0.2F, 0.2F, 0.6F}, 100, 1), 1);
}

TEST(RouletteWithoutOneEntry, NeverReturnsTheLastIndex) {
    for (int nExclude = 0; nExclude < 3; ++nExclude) {
        for (int nPercent = 0; nPercent <= 100; ++nPercent) {
            EXPECT_LT(Chosen({0.3F, 0.3F, 0.4F}, nPercent, nExclude), 2);
        }
    }
}

TEST(RouletteWithoutItsOnlyEntry, DrawsOnceAndSaysThatItIsEmpty) {
    EXPECT_EQ(Printed({1.0F}, 25, 0, -1), "P dint exists r=25.000000,sum=0.000000 upper_boundary=0.000000\n");
}

TEST(RouletteWithoutOneEntry, ChangesNoShare) {
    std::vector<float> shares = {0.2F, 0.3F, 0.5F};
    CContainer container;
    (void)container.RandomEvent(shares.data(), 3, 1);
    EXPECT_EQ(shares, (std::vector{0.2F, 0.3F, 0.5F}));
}

TEST(RouletteWithoutOneEntry, OfAZeroSumChoosesTheFirst) {
    EXPECT_EQ(Chosen({0.0F, 0.0F, 0.0F}, 50, 1), 0);
}

TEST(Roulette, PrintsPointsUnderADecimalComma) {
    const support::CCommaLocale locale;
    EXPECT_EQ(Printed({0.25F}, 75, -1, -1),
              "P dint exists r=75.000000,sum=0.250000 upper_boundary=25.000000\n");
}

TEST(GeneSort, OrdersByKeyAlone) {
    const SGene low = {9, -1, 9.0F};
    const SGene high = {0, 4, 0.0F};
    EXPECT_EQ(GeneSortCallBack(&low, &high), -5);
    EXPECT_EQ(GeneSortCallBack(&high, &low), 5);
    EXPECT_EQ(GeneSortCallBack(&high, &high), 0);
}

}  // namespace

}  // namespace nestrix
