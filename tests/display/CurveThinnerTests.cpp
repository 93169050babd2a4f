#include "display/CCurveThinner.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace nestrix {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

mgVector3 At(float fX, float fY) {
    return {fX, fY, 0.0F};
}

CCurveThinner Thinned(std::initializer_list<mgVector3> points) {
    CCurveThinner thinner;
    thinner.Begin(100);
    for (const mgVector3& point : points) {
        thinner.Add(point);
    }
    thinner.End();
    return thinner;
}

TEST(CurveThinner, KeepsAllPointsOfASparseCurve) {
    const auto points = {At(0.5F, 1.0F), At(3.0F, 9.0F), At(4.0F, 2.0F), At(4.9F, 7.0F)};
    const CCurveThinner thinner = Thinned(points);
    EXPECT_THAT(thinner.Line(), ElementsAreArray(points));
    EXPECT_THAT(thinner.Dots(), ElementsAreArray(points));
}

TEST(CurveThinner, KeepsTheEndsAndTheExtremesOfAColumnInTheirOrder) {
    const CCurveThinner thinner = Thinned({At(2.0F, 5.0F), At(2.1F, 6.0F), At(2.2F, 9.0F), At(2.3F, 7.0F),
                                           At(2.4F, 1.0F), At(2.5F, 3.0F), At(2.6F, 4.0F)});
    EXPECT_THAT(thinner.Line(), ElementsAre(At(2.0F, 5.0F), At(2.2F, 9.0F), At(2.4F, 1.0F), At(2.6F, 4.0F)));
}

TEST(CurveThinner, KeepsTheFirstOfEqualExtremes) {
    const CCurveThinner thinner = Thinned(
        {At(2.0F, 5.0F), At(2.1F, 9.0F), At(2.2F, 9.0F), At(2.3F, 1.0F), At(2.4F, 1.0F), At(2.5F, 5.0F)});
    EXPECT_THAT(thinner.Line(), ElementsAre(At(2.0F, 5.0F), At(2.1F, 9.0F), At(2.3F, 1.0F), At(2.5F, 5.0F)));
}

TEST(CurveThinner, KeepsAPointThatIsEndAndExtremeOnce) {
    const CCurveThinner thinner = Thinned({At(2.0F, 1.0F), At(2.1F, 5.0F), At(2.2F, 9.0F)});
    EXPECT_THAT(thinner.Line(), ElementsAre(At(2.0F, 1.0F), At(2.2F, 9.0F)));
}

TEST(CurveThinner, KeepsOneDotPerPixel) {
    const CCurveThinner thinner =
        Thinned({At(2.0F, 5.0F), At(2.1F, 5.5F), At(2.2F, 6.0F), At(2.3F, 5.2F), At(3.0F, 5.0F)});
    EXPECT_THAT(thinner.Dots(), ElementsAre(At(2.0F, 5.0F), At(2.2F, 6.0F), At(3.0F, 5.0F)));
}

TEST(CurveThinner, DropsDotsOutsideTheCanvasButNotTheLineToThem) {
    const CCurveThinner thinner =
        Thinned({At(2.0F, -5.0F), At(3.0F, 100.0F), At(4.0F, 99.0F), At(5.0F, 0.0F), At(6.0F, -0.1F)});
    EXPECT_EQ(thinner.Line().size(), 5U);
    EXPECT_THAT(thinner.Dots(), ElementsAre(At(4.0F, 99.0F), At(5.0F, 0.0F)));
}

TEST(CurveThinner, InterruptsTheLineWhereAPositionIsNotFinite) {
    const float fNan = std::numeric_limits<float>::quiet_NaN();
    const CCurveThinner thinner = Thinned({At(2.0F, 5.0F), At(2.1F, fNan), At(2.2F, 6.0F)});
    ASSERT_EQ(thinner.Line().size(), 3U);
    EXPECT_TRUE(std::isnan(thinner.Line()[1].y));
    EXPECT_EQ(thinner.Dots().size(), 2U);
}

TEST(CurveThinner, CostsNoMoreThanThePixelsHoweverLongTheCurve) {
    CCurveThinner thinner;
    thinner.Begin(100);
    for (int i = 0; i < 100000; ++i) {
        thinner.Add(At(static_cast<float>(i) / 1000.0F, static_cast<float>(i % 97)));
    }
    thinner.End();
    EXPECT_LE(thinner.Line().size(), 400U);
    EXPECT_LE(thinner.Dots().size(), 10000U);
}

TEST(CurveThinner, ForgetsTheLastCurve) {
    CCurveThinner thinner = Thinned({At(2.0F, 5.0F)});
    thinner.Begin(100);
    thinner.End();
    EXPECT_TRUE(thinner.Line().empty());
    EXPECT_TRUE(thinner.Dots().empty());
    thinner.Add(At(2.0F, 5.0F));
    thinner.End();
    EXPECT_EQ(thinner.Dots().size(), 1U);
}

}  // namespace

}  // namespace nestrix
