#include "packing/SFreePacking.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/support/FreePieces.h"

namespace nestrix {

namespace {

using support::PieceOf;
using support::RectangleRing;
using testing::ElementsAre;

TEST(FreeStrip, LengthsThatAreDecimalsOfTheGridAreMeantExactly) {
    const auto widthOf = [](double width) { return OnGrid({width, width, width}, GridFor(width)).m_nWidth; };
    EXPECT_EQ(widthOf(15.0015), 15001500);
    EXPECT_EQ(widthOf(400.0), 40000000);
    EXPECT_EQ(widthOf(0.1), 10000000);
    EXPECT_EQ(widthOf(0.3), 30000000);
    const SGridStrip strip = OnGrid({400.0, 0.1, 0.7}, GridFor(400.0));
    EXPECT_EQ(strip.m_nSpacing, 10000);
    EXPECT_EQ(strip.m_nMargin, 70000);
}

TEST(FreeStrip, OtherLengthsAreRoundedToTheSafeSide) {
    const SGrid grid = GridFor(1.0 / 3.0);
    const SGridStrip strip = OnGrid({1.0 / 3.0, 1.0 / 3.0, 2.0 / 3.0}, grid);
    EXPECT_EQ(strip.m_nWidth, 33333333);
    EXPECT_EQ(strip.m_nSpacing, 33333334);
    EXPECT_EQ(strip.m_nMargin, 66666667);
    const SGridStrip other = OnGrid({2.0 / 3.0, 1e-300, 0.0}, grid);
    EXPECT_EQ(other.m_nWidth, 66666666);
    EXPECT_EQ(other.m_nSpacing, 1);
    EXPECT_EQ(other.m_nMargin, 0);
}

TEST(FreePacking, ShapesAreLaidAndMovedInTheOrderOfPlacing) {
    const std::vector<SPiece> pieces{PieceOf(RectangleRing(5, 5, 4, 2)), PieceOf({{0, 0}, {3, 0}, {0, 3}})};
    const SFreePacking packing{{}, {}, {{1, true, 0.0, {10, 1}}, {0, false, 90.0, {2, 0}}}, 4};
    const std::vector<SGridShape> placed = PlacedShapes(pieces, packing);
    ASSERT_EQ(placed.size(), 2U);
    EXPECT_THAT(placed[0].m_Outline, ElementsAre(SGridPoint{10, 1}, SGridPoint{7, 1}, SGridPoint{10, 4}));
    EXPECT_THAT(placed[1].m_Outline,
                ElementsAre(SGridPoint{2, 0}, SGridPoint{2, 4}, SGridPoint{0, 4}, SGridPoint{0, 0}));
    EXPECT_EQ(HeightOf(placed), 4);
    EXPECT_EQ(HeightOf({}), 0);
}

TEST(FreePacking, AreaIsTheOutlinesLessTheHolesInEitherWinding) {
    const CRing hole = RectangleRing(1, 1, 2, 2);
    SShape shape{RectangleRing(0, 0, 10, 5), {hole}};
    EXPECT_EQ(AreaOf(shape), 46.0);
    std::reverse(shape.m_Outline.begin(), shape.m_Outline.end());
    EXPECT_EQ(AreaOf(shape), 46.0);
    EXPECT_EQ(AreaOf({RectangleRing(1e9, 1e9, 10, 5), {}}), 50.0) << "far from the origin";
    EXPECT_EQ(AreaOf({hole, {RectangleRing(0, 0, 9, 9)}}), 0.0);
    EXPECT_EQ(AreaOf({}), 0.0);
}

TEST(FreePacking, DensityIsTheShareOfTheStripUpToTheHeight) {
    const std::vector<SPiece> pieces{PieceOf(RectangleRing(0, 0, 10, 5)), PieceOf(RectangleRing(0, 0, 5, 5))};
    SFreePacking packing{{20.0, 0.0, 0.0}, {-1}, {{0, false, 0.0, {0, 0}}, {1, false, 0.0, {100, 0}}}, 50};
    EXPECT_DOUBLE_EQ(DensityOf(pieces, packing), 0.75);
    EXPECT_EQ(DensityOf(pieces, {}), 0.0);
}

}  // namespace

}  // namespace nestrix
