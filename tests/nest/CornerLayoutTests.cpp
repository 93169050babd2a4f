#include "nest/CCornerLayout.h"

#include <gtest/gtest.h>

#include "tests/nest/FreeSets.h"

namespace nestrix {

// Shapes and their corners, and layouts that are made of them.

namespace {

/// Boxes, 10 by 20, and triangles whose right angle is at the lower left, in a strip 40 wide.
class CornerLayout : public testing::Test {
protected:
    static constexpr size_t BOX = 0;
    static constexpr size_t TRIANGLE = 1;

    [[nodiscard]] double Units(double length) const { return length / m_Problem.Grid().Length(1); }

    /// Where a piece is whose bounding box has its lower left corner there.
    [[nodiscard]] SPlace At(size_t nPiece, double x, double y) const {
        const size_t nVersion = m_Problem.VersionsOf(nPiece).front();
        return {SPoint{Units(x), Units(y)} - m_Corners.ShapeOf(nVersion).m_Box.m_Low, nVersion};
    }

    void ExpectLowestCorner(double x, double y, double start, double width) {
        const std::optional<CCornerLayout::SCorner> corner = m_Layout.FindLowestCorner();
        ASSERT_TRUE(corner);
        EXPECT_EQ(corner->m_At, (SPoint{Units(x), Units(y)}));
        EXPECT_NEAR(NormalisedAngle(corner->m_Gap.m_Start + SAME_ANGLE), start + SAME_ANGLE, 1e-9);
        EXPECT_NEAR(corner->m_Gap.m_Width, width, 1e-9);
    }

