#include <gtest/gtest.h>

#include <optional>

#include "geom/HitTest.h"

namespace nestrix {

namespace {

using Height = std::optional<float>;

/// The height at which the point meets the segment, or nothing without a hit.
Height Downward(const mgVector3& point, const mgVector3& start, const mgVector3& end) {
    float fHeight = 0.0F;
    const bool bHit = DoesPointHitDownward(point, start, end, end - start, &fHeight);
    return bHit ? Height(fHeight) : std::nullopt;
}

Height Upward(const mgVector3& point, const mgVector3& start, const mgVector3& end) {
    float fHeight = 0.0F;
    const bool bHit = DoesPointHitUpward(point, start, end, end - start, &fHeight);
    return bHit ? Height(fHeight) : std::nullopt;
}

constexpr mgVector3 SLOPE_START = {0, 0, 0};
constexpr mgVector3 SLOPE_END = {10, 10, 0};
constexpr mgVector3 POST_START = {4, 2, 0};
constexpr mgVector3 POST_END = {4, 8, 0};

TEST(HitTest, PointAboveTheEndOfASegmentMeetsThatEnd) {
    EXPECT_EQ(Downward({10, 20, 0}, SLOPE_START, SLOPE_END), 10.0F);
}

TEST(HitTest, PointAboveTheStartOfASegmentMeetsThatStart) {
    EXPECT_EQ(Downward({0, 20, 0}, SLOPE_START, SLOPE_END), 0.0F);
}

TEST(HitTest, PointBelowTheEndOfASegmentMeetsThatEndUpward) {
    EXPECT_EQ(Upward({10, -3, 0}, SLOPE_START, SLOPE_END), 10.0F);
}

TEST(HitTest, PointOnASegmentHitsItBothWays) {
    EXPECT_EQ(Downward({5, 5, 0}, SLOPE_START, SLOPE_END), 5.0F);
    EXPECT_EQ(Upward({5, 5, 0}, SLOPE_START, SLOPE_END), 5.0F);
}

TEST(HitTest, PointBesideASegmentHitsNothingAndLeavesTheHeightUntouched) {
    for (const float x : {11.0F, -1.0F}) {
        float fHeight = 77.0F;
        EXPECT_FALSE(DoesPointHitDownward({x, 20, 0}, SLOPE_START, SLOPE_END, {10, 10, 0}, &fHeight));
        EXPECT_FALSE(DoesPointHitUpward({x, 20, 0}, SLOPE_START, SLOPE_END, {10, 10, 0}, &fHeight));
        EXPECT_EQ(fHeight, 77.0F);
    }
}

TEST(HitTest, PointAboveASegmentLeavesTheHeightUntouchedUpward) {
    float fHeight = 77.0F;
    EXPECT_FALSE(DoesPointHitUpward({5, 6, 0}, SLOPE_START, SLOPE_END, {10, 10, 0}, &fHeight));
    EXPECT_EQ(fHeight, 77.0F);
}

TEST(HitTest, PointBelowASegmentHitsNothingDownward) {
    EXPECT_EQ(Downward({5, 4, 0}, SLOPE_START, SLOPE_END), std::nullopt);
}

TEST(HitTest, PointAboveAVerticalSegmentMeetsItsUpperEndDownwardAndNothingUpward) {
    EXPECT_EQ(Downward({4, 12, 0}, POST_START, POST_END), 8.0F);
    EXPECT_EQ(Upward({4, 12, 0}, POST_START, POST_END), std::nullopt);
}

TEST(HitTest, PointLevelWithAVerticalSegmentMeetsItsOwnHeightDownwardAndTheLowerEndUpward) {
    EXPECT_EQ(Downward({4, 5, 0}, POST_START, POST_END), 5.0F);
    EXPECT_EQ(Upward({4, 5, 0}, POST_START, POST_END), 2.0F);
}

TEST(HitTest, PointBelowAVerticalSegmentMeetsNothingDownwardAndItsOwnHeightUpward) {
    EXPECT_EQ(Downward({4, 0, 0}, POST_START, POST_END), std::nullopt);
    EXPECT_EQ(Upward({4, 0, 0}, POST_START, POST_END), 0.0F);
}

TEST(HitTest, PointAtAnEndOfAVerticalSegmentHitsItBothWays) {
    EXPECT_EQ(Downward({4, 2, 0}, POST_START, POST_END), 2.0F);
    EXPECT_EQ(Downward({4, 8, 0}, POST_START, POST_END), 8.0F);
    EXPECT_EQ(Upward({4, 2, 0}, POST_START, POST_END), 2.0F);
    EXPECT_EQ(Upward({4, 8, 0}, POST_START, POST_END), 2.0F);
}

TEST(HitTest, VerticalSegmentMayRunEitherWay) {
    for (const float y : {0.0F, 2.0F, 5.0F, 8.0F, 12.0F}) {
        EXPECT_EQ(Downward({4, y, 0}, POST_END, POST_START), Downward({4, y, 0}, POST_START, POST_END));
        EXPECT_EQ(Upward({4, y, 0}, POST_END, POST_START), Upward({4, y, 0}, POST_START, POST_END));
    }
}

TEST(HitTest, NullHeightChangesNoResult) {
    for (const float x : {4.0F, 5.0F}) {
        for (const float y : {0.0F, 5.0F, 12.0F}) {
            const mgVector3 point = {x, y, 0};
            const mgVector3 direction = POST_END - POST_START;
            EXPECT_EQ(DoesPointHitDownward(point, POST_START, POST_END, direction, nullptr),
                      Downward(point, POST_START, POST_END).has_value());
            EXPECT_EQ(DoesPointHitUpward(point, POST_START, POST_END, direction, nullptr),
                      Upward(point, POST_START, POST_END).has_value());
        }
    }
}

TEST(HitTest, StoredDirectionIsTrustedForTheSlopeAndTheVerticalRule) {
    float fHeight = 0.0F;
    EXPECT_TRUE(DoesPointHitDownward({5, 50, 0}, SLOPE_START, SLOPE_END, {1, 2, 0}, &fHeight));
    EXPECT_EQ(fHeight, 10.0F);
    EXPECT_TRUE(DoesPointHitUpward({5, 5, 0}, SLOPE_START, SLOPE_END, {0, 2, 0}, &fHeight));
    EXPECT_EQ(fHeight, 0.0F);
}

TEST(HitTest, HitHeightIsComputedInDoubleAndRoundedOnce) {
    // One third in single precision, times three, would round to 1 and miss the point just below.
    const mgVector3 end = {3, 1, 0};
    float fHeight = 0.0F;
    EXPECT_TRUE(DoesPointHitDownward({1, 1, 0}, {0, 0, 0}, end, end, &fHeight));
    EXPECT_EQ(fHeight, static_cast<float>(1.0 / 3.0));
    // The comparison sees the height before it is rounded: the float nearest to 1/3 lies above 1/3.
    EXPECT_TRUE(DoesPointHitDownward({1, static_cast<float>(1.0 / 3.0), 0}, {0, 0, 0}, end, end, nullptr));
    EXPECT_FALSE(DoesPointHitUpward({1, static_cast<float>(1.0 / 3.0), 0}, {0, 0, 0}, end, end, nullptr));
}

TEST(HitTest, ShiftedHitTestMeetsAtTheShiftedHeight) {
    const mgVector3 shift = {100, -250, 0};
    for (int x = -1; x <= 11; ++x) {
        const mgVector3 point = {static_cast<float>(x), 5, 0};
        const Height down = Downward(point, SLOPE_START, SLOPE_END);
        const Height shifted = Downward(point + shift, SLOPE_START + shift, SLOPE_END + shift);
        ASSERT_EQ(shifted.has_value(), down.has_value()) << x;
        if (down) {
            EXPECT_EQ(*shifted, *down + shift.y) << x;
        }
    }
}

TEST(HitTest, PointAtTheXOfASlopingSegmentIsHitInExactlyOneDirectionUnlessItLiesOnIt) {
    for (int y = -2; y <= 12; ++y) {
        const mgVector3 point = {5, static_cast<float>(y), 0};
        const int nHits = (Downward(point, SLOPE_START, SLOPE_END) ? 1 : 0) +
                          (Upward(point, SLOPE_START, SLOPE_END) ? 1 : 0);
        EXPECT_EQ(nHits, y == 5 ? 2 : 1) << y;
    }
}

}  // namespace

}  // namespace nestrix
