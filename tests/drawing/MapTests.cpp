#include "drawing/SMap.h"

#include <gtest/gtest.h>

#include "packing/PointVectors.h"
#include "tests/support/CSeededRandom.h"
#include "tests/support/FreePieces.h"

namespace nestrix {

namespace {

using support::CSeededRandom;

constexpr SMap QUARTER_TURN{0, -1, 1, 0, 0, 0};
constexpr SMap MIRROR{-1, 0, 0, 1, 0, 0};

SMap RandomMap(CSeededRandom& random) {
    const auto draw = [&random] { return static_cast<double>(random.Between(-3, 3)); };
    return {draw(), draw(), draw(), draw(), draw(), draw()};
}

/// A point in front of a text's start, and one above it.
SPoint ReadingPoint(const SDrawnText& text) {
    const SDirection turn = DirectionOf(text.m_Degrees);
    return text.m_At + SPoint{turn.m_Cosine, turn.m_Sine} * (text.m_bMirrored ? -1.0 : 1.0);
}
SPoint TopPoint(const SDrawnText& text) {
    const SDirection turn = DirectionOf(text.m_Degrees);
    return text.m_At + SPoint{-turn.m_Sine, turn.m_Cosine} * text.m_Height;
}

TEST(Maps, AreAppliedTheSecondFirst) {
    CSeededRandom random(1);
    for (int i = 0; i < 100; ++i) {
        const SMap first = RandomMap(random);
        const SMap second = RandomMap(random);
        const SPoint point{random.Between(-9, 9), random.Between(-9, 9)};
        EXPECT_NEAR(Length((first * second)(point)-first(second(point))), 0.0, 1e-9);
    }
}

TEST(Maps, KeepArcsArcs) {
    const SArcTo arc{{1, 2}, {3, 0}, {0, 2}, 0.5, -2.0, {0, 0}};
    CSeededRandom random(2);
    for (int i = 0; i < 100; ++i) {
        const SMap map = RandomMap(random);
        const SPath mapped = map(SPath{PointAt(arc, 0.5), {arc}, false});
        const auto& mappedArc = std::get<SArcTo>(mapped.m_Stretches[0]);
        EXPECT_NEAR(Length(mapped.m_Start - PointAt(mappedArc, 0.5)), 0.0, 1e-9);
        EXPECT_NEAR(Length(map(PointAt(arc, -0.7)) - PointAt(mappedArc, -0.7)), 0.0, 1e-9);
    }
}

TEST(Maps, TurnAndMirrorTexts) {
    const SDrawnText text{"A", {2, 1}, 5.0, 0.0, false, "", 0};
    const SDrawnText turned = QUARTER_TURN(text);
    EXPECT_EQ(turned.m_At, (SPoint{-1, 2}));
    EXPECT_EQ(turned.m_Degrees, 90.0);
    EXPECT_FALSE(turned.m_bMirrored);
    const SDrawnText mirrored = MIRROR(text);
    EXPECT_TRUE(mirrored.m_bMirrored);
    EXPECT_EQ(mirrored.m_Degrees, 0.0);
    EXPECT_FALSE(MIRROR(mirrored).m_bMirrored);
}

TEST(Maps, TakeTextsWhereTheyTakeTheirPoints) {
    CSeededRandom random(3);
    for (int i = 0; i < 200; ++i) {
        const SDrawnText text{"A", {1, 2}, 1.5, random.Between(-400, 400), random.Percent(50), "", 0};
        const double scale = random.Between(0.5F, 4);
        const SDirection turn = DirectionOf(random.Between(0, 360));
        const double mirror = random.Percent(50) ? -1.0 : 1.0;
        const SMap map{scale * turn.m_Cosine * mirror,
                       -scale * turn.m_Sine,
                       scale * turn.m_Sine * mirror,
                       scale * turn.m_Cosine,
                       7,
                       8};
        const SDrawnText mapped = map(text);
        EXPECT_NEAR(mapped.m_Height, text.m_Height * scale, 1e-9);
        EXPECT_NEAR(Length(TopPoint(mapped) - map(TopPoint(text))), 0.0, 1e-9);
        EXPECT_NEAR(
            Length((ReadingPoint(mapped) - mapped.m_At) * scale - (map(ReadingPoint(text)) - mapped.m_At)),
            0.0, 1e-9);
    }
}

TEST(Maps, OfPlacementsTakePiecesWhereTheyLie) {
    CSeededRandom random(4);
    const SPiece piece =
        support::PieceOf({{5, 7}, {25, 7}, {25, 9.5}, {13, 19}}, {support::RectangleRing(14, 9, 3, 2)});
    for (const double degrees : {0.0, 90.0, 180.0, 270.0, 12.5, -77.0}) {
        for (const bool bMirrored : {false, true}) {
            SFreePacking packing{{100.0, 0.0, 0.0}, GridFor(100.0), {}, 0};
            packing.m_Placed.push_back(
                {0, bMirrored, degrees, {random.Range(-900, 99999), random.Range(-900, 9999999)}});
            const SGridShape placed = PlacedShapes(std::vector<SPiece>{piece}, packing)[0];
            const SMap map = MapOf(piece.m_Shape, packing, packing.m_Placed[0]);
            for (size_t i = 0; i < placed.m_Outline.size(); ++i) {
                const SPoint mapped = map(piece.m_Shape.m_Outline[i]);
                EXPECT_NEAR(mapped.m_X, packing.m_Grid.Length(placed.m_Outline[i].m_nX),
                            packing.m_Grid.Length(2));
                EXPECT_NEAR(mapped.m_Y, packing.m_Grid.Length(placed.m_Outline[i].m_nY),
                            packing.m_Grid.Length(2));
            }
        }
    }
}

}  // namespace

}  // namespace nestrix
