#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

#include "drawing/Oddities.h"
#include "drawing/SDrawnPiece.h"
#include "packing/PointVectors.h"
#include "tests/drawing/DrawnShapes.h"
#include "tests/support/FreePieces.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using std::numbers::pi;
using support::CSeededRandom;
using support::DrawingOf;
using support::DrawnCircle;
using support::DrawnLine;
using support::DrawnRectangle;
using support::RandomCases;
using testing::IsEmpty;
using testing::SizeIs;

// What takes time that grows with the square of these numbers does not end within the limit for a test.

CRing WavyRing(int nVertices) {
    CRing ring;
    for (int i = 0; i < nVertices; ++i) {
        const double angle = 2 * pi * i / nVertices;
        const double radius = 100 + 5 * std::sin(50 * angle) + 0.001 * (i % 2);
        ring.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return ring;
}

/// Teeth of a comb, all as long as it is wide, turned by an angle.
CRing CombRing(int nTeeth, double degrees) {
    CRing ring{{0, -1}};
    for (int i = 0; i < nTeeth; ++i) {
        const double x = 100.0 * i / nTeeth;
        ring.insert(ring.end(), {{x + 20.0 / nTeeth, 100}, {x + 50.0 / nTeeth, 0}});
    }
    ring.push_back({100, -1});
    const SDirection turn = DirectionOf(degrees);
    for (SPoint& point : ring) {
        point = {point.m_X * turn.m_Cosine - point.m_Y * turn.m_Sine,
                 point.m_X * turn.m_Sine + point.m_Y * turn.m_Cosine};
    }
    return CRing(ring.rbegin(), ring.rend());
}

TEST(LargeDrawings, HaveTheirLooseLinesJoined) {
    const int nSquares = RandomCases(25000);
    std::vector<SPath> lines;
    for (int i = 0; i < nSquares; ++i) {
        const double x = 3.0 * (i % 160);
        const double y = 3.0 * (i / 160);
        lines.insert(lines.end(),
                     {DrawnLine({x, y}, {x + 2, y}), DrawnLine({x, y}, {x, y + 2.05}),
                      DrawnLine({x + 2, y + 2}, {x + 2, y}), DrawnLine({x, y + 2}, {x + 2, y + 2})});
    }
    CSeededRandom random(9);
    for (size_t i = lines.size(); i > 1; --i) {
        std::swap(lines[i - 1], lines[random.Index(i)]);
    }
    const SDrawnPieces found = FindPieces(DrawingOf(lines), "a.dxf", {});
    EXPECT_THAT(found.m_Pieces, SizeIs(nSquares));
    EXPECT_THAT(found.m_Findings, IsEmpty());
}

TEST(LargeDrawings, HaveOneOutlineJoinedOfManyLines) {
    const CRing ring = WavyRing(RandomCases(100000));
    std::vector<SPath> lines;
    for (size_t i = 0; i < ring.size(); ++i) {
        lines.push_back(DrawnLine(ring[i], ring[(i + 1) % ring.size()]));
    }
    const SDrawnPieces found = FindPieces(DrawingOf(lines), "a.dxf", {});
    ASSERT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Outline.m_Stretches, SizeIs(ring.size()));
}

TEST(LargeDrawings, HaveAllTheirLinesAtOnePoint) {
    std::vector<SPath> lines;
    for (int i = 0; i < RandomCases(10000); ++i) {
        const double angle = 4e-4 * i;
        const SPoint tip{1000 * std::cos(angle), 1000 * std::sin(angle)};
        lines.push_back(DrawnLine({0, 0}, tip));
        if (i % 2 == 1) {
            lines.push_back(DrawnLine(tip, EndOf(lines[lines.size() - 2])));
        }
    }
    SAssembly assembly;
    assembly.m_JoinTolerance = 1e-6;
    EXPECT_THAT(FindPieces(DrawingOf(lines), "a.dxf", assembly).m_Pieces, SizeIs(lines.size() / 3));
}

TEST(LargeDrawings, HaveWhatIsDrawnOnOneSpotTakenOnce) {
    // In two ways: some are found to be doubles as lines already, the others as contours only.
    const SPath plate = DrawnRectangle(0, 0, 5, 5);
    const SPath elsewhere{{5, 5}, {SLineTo{{0, 5}}, SLineTo{{0, 0}}, SLineTo{{5, 0}}}, true};
    std::vector<SPath> lines(static_cast<size_t>(RandomCases(400'000)), plate);
    std::fill(lines.begin() + std::ssize(lines) / 2, lines.end(), elsewhere);
    EXPECT_THAT(FindPieces(DrawingOf(lines), "", {}).m_Pieces, SizeIs(1));
}

TEST(LargeDrawings, HaveTheirPiecesNested) {
    std::vector<SPath> lines;
    const int nPieces = RandomCases(10000);
    for (int i = 0; i < nPieces; ++i) {
        const SPoint centre{30.0 * (i % 100), 30.0 * (i / 100)};
        lines.push_back(DrawnCircle(centre, 12));
        lines.push_back(DrawnRectangle(centre.m_X - 1, centre.m_Y - 1, 2, 2));
        lines.push_back(DrawnLine(centre + SPoint{3, 3}, centre + SPoint{5, 5}));
    }
    const SDrawnPieces found = FindPieces(DrawingOf(lines), "a.dxf", {});
    ASSERT_THAT(found.m_Pieces, SizeIs(nPieces));
    for (const SDrawnPiece& piece : found.m_Pieces) {
        ASSERT_THAT(piece.m_Holes, SizeIs(1));
        ASSERT_THAT(piece.m_Marks, SizeIs(1));
    }
    EXPECT_THAT(found.m_Findings, IsEmpty());
}

TEST(LargeDrawings, HaveManyHolesInOneLargeOutline) {
    SPath outline;
    for (const SPoint point : WavyRing(RandomCases(100000))) {
        outline.m_Stretches.emplace_back(SLineTo{point});
    }
    outline.m_Start = EndOf(outline);
    outline.m_bClosed = true;
    std::vector<SPath> lines{outline};
    const int nHoles = RandomCases(10000);
    for (int i = 0; i < nHoles; ++i) {
        lines.push_back(DrawnRectangle(-60 + 1.2 * (i % 100), -60 + 1.2 * (i / 100), 1, 1));
    }
    const SDrawnPieces found = FindPieces(DrawingOf(lines), "a.dxf", {});
    ASSERT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Holes, SizeIs(nHoles));
}

TEST(LargeDrawings, HaveRingsInRings) {
    std::vector<SPath> lines;
    const int nRings = RandomCases(4000);
    for (int i = 0; i < nRings; ++i) {
        lines.push_back(DrawnRectangle(i, i, 3.0 * nRings - 2 * i, 3.0 * nRings - 2 * i));
    }
    EXPECT_THAT(FindPieces(DrawingOf(lines), "a.dxf", {}).m_Pieces, SizeIs(nRings / 2));
}

TEST(LargeOutlines, AreExamined) {
    const int nVertices = RandomCases(100000);
    const SFreeStrip strip{400.0, 0.0, 0.0};
    EXPECT_THAT(FindOddities(support::PieceOf(WavyRing(nVertices)), strip, "a", 0), IsEmpty());
    for (const double degrees : {0.0, 90.0, 30.0}) {
        EXPECT_THAT(FindOddities(support::PieceOf(CombRing(nVertices / 2, degrees)), strip, "a", 0),
                    IsEmpty())
            << degrees;
    }
}

}  // namespace

}  // namespace nestrix
