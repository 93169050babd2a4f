#include <gmock/gmock.h>

#include <algorithm>
#include <utility>

#include "drawing/SDrawnPiece.h"
#include "packing/SFreePacking.h"
#include "tests/drawing/DrawnShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::Found;
using support::RandomCases;
using testing::IsEmpty;

/// The shapes of pieces, in an order of their own.
std::vector<SShape> ShapesOf(const SDrawnPieces& found) {
    std::vector<SShape> shapes;
    for (const SDrawnPiece& piece : found.m_Pieces) {
        shapes.push_back(Flattened(piece, 0.05));
    }
    const auto keyOf = [](const SShape& shape) { return std::pair(AreaOf(shape), shape.m_Outline.size()); };
    std::sort(shapes.begin(), shapes.end(),
              [&](const SShape& a, const SShape& b) { return keyOf(a) < keyOf(b); });
    return shapes;
}

/// Contours with others within them, some of which have others within them.
std::vector<SPath> RandomScene(CSeededRandom& random) {
    std::vector<SPath> contours;
    for (int i = random.Range(1, 4); i > 0; --i) {
        const SPoint centre{25.0 * i, 3};
        double radius = 10;
        for (int k = random.Range(1, 4); k > 0; --k) {
            contours.push_back(support::RandomContour(random, centre, radius));
            radius /= 3;
        }
    }
    return contours;
}

TEST(RandomScenes, AreFoundAgainFromChoppedAndShuffledLines) {
    CSeededRandom random(20);
    for (int i = 0; i < RandomCases(100); ++i) {
        const std::vector<SPath> contours = RandomScene(random);
        const std::vector<SShape> shapes = ShapesOf(Found(contours));
        for (int k = 0; k < 2; ++k) {
            std::vector<SPath> lines;
            for (const SPath& contour : contours) {
                const std::vector<SPath> parts = support::Chopped(random, contour);
                lines.insert(random.Percent(50) ? lines.begin() : lines.end(), parts.begin(), parts.end());
            }
            const SDrawnPieces found = Found(lines);
            EXPECT_THAT(found.m_Findings, IsEmpty());
            const std::vector<SShape> again = ShapesOf(found);
            ASSERT_EQ(again.size(), shapes.size());
            for (size_t n = 0; n < shapes.size(); ++n) {
                EXPECT_NEAR(AreaOf(again[n]), AreaOf(shapes[n]), 1e-6);
                EXPECT_EQ(again[n].m_Holes.size(), shapes[n].m_Holes.size());
            }
        }
    }
}

TEST(RandomScenes, AreTheSameMirroredTurnedAndShifted) {
    CSeededRandom random(21);
    for (int i = 0; i < RandomCases(100); ++i) {
        const std::vector<SPath> contours = RandomScene(random);
        const SDirection turn = DirectionOf(random.Between(0, 360));
        const double mirror = random.Percent(50) ? -1.0 : 1.0;
        const SMap map{turn.m_Cosine * mirror,  -turn.m_Sine,           turn.m_Sine * mirror, turn.m_Cosine,
                       random.Between(-99, 99), random.Between(-99, 99)};
        std::vector<SPath> mapped;
        for (const SPath& contour : contours) {
            mapped.push_back(map(contour));
        }
        const SDrawnPieces found = Found(contours);
        const SDrawnPieces again = Found(mapped);
        ASSERT_EQ(again.m_Pieces.size(), found.m_Pieces.size());
        for (size_t n = 0; n < found.m_Pieces.size(); ++n) {
            const SShape shape = Flattened(found.m_Pieces[n], 0.05);
            const SShape mappedShape = Flattened(again.m_Pieces[n], 0.05);
            // Mirrored, curves are walked the other way round, and their corners come to lie elsewhere.
            EXPECT_NEAR(AreaOf(mappedShape), AreaOf(shape), mirror > 0 ? 1e-6 : 0.02 * AreaOf(shape));
            EXPECT_EQ(mappedShape.m_Holes.size(), shape.m_Holes.size());
        }
    }
}

}  // namespace

}  // namespace nestrix