    std::vector<SPiece> m_Pieces{support::Copies(support::Box(10, 20), 4),
                                 support::Copies(support::RightTriangle(10, 10), 4)};
    CPackProblem m_Problem{m_Pieces, {40.0, 0.0, 0.0}, true};
    CFieldTable m_Fields{m_Problem};
    CCornerProblem m_Corners{m_Problem, m_Fields, Units(0.001)};
    CCornerLayout m_Layout{m_Corners};
};

TEST_F(CornerLayout, BeginsInTheLowerLeftCornerOfTheStrip) {
    ExpectLowestCorner(0.0, 0.0, 0.0, 1.0);
}

TEST_F(CornerLayout, GoesOnBesideWhatLiesThere) {
    m_Layout.Add(BOX, At(BOX, 0.0, 0.0));
    EXPECT_EQ(m_Layout.LeftOf(BOX), 3);
    ExpectLowestCorner(10.0, 0.0, 0.0, 1.0);
}

TEST_F(CornerLayout, FindsTheObtuseCornerBelowATriangle) {
    m_Layout.Add(TRIANGLE, At(TRIANGLE, 0.0, 0.0));
    ExpectLowestCorner(10.0, 0.0, 0.0, 1.5);
}

TEST_F(CornerLayout, GoesAcrossTheStripToTheOtherWall) {
    m_Layout.Add(BOX, At(BOX, 0.0, 0.0));
    m_Layout.Add(BOX, At(BOX, 10.0, 0.0));
    m_Layout.Add(BOX, At(BOX, 20.0, 0.0));
    // Two corners of the last place; the left one comes first.
    ExpectLowestCorner(30.0, 0.0, 0.0, 1.0);
    m_Layout.Close(*m_Layout.FindLowestCorner());
    ExpectLowestCorner(40.0, 0.0, 1.0, 1.0);
}

TEST_F(CornerLayout, GoesUpWhereAllBelowIsFull) {
    for (int i = 0; i < 4; ++i) {
        m_Layout.Add(BOX, At(BOX, 10.0 * i, 0.0));
    }
    ExpectLowestCorner(0.0, 20.0, 0.0, 1.0);
}

TEST_F(CornerLayout, TellsHowMuchIsEmptyBelowAHeight) {
    m_Layout.Add(BOX, At(BOX, 0.0, 0.0));
    m_Layout.Add(TRIANGLE, At(TRIANGLE, 10.0, 5.0));
    const auto emptyBelow = [this](double height) {
        return m_Layout.EmptyAreaBelow(Units(height)) / (Units(1.0) * Units(1.0));
    };
    EXPECT_NEAR(emptyBelow(0.0), 0.0, 1e-6);
    EXPECT_NEAR(emptyBelow(5.0), 200.0 - 50.0, 1e-6);
    EXPECT_NEAR(emptyBelow(10.0), 400.0 - 100.0 - 37.5, 1e-6);
    EXPECT_NEAR(emptyBelow(30.0), 1200.0 - 200.0 - 50.0, 1e-6);
}

TEST_F(CornerLayout, TakesNoPeakForACorner) {
    m_Layout.Add(BOX, At(BOX, 15.0, 0.0));
    for (const double x : {0.0, 15.0, 25.0, 40.0}) {
        const std::optional<CCornerLayout::SCorner> corner = m_Layout.FindLowestCorner();
        ASSERT_TRUE(corner);
        EXPECT_EQ(corner->m_At, (SPoint{Units(x), 0.0}));
        m_Layout.Close(*corner);
    }
    EXPECT_FALSE(m_Layout.FindLowestCorner());
}

TEST_F(CornerLayout, FindsACornerWhereASideTouchesAPeak) {
    m_Layout.Add(BOX, At(BOX, 0.0, 0.0));
    m_Layout.Add(BOX, At(BOX, 10.0, 5.0));
    for (int i = 0; i < 3; ++i) {  // on the floor
        m_Layout.Close(*m_Layout.FindLowestCorner());
    }
    ExpectLowestCorner(0.0, 20.0, 0.0, 1.0);
    m_Layout.Close(*m_Layout.FindLowestCorner());
    ExpectLowestCorner(10.0, 20.0, 1.0, 1.0);
}

TEST_F(CornerLayout, HasRoomInsideTheStripBesideOthers) {
    m_Layout.Add(BOX, At(BOX, 0.0, 0.0));
    EXPECT_TRUE(m_Layout.HasRoomFor(At(BOX, 10.0, 0.0)));
    EXPECT_TRUE(m_Layout.HasRoomFor(At(BOX, 30.0, 0.0)));
    EXPECT_FALSE(m_Layout.HasRoomFor(At(BOX, 9.9, 0.0)));
    EXPECT_FALSE(m_Layout.HasRoomFor(At(BOX, 30.1, 0.0)));
    EXPECT_FALSE(m_Layout.HasRoomFor(At(BOX, 20.0, -0.1)));
    EXPECT_FALSE(m_Layout.HasRoomFor(At(BOX, -0.1, 30.0)));
}

TEST_F(CornerLayout, OverlooksWhatRoundingHasTaken) {
    m_Layout.Add(BOX, At(BOX, 0.0, 0.0));
    EXPECT_TRUE(m_Layout.HasRoomFor(At(BOX, 9.9995, -0.0005)));
}

TEST_F(CornerLayout, CountsContactWithWallsFloorAndPieces) {
    EXPECT_NEAR(m_Layout.ContactOf(At(BOX, 0.0, 0.0)), Units(30.0), 1.0);
    EXPECT_NEAR(m_Layout.ContactOf(At(BOX, 30.0, 0.0)), Units(30.0), 1.0);
    m_Layout.Add(BOX, At(BOX, 0.0, 0.0));
    EXPECT_NEAR(m_Layout.ContactOf(At(BOX, 10.0, 5.0)), Units(15.0), 1.0);
    EXPECT_EQ(m_Layout.ContactOf(At(BOX, 10.1, 5.0)), 0.0);
    EXPECT_EQ(m_Layout.ContactOf(At(TRIANGLE, 15.0, 5.0)), 0.0);
    EXPECT_NEAR(m_Layout.ContactOf(At(TRIANGLE, 10.0, 20.0)), 0.0, 1.0);
    EXPECT_NEAR(m_Layout.ContactOf(At(TRIANGLE, 10.0, 12.0)), Units(8.0), 1.0);
}

}  // namespace

}  // namespace nestrix
