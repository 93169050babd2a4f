#include <gtest/gtest.h>

#include "geom/Vector.h"

namespace nestrix {

namespace {

TEST(Vector, IsZeroByDefault) {
    EXPECT_EQ(mgVector3(), (mgVector3{0, 0, 0}));
}

TEST(Vector, HasThreeUnitConstants) {
    EXPECT_EQ(MG_VECTOR3_X, (mgVector3{1, 0, 0}));
    EXPECT_EQ(MG_VECTOR3_Y, (mgVector3{0, 1, 0}));
    EXPECT_EQ(MG_VECTOR3_Z, (mgVector3{0, 0, 1}));
}

TEST(Vector, IsThreeFloatsInARow) {
    EXPECT_EQ(sizeof(mgVector3), 3 * sizeof(float));
}

TEST(Vector, CarriesZThroughSumsAndDifferences) {
    EXPECT_EQ((mgVector3{1, 2, 3}) + (mgVector3{10, 20, 30}), (mgVector3{11, 22, 33}));
    EXPECT_EQ((mgVector3{1, 2, 3}) - (mgVector3{10, 20, 30}), (mgVector3{-9, -18, -27}));
}

TEST(Vector, HasTheDotProductOfAllThreeComponents) {
    EXPECT_EQ(DotProduct({1, 2, 3}, {10, 100, 1000}), 3210.0F);
}

TEST(Vector, HasItsXAsSideValueAgainstUp) {
    EXPECT_EQ(SideValue({7, 9, 0}, MG_VECTOR3_Y), 7.0F);
    EXPECT_EQ(SideValue({7, 9, 0}, MG_VECTOR3_X), -9.0F);
}

}  // namespace

}  // namespace nestrix
