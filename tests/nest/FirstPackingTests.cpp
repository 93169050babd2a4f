#include "nest/FirstPacking.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/nest/FreeSets.h"

namespace nestrix {

namespace {

using support::Copies;

constexpr SFreeStrip STRIP{40.0, 0.0, 0.0};

SFreePacking First(std::span<const SPiece> pieces, const SFreePacking* pStart,
                   const SFreeStrip& strip = STRIP) {
    const CPackProblem problem(pieces, strip, true, pStart);
    SFreePacking packing = problem.PackingOf(FindFirstPacking(problem, pStart));
    EXPECT_EQ(support::FaultOf(pieces, packing), "");
    return packing;
}

bool HasAllOf(const SFreePacking& packing, const SFreePacking& earlier) {
    return std::all_of(earlier.m_Placed.begin(), earlier.m_Placed.end(), [&](const SFreePlacement& one) {
        return std::find(packing.m_Placed.begin(), packing.m_Placed.end(), one) != packing.m_Placed.end();
    });
}

/// Three squares in a staircase, which no packing by boxes is.
const std::vector<SPiece> SQUARES{Copies(support::Box(10, 10), 3)};

SFreePacking Staircase() {
    const SGrid grid = GridFor(STRIP.m_Width);
    SFreePacking packing{STRIP, grid, {}, grid.Count(13.0)};
    for (int i = 0; i < 3; ++i) {
        packing.m_Placed.push_back({0, false, 0.0, {grid.Count(13.0 * i), grid.Count(1.5 * i)}});
    }
    return packing;
}

TEST(FirstPacking, OfNothingIsEmpty) {
    EXPECT_TRUE(First({}, nullptr).m_Placed.empty());
}

TEST(FirstPacking, WithoutAnEarlierOneIsByBoxes) {
    EXPECT_EQ(First(SQUARES, nullptr).m_nHeight, GridFor(40.0).Count(10.0));
}

TEST(FirstPacking, KeepsAnEarlierOne) {
    const SFreePacking earlier = Staircase();
    EXPECT_EQ(First(SQUARES, &earlier).m_Placed, earlier.m_Placed);
}

TEST(FirstPacking, PutsAddedPiecesAboveAnEarlierOne) {
    const SFreePacking earlier = Staircase();
    std::vector<SPiece> pieces = SQUARES;
    pieces[0].m_nQuantity = 4;
    pieces.push_back(support::LetterL(20));
    const SFreePacking packing = First(pieces, &earlier);
    EXPECT_EQ(packing.m_Placed.size(), 5U);
    EXPECT_TRUE(HasAllOf(packing, earlier));
}

TEST(FirstPacking, LeavesOutPiecesThatWereTakenAway) {
    const SFreePacking earlier = Staircase();
    std::vector<SPiece> pieces = SQUARES;
    pieces[0].m_nQuantity = 2;
    const SFreePacking packing = First(pieces, &earlier);
    EXPECT_EQ(packing.m_Placed.size(), 2U);
    EXPECT_TRUE(HasAllOf(earlier, packing));
}

TEST(FirstPacking, LiftsWhatOverlapsInAnEarlierOne) {
    SFreePacking earlier = Staircase();
    earlier.m_Placed[1].m_At = earlier.m_Placed[0].m_At + SGridPoint{1, 1};
    const SFreePacking packing = First(SQUARES, &earlier);
    EXPECT_NE(packing.m_Placed[0].m_At, packing.m_Placed[1].m_At);
    EXPECT_EQ(packing.m_Placed[2], earlier.m_Placed[2]);
    EXPECT_EQ(packing.m_nHeight, GridFor(40.0).Count(23.0));
}

TEST(FirstPacking, LiftsTheOneThatOverlapsMostOthers) {
    const std::vector<SPiece> pieces{Copies(support::Box(10, 10), 3), support::Box(40, 2)};
    const SGrid grid = GridFor(STRIP.m_Width);
    SFreePacking earlier{STRIP, grid, {}, grid.Count(10.0)};
    for (int i = 0; i < 3; ++i) {
        earlier.m_Placed.push_back({0, false, 0.0, {grid.Count(12.0 * i), 0}});
    }
    earlier.m_Placed.push_back({1, false, 0.0, {0, grid.Count(5.0)}});
    const SFreePacking packing = First(pieces, &earlier);
    EXPECT_TRUE(std::equal(packing.m_Placed.begin(), packing.m_Placed.end() - 1, earlier.m_Placed.begin(),
                           earlier.m_Placed.end() - 1));
    EXPECT_EQ(packing.m_nHeight, grid.Count(12.0));
}

TEST(FirstPacking, LiftsWhatIsOutOfTheStrip) {
    SFreePacking earlier = Staircase();
    earlier.m_Placed[0].m_At.m_nX = -1;
    const SFreePacking packing = First(SQUARES, &earlier);
    EXPECT_EQ(packing.m_Placed[1], earlier.m_Placed[1]);
    EXPECT_EQ(packing.m_Placed[2], earlier.m_Placed[2]);
}

TEST(FirstPacking, DoesNotKeepAnEarlierOneThatIsTooWideOrTooCloseNow) {
    const SFreePacking earlier = Staircase();
    (void)First(SQUARES, &earlier, {30.0, 0.0, 0.0});
    (void)First(SQUARES, &earlier, {40.0, 4.0, 0.0});
    (void)First(SQUARES, &earlier, {40.0, 0.0, 1.0});
}

TEST(FirstPacking, KeepsAnEarlierOneInAWiderStripWithACoarserGrid) {
    const SFreePacking earlier = Staircase();
    ASSERT_NE(GridFor(400.0), earlier.m_Grid);
    EXPECT_EQ(First(SQUARES, &earlier, {400.0, 0.0, 0.0}).m_nHeight, GridFor(400.0).Count(13.0));
}

TEST(FirstPacking, LeavesOutPlacementsOfUnknownPiecesAndInTurnsThatAreNotAllowed) {
    SFreePacking earlier = Staircase();
    earlier.m_Placed[0].m_nPiece = -1;
    earlier.m_Placed[1].m_nPiece = 7;
    earlier.m_Placed[2].m_Degrees = 33.0;
    EXPECT_EQ(First(SQUARES, &earlier).m_Placed.size(), 3U);
}

TEST(FirstPacking, KeepsAnEarlierOneWhoseTurnsAreWrittenOtherwise) {
    const std::vector<SPiece> pieces{Copies(support::RightTriangle(20, 15), 2, {0.0, 180.0})};
    const SGrid grid = GridFor(STRIP.m_Width);
    const SFreePacking earlier{
        {20.0, 0.0, 0.0},
        grid,
        {{0, false, -180.0, {grid.Count(20.0), grid.Count(15.0)}}, {0, false, 720.0, {0, 0}}},
        grid.Count(15.0)};
    ASSERT_EQ(support::FaultOf(pieces, earlier), "");
    EXPECT_EQ(First(pieces, &earlier, {20.0, 0.0, 0.0}).m_nHeight, earlier.m_nHeight);
}

TEST(FirstPacking, KeepsAnEarlierOneInATurnThatLooksLikeAnother) {
    const std::vector<SPiece> pieces{Copies(support::Box(10, 10), 2, {0.0, 90.0})};
    const SGrid grid = GridFor(STRIP.m_Width);
    const SFreePacking earlier{STRIP,
                               grid,
                               {{0, false, 90.0, {grid.Count(13.0), grid.Count(1.0)}},
                                {0, false, 0.0, {grid.Count(17.0), grid.Count(2.0)}}},
                               grid.Count(12.0)};
    ASSERT_EQ(support::FaultOf(pieces, earlier), "");
    EXPECT_EQ(First(pieces, &earlier).m_nHeight, earlier.m_nHeight);
}

}  // namespace

}  // namespace nestrix
