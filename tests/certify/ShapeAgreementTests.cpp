#include <gtest/gtest.h>

#include "certify/Certify.h"
#include "certify/Inside.h"
#include "certify/Spacing.h"
#include "tests/reference/ReferenceCertificate.h"
#include "tests/support/GridShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// Random shapes on small grids, where most pairs touch somewhere, against the plain slabs.

namespace {

using support::CSeededRandom;
using support::Moved;
using support::RandomCases;
using support::RandomSoundShape;
using support::Text;

constexpr int VERTICES_MOST = 7;

/// A hole that the outline of another is walked round, which so fits into it exactly.
SGridShape WithHoleFor(const SGridShape& shape) {
    return {{{-3, -3}, {15, -3}, {15, 15}, {-3, 15}}, {shape.m_Outline}};
}

TEST(RandomShapes, AreSoundWhereThePlainSlabsAre) {
    CSeededRandom random(1);
    int nSound = 0;
    int nWithHoles = 0;
    for (int i = 0; i < RandomCases(40000); ++i) {
        const SGridShape shape = support::RandomShape(random, VERTICES_MOST);
        const bool bSound = IsSound(shape);
        ASSERT_EQ(bSound, reference::IsSound(shape)) << Text(shape);
        nSound += bSound ? 1 : 0;
        nWithHoles += bSound && !shape.m_Holes.empty() ? 1 : 0;
    }
    EXPECT_GT(nSound, 0);
    EXPECT_GT(nWithHoles, 0);
}

TEST(RandomShapes, OverlapWhereThePlainSlabsDo) {
    CSeededRandom random(2);
    int nApart = 0;
    int nTouching = 0;
    for (int i = 0; i < RandomCases(8000); ++i) {
        const SGridShape first = RandomSoundShape(random, VERTICES_MOST);
        SGridShape second = random.Percent(20) ? WithHoleFor(first) : RandomSoundShape(random, VERTICES_MOST);
        const int nX = random.Range(-8, 8);
        second = Moved(second, {random.Percent(50) ? 0 : nX, random.Range(-2, 2)});
        const certify::SBorder a = certify::BorderOf(first);
        const certify::SBorder b = certify::BorderOf(second);
        const bool bOverlap = certify::Overlap(a, b);
        ASSERT_EQ(bOverlap, reference::DoInsidesOverlap(first, second))
            << Text(first) << " |" << Text(second);
        ASSERT_EQ(bOverlap, certify::Overlap(b, a)) << Text(first) << " |" << Text(second);
        nApart += bOverlap ? 0 : 1;
        nTouching += !bOverlap && certify::AreNearer(a, b, 1) ? 1 : 0;
    }
    EXPECT_GT(nApart, RandomCases(8000) / 10);
    EXPECT_GT(nTouching, RandomCases(8000) / 20);
}

TEST(RandomShapes, AreAsNearAsInFractions) {
    CSeededRandom random(3);
    int nNear = 0;
    int nFar = 0;
    for (int i = 0; i < RandomCases(8000); ++i) {
        const SGridShape first = RandomSoundShape(random, VERTICES_MOST);
        const SGridShape second =
            Moved(RandomSoundShape(random, VERTICES_MOST), {random.Range(0, 20), random.Range(0, 20)});
        if (reference::DoInsidesOverlap(first, second)) {
            continue;
        }
        const int64_t nDistance = random.Range(1, 9);
        const bool bNearer =
            certify::AreNearer(certify::BorderOf(first), certify::BorderOf(second), nDistance);
        ASSERT_EQ(bNearer, reference::AreNearer(first, second, nDistance))
            << Text(first) << " |" << Text(second) << " at " << nDistance;
        ++(bNearer ? nNear : nFar);
    }
    EXPECT_GT(nNear, 0);
    EXPECT_GT(nFar, 0);
}

}  // namespace

}  // namespace nestrix
