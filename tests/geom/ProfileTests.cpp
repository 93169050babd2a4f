#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/CSeededRandom.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

using support::MakePolygon;
using support::Outline;
using testing::ElementsAre;
using testing::IsEmpty;

Outline Positions(const std::vector<CPoint>& points) {
    Outline positions;
    for (const CPoint& point : points) {
        positions.push_back(point.m_Position);
    }
    return positions;
}

/// The indices of the edges: edge i starts at vertex i.
std::vector<int> Edges(const std::vector<CLine>& lines) {
    std::vector<int> edges;
    for (const CLine& line : lines) {
        edges.push_back(line.m_nStart);
    }
    return edges;
}

std::vector<bool> FrontFlags(const CPolygon& polygon) {
    std::vector<bool> flags;
    for (const CLine& line : polygon.m_Lines) {
        flags.push_back(line.m_bFront);
    }
    return flags;
}

constexpr mgVector3 LOWER_LEFT = {0, 0, 0};
constexpr mgVector3 LOWER_RIGHT = {20, 0, 0};
constexpr mgVector3 UPPER_RIGHT = {20, 20, 0};
constexpr mgVector3 UPPER_LEFT = {0, 20, 0};

TEST(Square, HasEveryEdgeButItsTopInFront) {
    EXPECT_THAT(FrontFlags(support::MakeSquare(20)), ElementsAre(true, true, false, true));
}

TEST(Square, KeepsItsLowerVerticesInFrontAndItsUpperOnesBehind) {
    const CPolygon square = support::MakeSquare(20);
    EXPECT_THAT(Positions(square.m_FrontPoints), ElementsAre(LOWER_LEFT, LOWER_RIGHT));
    EXPECT_THAT(Positions(square.m_BackPoints), ElementsAre(UPPER_RIGHT, UPPER_LEFT));
}

TEST(Square, KeepsItsVerticalSidesAmongTheFrontEdges) {
    const CPolygon square = support::MakeSquare(20);
    EXPECT_THAT(Edges(square.m_FrontLines), ElementsAre(0, 1, 3));
    EXPECT_THAT(Edges(square.m_BackLines), ElementsAre(2));
}

TEST(Square, HasCandidatesBeforeFilteringAsItsFlagsSay) {
    const CPolygon square = support::MakeSquare(20);
    const auto flagsOf = [&](size_t i) {
        return std::pair(square.m_Points[i].m_bFront, square.m_Points[i].m_bBack);
    };
    EXPECT_EQ(flagsOf(0), std::pair(true, false));
    EXPECT_EQ(flagsOf(1), std::pair(true, false));
    EXPECT_EQ(flagsOf(2), std::pair(true, true));
    EXPECT_EQ(flagsOf(3), std::pair(true, true));
}

TEST(Square, IsFilteredFromFourFrontCandidatesToTwo) {
    CPolygon square = support::MakeRawPolygon(support::RectangleOutline(20, 20), {}, {});
    square.BuildConnectivity();
    square.ProcessFrontAndBackLines();
    square.ProcessFrontAndBackPoints();
    EXPECT_THAT(Positions(square.m_FrontPoints),
                ElementsAre(LOWER_LEFT, LOWER_RIGHT, UPPER_RIGHT, UPPER_LEFT));
    EXPECT_THAT(Positions(square.m_BackPoints), ElementsAre(UPPER_RIGHT, UPPER_LEFT));
    square.FilterFrontAndBackPoints();
    square.FilterFrontAndBackLines();
    EXPECT_EQ(square, support::MakePolygon(support::RectangleOutline(20, 20), {}, {}));
}

TEST(Comb, LosesTheHiddenOfItsEdgesInTheStepMadeForThem) {
    support::CSeededRandom random(20);
    const support::Outline outline = support::CombOutline(random, 40, 300, 300);
    CPolygon comb = support::MakeRawPolygon(outline, {}, {});
    comb.BuildConnectivity();
    comb.ProcessFrontAndBackLines();
    comb.ProcessFrontAndBackPoints();
    comb.FilterFrontAndBackPoints();
    const size_t nFront = comb.m_FrontLines.size();
    const size_t nBack = comb.m_BackLines.size();
    comb.FilterFrontAndBackLines();
    EXPECT_LT(comb.m_FrontLines.size() + comb.m_BackLines.size(), nFront + nBack);
    EXPECT_EQ(comb, support::MakePolygon(outline, {}, {}));
}

TEST(Square, HidesItsUpperVerticesFromBelowAndItsLowerOnesFromAbove) {
    const CPolygon square = support::MakeSquare(20);
    EXPECT_FALSE(square.DoesPointHitAnyLineDownward(0));
    EXPECT_FALSE(square.DoesPointHitAnyLineDownward(1));
    EXPECT_TRUE(square.DoesPointHitAnyLineDownward(2));
    EXPECT_TRUE(square.DoesPointHitAnyLineDownward(3));
    EXPECT_TRUE(square.DoesPointHitAnyLineUpward(0));
    EXPECT_TRUE(square.DoesPointHitAnyLineUpward(1));
    EXPECT_FALSE(square.DoesPointHitAnyLineUpward(2));
    EXPECT_FALSE(square.DoesPointHitAnyLineUpward(3));
}

