#include <gtest/gtest.h>

#include <type_traits>

#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

TEST(FreshPolygon, IsEmptyAndAtTheOrigin) {
    const CPolygon polygon;
    EXPECT_TRUE(polygon.m_Points.empty());
    EXPECT_TRUE(polygon.m_Lines.empty());
    EXPECT_TRUE(polygon.m_FrontLines.empty());
    EXPECT_TRUE(polygon.m_BackLines.empty());
    EXPECT_TRUE(polygon.m_FrontPoints.empty());
    EXPECT_TRUE(polygon.m_BackPoints.empty());
    EXPECT_EQ(polygon.m_BoundingBoxMin, mgVector3());
    EXPECT_EQ(polygon.m_BoundingBoxMax, mgVector3());
    EXPECT_EQ(polygon.m_ReferencePoint, mgVector3());
}

TEST(FreshVertexAndEdge, AreZero) {
    const CPoint point;
    EXPECT_EQ(point.m_nPrevLine, 0);
    EXPECT_EQ(point.m_nNextLine, 0);
    EXPECT_EQ(point.m_Position, mgVector3());
    EXPECT_FALSE(point.m_bFront);
    EXPECT_FALSE(point.m_bBack);
    const CLine line;
    EXPECT_EQ(line.m_nStart, 0);
    EXPECT_EQ(line.m_nEnd, 0);
    EXPECT_FALSE(line.m_bFront);
    EXPECT_EQ(line.m_Direction, mgVector3());
}

TEST(Polygon, IsAPlainValueWithoutVirtualOperations) {
    EXPECT_FALSE(std::is_polymorphic_v<CPolygon>);
    EXPECT_FALSE(std::is_polymorphic_v<CPoint>);
    EXPECT_FALSE(std::is_polymorphic_v<CLine>);
}

TEST(PolygonCopy, IsEqualMemberByMember) {
    const CPolygon square = support::PlacedAt(support::MakeSquare(20), 3, 4);
    const CPolygon copy = square;  // NOLINT: the copy is what is tested
    EXPECT_EQ(copy, square);
    EXPECT_EQ(copy.m_Lines.size(), 4U);
    EXPECT_EQ(copy.m_ReferencePoint, (mgVector3{3, 4, 0}));
}

TEST(PolygonCopy, SharesNoListWithItsSource) {
    const CPolygon square = support::MakeSquare(20);
    CPolygon copy = square;
    copy.m_Points[0].m_Position.x = 99;
    copy.m_Lines.clear();
    copy.m_FrontPoints.clear();
    copy.m_BackPoints.clear();
    copy.m_FrontLines.clear();
    copy.m_BackLines.clear();
    EXPECT_EQ(square, support::MakeSquare(20));
}

TEST(PolygonAssignment, ReplacesEveryMemberAndReturnsItsTarget) {
    CPolygon target = support::MakeRectangle(5, 6);
    const CPolygon source = support::PlacedAt(support::MakeSquare(20), 7, 8);
    CPolygon& result = (target = source);
    EXPECT_EQ(&result, &target);
    EXPECT_EQ(target, source);
    target.m_Points.clear();
    EXPECT_EQ(source.m_Points.size(), 4U);
}

TEST(PolygonCopy, KeepsIndicesThatAreValidInTheCopy) {
    const CPolygon copy = CPolygon(support::MakeSquare(20));
    for (const CLine& line : copy.m_FrontLines) {
        EXPECT_EQ(copy.PositionOf(line.m_nEnd) - copy.PositionOf(line.m_nStart), line.m_Direction);
    }
}

}  // namespace

}  // namespace nestrix
