#include "nest/ConvexParts.h"
#include "nest/GridGeometry.h"

#include <gtest/gtest.h>

#include "certify/Certify.h"
#include "tests/support/FreePieces.h"
#include "tests/support/GridShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::GridRectangle;
using support::RandomCases;
using support::Text;

CInt128 TwiceAreaOf(const SGridShape& shape) {
    CInt128 area = TwiceArea(shape.m_Outline);
    for (const CGridRing& hole : shape.m_Holes) {
        area += TwiceArea(hole);
    }
    return area;
}

bool IsConvex(const CGridRing& ring) {
    for (size_t i = 0; i < ring.size(); ++i) {
        if (Turn(ring[i], ring[(i + 1) % ring.size()], ring[(i + 2) % ring.size()]) <= 0) {
            return false;
        }
    }
    return true;
}

/// What is wrong with the parts of a shape, in words, or nothing.
std::string FaultOfParts(const SGridShape& shape) {
    const std::vector<CGridRing> parts = CutIntoConvexParts(shape);
    CInt128 area = 0;
    for (size_t i = 0; i < parts.size(); ++i) {
        if (!IsConvex(parts[i])) {
            return "not convex: " + Text({parts[i], {}});
        }
        area += TwiceArea(parts[i]);
        for (size_t k = 0; k < i; ++k) {
            if (DoInsidesOverlap({parts[i], {}}, {parts[k], {}})) {
                return "overlapping: " + Text({parts[i], {}}) + " |" + Text({parts[k], {}});
            }
        }
    }
    // Parts that share no inside, lie in the shape, and have its area, cover it.
    return area == TwiceAreaOf(shape) ? "" : "another area than the shape's";
}

void ExpectGoodParts(const SGridShape& shape) {
    const SGridShape clean = Cleaned(shape);
    EXPECT_EQ(FaultOfParts(clean), "") << Text(clean);
}

const CGridRing SQUARE = GridRectangle({0, 0}, 20, 20);

TEST(ConvexParts, OfAConvexShapeAreTheShape) {
    EXPECT_EQ(CutIntoConvexParts({SQUARE, {}}).size(), 1U);
    EXPECT_EQ(CutIntoConvexParts({{{0, 0}, {7, 1}, {3, 9}}, {}}).size(), 1U);
}

TEST(ConvexParts, OfAShapeWithoutInsideAreNone) {
    EXPECT_TRUE(CutIntoConvexParts({}).empty());
}

TEST(ConvexParts, OfAnLAreTwo) {
    const SGridShape shape{{{0, 0}, {40, 0}, {40, 10}, {10, 10}, {10, 30}, {0, 30}}, {}};
    EXPECT_EQ(CutIntoConvexParts(shape).size(), 2U);
    ExpectGoodParts(shape);
}

TEST(ConvexParts, GoRoundAHole) {
    ExpectGoodParts({SQUARE, {GridRectangle({5, 5}, 10, 10)}});
    ExpectGoodParts({SQUARE, {{{10, 3}, {17, 10}, {10, 17}, {3, 10}}}});
}

TEST(ConvexParts, GoRoundSeveralHolesInARow) {
    ExpectGoodParts({GridRectangle({0, 0}, 50, 20),
                     {GridRectangle({5, 5}, 5, 10), GridRectangle({15, 5}, 5, 10),
                      GridRectangle({25, 5}, 5, 10), GridRectangle({35, 5}, 5, 10)}});
}

TEST(ConvexParts, GoRoundHolesThatTouchEachOtherAtACorner) {
    ExpectGoodParts({SQUARE, {GridRectangle({5, 5}, 5, 5), GridRectangle({10, 10}, 5, 5)}});
}

TEST(ConvexParts, GoRoundAHoleWhoseCornerTouchesTheSideOfAnother) {
    ExpectGoodParts({SQUARE, {GridRectangle({12, 4}, 4, 12), {{4, 7}, {12, 10}, {4, 13}}}});
}

TEST(ConvexParts, GoRoundAHoleWhoseCornerTouchesTheOutlinesSide) {
    ExpectGoodParts({SQUARE, {{{5, 5}, {20, 10}, {5, 15}}}});
    ExpectGoodParts({SQUARE, {{{15, 5}, {15, 15}, {0, 10}}}});
}

TEST(ConvexParts, GoRoundAHoleIntoWhichAnOutlinesCornerReaches) {
    ExpectGoodParts(
        {{{0, 0}, {20, 0}, {20, 20}, {12, 20}, {10, 12}, {8, 20}, {0, 20}}, {GridRectangle({5, 5}, 10, 7)}});
}

TEST(ConvexParts, GoRoundAHoleThatTouchesItselfOnTheRight) {
    ExpectGoodParts({SQUARE, {{{6, 12}, {8, 11}, {11, 8}, {8, 5}, {5, 7}, {11, 8}}}});
}

TEST(ConvexParts, OfAnOutlineWithASeamToAHoleGoRoundTheHole) {
    ExpectGoodParts(
        {{{0, 0}, {20, 0}, {20, 20}, {0, 20}, {0, 5}, {5, 5}, {5, 10}, {10, 10}, {10, 5}, {5, 5}, {0, 5}},
         {}});
}

TEST(ConvexParts, OfAnOutlineWithSpikesLeaveThemOut) {
    ExpectGoodParts({{{0, 0}, {5, 0}, {5, 2}, {9, 2}, {5, 2}, {5, 5}, {0, 5}}, {}});
    ExpectGoodParts({{{0, 0}, {9, 0}, {5, 0}, {5, 5}, {0, 5}}, {}});
}

TEST(ConvexParts, OfAnOutlineThatTouchesItselfCoverBothSides) {
    ExpectGoodParts({{{0, 0}, {5, 5}, {10, 0}, {10, 10}, {5, 5}, {0, 10}}, {}});
    ExpectGoodParts({{{0, 0}, {20, 0}, {20, 20}, {10, 0}, {0, 20}}, {}});
}

TEST(ConvexParts, OfAStarOfFiveThousandVerticesCoverIt) {
    const SGridShape disc = OnGrid(support::RegularPiece(5000, 100.0).m_Shape, SGrid{-6});
    SGridShape star = disc;
    for (size_t i = 0; i < star.m_Outline.size(); i += 2) {
        const SGridPoint point = star.m_Outline[i] - SGridPoint{100'000'000, 100'000'000};
        star.m_Outline[i] = star.m_Outline[i] - SGridPoint{point.m_nX / 2, point.m_nY / 2};
    }
    const SGridShape clean = Cleaned(star);
    CInt128 area = 0;
    for (const CGridRing& part : CutIntoConvexParts(clean)) {
        ASSERT_TRUE(IsConvex(part));
        area += TwiceArea(part);
    }
    EXPECT_TRUE(area == TwiceAreaOf(clean));
}

TEST(ConvexParts, OfRandomShapesCoverThem) {
    CSeededRandom random(1);
    for (int i = 0; i < RandomCases(4000); ++i) {
        SGridShape shape = support::RandomSoundShape(random, 9);
        if (random.Percent(25)) {
            shape = {GridRectangle({-1, -1}, 14, 14), {shape.m_Outline}};
        }
        shape = Cleaned(shape);
        ASSERT_EQ(FaultOfParts(shape), "") << Text(shape);
    }
}

}  // namespace

}  // namespace nestrix