TEST(Outline, IsClosedByItsLastEdgeAndLinkedToItsVertices) {
    const CPolygon square = support::MakeSquare(20);
    ASSERT_EQ(square.m_Lines.size(), 4U);
    for (int i = 0; i < 4; ++i) {
        const auto at = static_cast<size_t>(i);
        EXPECT_EQ(square.m_Lines[at].m_nStart, i);
        EXPECT_EQ(square.m_Lines[at].m_nEnd, (i + 1) % 4);
        EXPECT_EQ(square.m_Points[at].m_nNextLine, i);
        EXPECT_EQ(square.m_Points[at].m_nPrevLine, (i + 3) % 4);
    }
    EXPECT_EQ(square.m_Lines[3].m_Direction, (mgVector3{0, -20, 0}));
}

TEST(EdgeDirection, CarriesZ) {
    const CPolygon polygon = MakePolygon({{0, 0, 1}, {1, 0, 5}, {0, 1, 2}});
    EXPECT_EQ(polygon.m_Lines[0].m_Direction, (mgVector3{1, 0, 4}));
}

TEST(PolygonWithoutVertices, HasNoEdgesAndEmptyProfiles) {
    EXPECT_EQ(MakePolygon(Outline{}), CPolygon());
}

TEST(SingleVertex, HasOneEdgeOfNoLengthToItself) {
    const CPolygon polygon = MakePolygon({{3, 4, 0}});
    ASSERT_EQ(polygon.m_Lines.size(), 1U);
    EXPECT_EQ(polygon.m_Lines[0], (CLine{0, 0, true, {0, 0, 0}}));
    EXPECT_THAT(Positions(polygon.m_FrontPoints), ElementsAre(mgVector3{3, 4, 0}));
    EXPECT_THAT(polygon.m_BackPoints, IsEmpty());
    EXPECT_THAT(Edges(polygon.m_FrontLines), ElementsAre(0));
}

TEST(TwoVertices, LieOnBothProfiles) {
    const CPolygon polygon = MakePolygon({{0, 0, 0}, {10, 5, 0}});
    EXPECT_THAT(FrontFlags(polygon), ElementsAre(true, false));
    EXPECT_EQ(polygon.m_FrontPoints.size(), 2U);
    EXPECT_EQ(polygon.m_BackPoints.size(), 2U);
}

TEST(ClockwiseSquare, LosesItsUpperProfile) {
    const CPolygon polygon = MakePolygon({LOWER_LEFT, UPPER_LEFT, UPPER_RIGHT, LOWER_RIGHT});
    EXPECT_THAT(FrontFlags(polygon), ElementsAre(true, true, true, false));
    EXPECT_THAT(polygon.m_BackPoints, IsEmpty());
    EXPECT_THAT(polygon.m_BackLines, IsEmpty());
}

/// A square with a slit from above whose tip, a candidate of the lower profile, ends at a height.
CPolygon SlitSquare(float fTip) {
    return MakePolygon(
        {{0, 0, 0}, {20, 0, 0}, {20, 20, 0}, {12, 20, 0}, {10, fTip, 0}, {11, 20, 0}, {0, 20, 0}});
}

TEST(VertexLevelWithANonAdjacentEdge, IsRemovedFromTheFront) {
    const CPolygon touching = SlitSquare(0);
    EXPECT_TRUE(touching.m_Points[4].m_bFront);
    EXPECT_TRUE(touching.DoesPointHitAnyLineDownward(4));
    EXPECT_THAT(Positions(touching.m_FrontPoints), ElementsAre(LOWER_LEFT, LOWER_RIGHT));
    const CPolygon piercing = SlitSquare(-0.5F);
    EXPECT_FALSE(piercing.DoesPointHitAnyLineDownward(4));
    EXPECT_THAT(Positions(piercing.m_FrontPoints), testing::Contains(mgVector3{10, -0.5F, 0}));
}

/// The same turned by half a circle: the slit comes from below.
CPolygon SquareSlitFromBelow(float fTip) {
    return MakePolygon({{20, 20, 0}, {0, 20, 0}, {0, 0, 0}, {8, 0, 0}, {10, fTip, 0}, {9, 0, 0}, {20, 0, 0}});
}

TEST(VertexLevelWithANonAdjacentEdge, IsRemovedFromTheBack) {
    const CPolygon touching = SquareSlitFromBelow(20);
    EXPECT_TRUE(touching.m_Points[4].m_bBack);
    EXPECT_TRUE(touching.DoesPointHitAnyLineUpward(4));
    EXPECT_THAT(Positions(touching.m_BackPoints), ElementsAre(UPPER_RIGHT, UPPER_LEFT));
    const CPolygon piercing = SquareSlitFromBelow(20.5F);
    EXPECT_FALSE(piercing.DoesPointHitAnyLineUpward(4));
    EXPECT_THAT(Positions(piercing.m_BackPoints), testing::Contains(mgVector3{10, 20.5F, 0}));
}

