#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/reference/Agreement.h"
#include "tests/support/FamilyParameter.h"
#include "tests/support/Pieces.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// The geometry against the plain reference, bit for bit: hit tests, profiles, approach distances.

namespace {

using namespace support;

/// Coordinates from a handful of values, so that equal ones meet all the time, with a few unreal ones.
float Coordinate(CSeededRandom& random) {
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    if (random.Percent(3)) {
        return random.Pick({INFINITE, -INFINITE, std::numeric_limits<float>::quiet_NaN(), -0.0F, 1e-45F,
                            std::numeric_limits<float>::max()});
    }
    return random.Percent(50) ? static_cast<float>(random.Range(-3, 3)) : random.Between(-50.0F, 50.0F);
}

mgVector3 Position(CSeededRandom& random) {
    const float x = Coordinate(random);
    const float y = Coordinate(random);
    return {x, y, 0.0F};
}

TEST(RandomHitTests, AgreeWithThePlainReference) {
    CSeededRandom random(1);
    const int nCases = RandomCases(200'000);
    for (int i = 0; i < nCases; ++i) {
        const mgVector3 point = Position(random);
        const mgVector3 start = Position(random);
        const mgVector3 end = Position(random);
        const mgVector3 direction = random.Percent(80) ? end - start : Position(random);
        ASSERT_EQ(reference::FindHitDifference(point, start, end, direction), "") << "case " << i;
    }
}

Outline RandomOutline(CSeededRandom& random) {
    Outline outline(random.Index(9));
    for (mgVector3& vertex : outline) {
        vertex = Position(random);
    }
    return outline;
}

TEST(RandomOutlines, HaveTheProfilesOfThePlainReference) {
    CSeededRandom random(2);
    const int nCases = RandomCases(50'000);
    for (int i = 0; i < nCases; ++i) {
        ASSERT_EQ(reference::FindProfileDifference(RandomOutline(random)), "") << "case " << i;
    }
}

TEST(LargeOutlines, HaveTheProfilesOfThePlainReference) {
    CSeededRandom random(3);
    for (const int nVertices : {33, 64, 255, 256, 257, 1000}) {
        EXPECT_EQ(reference::FindProfileDifference(StarOutline(random, nVertices, 50, 50)), "");
        EXPECT_EQ(reference::FindProfileDifference(CombOutline(random, nVertices, 50, 50)), "");
        EXPECT_EQ(reference::FindProfileDifference(ScribbleOutline(random, nVertices)), "");
        EXPECT_EQ(reference::FindProfileDifference(SlantOutline(nVertices, 50, 50)), "");
        EXPECT_EQ(reference::FindProfileDifference(TouchingOutline(random, nVertices)), "");
    }
}

/// Upright sides in few places, with unreal numbers among them.
Outline UprightOutline(CSeededRandom& random, int nVertices) {
    Outline outline(static_cast<size_t>(nVertices));
    for (mgVector3& vertex : outline) {
        const auto x = static_cast<float>(random.Range(-1, 1));
        vertex = {random.Percent(3) ? std::nanf("") : x,
                  random.Percent(10) ? std::nanf("") : random.Between(-9, 9), 0.0F};
    }
    return outline;
}

/// Enough vertices for more than a look at each edge, of every kind that random numbers can make.
TEST(RandomOutlinesOfDozensOfVertices, HaveTheProfilesOfThePlainReference) {
    CSeededRandom random(6);
    const int nCases = RandomCases(3000);
    for (int i = 0; i < nCases; ++i) {
        const int nVertices = random.Range(30, 130);
        Outline outline(static_cast<size_t>(nVertices));
        for (mgVector3& vertex : outline) {
            vertex = Position(random);
        }
        ASSERT_EQ(reference::FindProfileDifference(outline), "") << "case " << i;
        ASSERT_EQ(reference::FindProfileDifference(UprightOutline(random, nVertices)), "") << "case " << i;
        ASSERT_EQ(reference::FindProfileDifference(ScribbleOutline(random, nVertices)), "") << "case " << i;
        ASSERT_EQ(reference::FindProfileDifference(LobedOutline(random, nVertices, 50, 50)), "")
            << "case " << i;
    }
}

TEST(OutlinesWhoseEdgesDifferInTheLastBit, HaveTheProfilesOfThePlainReference) {
    CSeededRandom random(7);
    const int nCases = RandomCases(2000);
    for (int i = 0; i < nCases; ++i) {
        Outline outline = TouchingOutline(random, random.Range(34, 200));
        ASSERT_EQ(reference::FindProfileDifference(outline), "") << "case " << i;
        for (mgVector3& vertex : outline) {
            vertex.y = -vertex.y;
        }
        ASSERT_EQ(reference::FindProfileDifference(outline), "") << "case " << i << " upside down";
        for (mgVector3& vertex : outline) {
            vertex.y *= 0x1p-140F;
        }
        ASSERT_EQ(reference::FindProfileDifference(outline), "") << "case " << i << " next to nothing";
    }
}

/// Heights computed for a huge edge are wrong by more than the small ones' whole size.
TEST(OutlinesOfManyMagnitudes, HaveTheProfilesOfThePlainReference) {
    CSeededRandom random(8);
    const int nCases = RandomCases(2000);
    const auto number = [&] {
        return random.Between(-1, 1) * random.Pick({1e-38F, 1e-3F, 1.0F, 1e3F, 1e15F, 3.4e38F});
    };
    for (int i = 0; i < nCases; ++i) {
        Outline outline(static_cast<size_t>(random.Range(34, 120)));
        for (mgVector3& vertex : outline) {
            const float x = number();
            vertex = {x, number(), 0.0F};
        }
        ASSERT_EQ(reference::FindProfileDifference(outline), "") << "case " << i;
    }
}

class RandomPieces : public testing::TestWithParam<SFamily> {};

Outline OutlineOf(const CPolygon& polygon) {
    Outline outline;
    for (const CPoint& point : polygon.m_Points) {
        outline.push_back(point.m_Position);
    }
    return outline;
}

TEST_P(RandomPieces, HaveTheProfilesOfThePlainReference) {
    CSeededRandom random(4);
    for (const CPolygon& polygon : MakeSet(random, GetParam(), RandomCases(500))) {
        ASSERT_EQ(reference::FindProfileDifference(OutlineOf(polygon)), "");
    }
}

/// A place near the other one: often exactly in line with it, sometimes overlapping it.
mgVector3 PlaceNear(CSeededRandom& random) {
    const float x = random.Percent(30)   ? 0.0F
                    : random.Percent(50) ? static_cast<float>(5 * random.Range(-9, 9))
                                         : random.Between(-70.0F, 70.0F);
    const float y =
        random.Percent(50) ? static_cast<float>(5 * random.Range(-9, 20)) : random.Between(-70.0F, 700.0F);
    return {x, y, 0.0F};
}

TEST_P(RandomPieces, ApproachEachOtherAsInThePlainReference) {
    CSeededRandom random(5);
    const int nPairs = RandomCases(1000);
    for (int i = 0; i < nPairs; ++i) {
        std::vector<CPolygon> pair = MakeSet(random, GetParam(), 2);
        pair[0].m_ReferencePoint = PlaceNear(random);
        pair[1].m_ReferencePoint = random.Percent(70) ? mgVector3() : PlaceNear(random);
        ASSERT_EQ(reference::FindApproachDifference(pair[0], pair[1]), "") << "pair " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(All, RandomPieces, testing::ValuesIn(AllFamilies().begin(), AllFamilies().end()),
                         FamilyTestName);

}  // namespace

}  // namespace nestrix