TEST(VertexUnderAVerticalEdgeAtItsX, IsHiddenByIt) {
    // Two vertical edges at x = 10; the lower ends of the upper one lie above the lower one's.
    const CPolygon polygon = MakePolygon(
        {{0, 0, 0}, {10, 0, 0}, {10, 5, 0}, {20, 5, 0}, {20, 20, 0}, {10, 20, 0}, {10, 10, 0}, {0, 10, 0}});
    EXPECT_TRUE(polygon.DoesPointHitAnyLineDownward(6));
    EXPECT_TRUE(polygon.DoesPointHitAnyLineUpward(1));
}

TEST(CandidatesOfOneSide, AreChosenByRawRiseNotBySlope) {
    // Both edges at (10, 4) have slope 0.4, but the second rises by 2 after 4: no candidate.
    const CPolygon polygon = MakePolygon({{0, 0, 0}, {10, 4, 0}, {15, 6, 0}, {0, 30, 0}});
    EXPECT_FALSE(polygon.m_Points[1].m_bFront);
    EXPECT_FALSE(polygon.m_Points[1].m_bBack);
    // Relabelled so that the rises are 2 and then 4 on the same line, the middle vertex is one.
    const CPolygon other = MakePolygon({{0, 0, 0}, {5, 2, 0}, {15, 6, 0}, {0, 30, 0}});
    EXPECT_TRUE(other.m_Points[1].m_bFront);
}

TEST(BackCandidates, HaveANotGreaterRiseAfterThemThanBefore) {
    // The roof rises by 5, then falls by 10: walked from right to left.
    const CPolygon roof = MakePolygon({{0, 0, 0}, {20, 0, 0}, {10, 5, 0}, {0, -5, 0}});
    EXPECT_TRUE(roof.m_Points[2].m_bBack);
    const CPolygon valley = MakePolygon({{0, 0, 0}, {20, 0, 0}, {10, 5, 0}, {0, 15, 0}});
    EXPECT_FALSE(valley.m_Points[2].m_bBack);
}

TEST(EdgeWithOneExposedEnd, StaysInItsProfile) {
    // A hook: its arm's lower edge (3) is covered from below on the left, free on the right.
    const CPolygon hook =
        MakePolygon({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {5, 10, 0}, {30, 15, 0}, {0, 20, 0}});
    EXPECT_THAT(Edges(hook.m_FrontLines), testing::Contains(3));
}

TEST(EdgeWithBothEndsHidden, LeavesItsProfile) {
    // A bay that opens to the right: its upper side (3, from the bay's end to the right) lies over the floor.
    const CPolygon bay = MakePolygon(
        {{0, 0, 0}, {30, 0, 0}, {30, 5, 0}, {10, 5, 0}, {10, 10, 0}, {29, 10, 0}, {29, 20, 0}, {0, 20, 0}});
    EXPECT_TRUE(bay.m_Lines[4].m_bFront);
    EXPECT_THAT(Edges(bay.m_FrontLines), testing::Not(testing::Contains(4)));
}

TEST(MovedOutline, HasTheSameProfiles) {
    support::CSeededRandom random(11);
    for (int i = 0; i < 200; ++i) {
        const Outline outline =
            support::Snapped(support::StarOutline(random, random.Range(3, 20), 60, 60), 1.0F);
        const CPolygon here = MakePolygon(outline);
        const CPolygon there = MakePolygon(support::Moved(outline, -300, 512));
        EXPECT_EQ(Edges(here.m_FrontLines), Edges(there.m_FrontLines));
        EXPECT_EQ(Edges(here.m_BackLines), Edges(there.m_BackLines));
        EXPECT_EQ(here.m_FrontPoints.size(), there.m_FrontPoints.size());
        EXPECT_EQ(here.m_BackPoints.size(), there.m_BackPoints.size());
    }
}

TEST(ScaledOutline, HasTheSameProfiles) {
    support::CSeededRandom random(12);
    for (int i = 0; i < 200; ++i) {
        const Outline outline = support::StarOutline(random, random.Range(3, 20), 60, 60);
        const CPolygon small = MakePolygon(outline);
        const CPolygon large = MakePolygon(support::Scaled(outline, 1024));
        EXPECT_EQ(Edges(small.m_FrontLines), Edges(large.m_FrontLines));
        EXPECT_EQ(Edges(small.m_BackLines), Edges(large.m_BackLines));
        EXPECT_EQ(support::Scaled(Positions(small.m_FrontPoints), 1024), Positions(large.m_FrontPoints));
    }
}

TEST(RelabelledOutline, HasTheSameProfilesUnderOtherNumbers) {
    support::CSeededRandom random(13);
    for (int i = 0; i < 200; ++i) {
        Outline outline = support::CombOutline(random, 16, 60, 60);
        const Outline front = Positions(MakePolygon(outline).m_FrontPoints);
        std::rotate(outline.begin(), outline.begin() + 5, outline.end());
        EXPECT_THAT(Positions(MakePolygon(outline).m_FrontPoints), testing::UnorderedElementsAreArray(front));
    }
}

}  // namespace

}  // namespace nestrix
