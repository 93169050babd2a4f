#include "nest/CCompactor.h"

#include <gtest/gtest.h>

#include "tests/nest/FreeSets.h"
#include "tests/support/FreePieces.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::RandomCases;

/// Items in their first version with the middles of their boxes at these points, in the strip's units.
std::vector<SPlace> PlacesAt(const CPackProblem& problem, const std::vector<SPoint>& middles) {
    std::vector<SPlace> places;
    for (size_t i = 0; i < middles.size(); ++i) {
        places.push_back(
            {middles[i] * (1.0 / problem.Grid().Length(1)), problem.VersionsOf(problem.Items()[i]).front()});
    }
    return places;
}

/// The packing that items at these points are moved to, no farther than the reach; nothing if they still
/// overlap.
std::optional<SFreePacking> Compacted(const std::vector<SPiece>& pieces, const SFreeStrip& strip,
                                      const std::vector<SPoint>& middles, double reach) {
    const CPackProblem problem(pieces, strip, true);
    CCompactor compactor(problem);
    const auto result = compactor.Compact(PlacesAt(problem, middles), reach / problem.Grid().Length(1));
    if (!result || result->m_Overlap > 0.0) {
        return std::nullopt;
    }
    SFreePacking packing = PackingOf(problem, SSolution{0.0, result->m_Places});
    EXPECT_EQ(support::FaultOf(pieces, packing), "");
    return packing;
}

double HeightOf(const std::optional<SFreePacking>& packing) {
    return packing ? packing->m_Grid.Length(packing->m_nHeight) : -1.0;
}

const std::vector<SPiece> TWO_SQUARES{support::Copies(support::Box(10, 10), 2)};

TEST(Compactor, LetsABoxDownToTheFloorAndNoFarther) {
    const std::vector<SPiece> pieces{support::Box(10, 10)};
    EXPECT_EQ(HeightOf(Compacted(pieces, {40.0, 0.0, 0.0}, {{20, 8}}, 5.0)), 10.0);
    EXPECT_EQ(HeightOf(Compacted(pieces, {40.0, 0.0, 2.0}, {{20, 8}}, 5.0)), 12.0);
}

TEST(Compactor, MovesNothingFartherThanItsReach) {
    const std::vector<SPiece> pieces{support::Box(10, 10)};
    EXPECT_EQ(HeightOf(Compacted(pieces, {40.0, 0.0, 0.0}, {{20, 25}}, 5.0)), 25.0);
}

TEST(Compactor, PutsOneBoxOntoAnotherAsCloseAsTheSpacingAllows) {
    EXPECT_EQ(HeightOf(Compacted(TWO_SQUARES, {10.0, 0.0, 0.0}, {{5, 6}, {5, 19}}, 5.0)), 20.0);
    EXPECT_EQ(HeightOf(Compacted(TWO_SQUARES, {10.0, 1.5, 0.0}, {{5, 6}, {5, 19}}, 5.0)), 21.5);
}

TEST(Compactor, SeparatesBoxesThatOverlapALittle) {
    EXPECT_EQ(HeightOf(Compacted(TWO_SQUARES, {20.0, 0.0, 0.0}, {{6, 5}, {15, 5.2}}, 3.0)), 10.0);
}

TEST(Compactor, FindsNothingWhereThereIsNoRoom) {
    EXPECT_FALSE(Compacted({support::Box(10, 10)}, {40.0, 0.0, 0.0}, {{60, 5}}, 3.0));
    const std::vector<SPiece> three{support::Copies(support::Box(10, 10), 3)};
    EXPECT_FALSE(Compacted(three, {29.0, 0.0, 0.0}, {{5, 5}, {14.5, 5}, {24, 5}}, 3.0));
}

TEST(Compactor, KeepsFourSquaresInAStripOfExactlyFourSides) {
    const std::vector<SPiece> pieces{support::Copies(support::Box(10, 10), 4)};
    EXPECT_EQ(HeightOf(Compacted(pieces, {40.0, 0.0, 0.0}, {{5, 5}, {15, 5}, {25, 5}, {35, 5}}, 3.0)), 10.0);
    EXPECT_EQ(HeightOf(Compacted(pieces, {40.0, 0.0, 0.0}, {{5, 5}, {15.3, 5.1}, {24.9, 6}, {34, 5}}, 3.0)),
              10.0);
}

TEST(Compactor, KeepsATriangleInATriangularHoleThatItFitsExactly) {
    SPiece frame = support::Box(24, 24);
    frame.m_Shape.m_Holes.push_back({{4, 4}, {16, 4}, {4, 13}});
    const std::vector<SPiece> pieces{frame, support::RightTriangle(12, 9)};
    EXPECT_EQ(HeightOf(Compacted(pieces, {30.0, 0.0, 0.0}, {{12, 12}, {10, 8.5}}, 3.0)), 24.0);
}

TEST(Compactor, LeavesNoOverlapOfAUnitOnASlope) {
    CSeededRandom random(2);
    for (int i = 0; i < RandomCases(300); ++i) {
        const double width = 0.01 * random.Range(1000, 2500);
        const double height = 0.01 * random.Range(500, 2500);
        const double side = 0.01 * random.Range(300, 900);
        const std::vector<SPiece> pieces{support::RightTriangle(width, height), support::Box(side, side)};
        // At the wall, the square's lower left corner rests on the slope.
        const double rest = height * side / width;
        const std::optional<SFreePacking> packing =
            Compacted(pieces, {width, 0.0, 0.0},
                      {{width / 2, height / 2}, {width - side / 2, rest + side / 2 + 0.4}}, 0.5);
        ASSERT_TRUE(packing) << i;
        EXPECT_NEAR(HeightOf(packing), std::max(height, rest + side), 1e-4);
    }
}

/// A grid of cells with room for each item, three in a row, shaken until some overlap.
std::vector<SPlace> ShakenCells(const CPackProblem& problem, CSeededRandom& random) {
    std::vector<SPlace> places;
    for (size_t nItem = 0; nItem < problem.Items().size(); ++nItem) {
        const std::vector<size_t>& versions = problem.VersionsOf(problem.Items()[nItem]);
        const SPoint cell{15.5 + 29.0 * static_cast<double>(nItem % 3),
                          16.0 + 27.0 * static_cast<double>(nItem / 3)};
        const double x = static_cast<double>(random.Between(-4.0F, 4.0F));
        places.push_back({(cell + SPoint{x, static_cast<double>(random.Between(-4.0F, 4.0F))}) *
                              (1.0 / problem.Grid().Length(1)),
                          versions[random.Index(versions.size())]});
    }
    return places;
}

/// Compacts random layouts, and expects those that come out without overlap to be valid.
/// @return how many do.
int CompactRandomLayouts(const std::vector<SPiece>& pieces, int nCases) {
    CSeededRandom random(1);
    int nFound = 0;
    for (int i = 0; i < nCases; ++i) {
        const double spacing = random.Pick({0.0, 0.7});
        const CPackProblem problem(pieces, {90.0, spacing, random.Pick({0.0, 1.0})}, true);
        const std::vector<SPlace> places = ShakenCells(problem, random);
        CCompactor compactor(problem);
        const auto moved = compactor.Compact(places, 8.0 / problem.Grid().Length(1));
        if (moved && moved->m_Overlap <= 0.0) {
            EXPECT_EQ(support::FaultOf(pieces, PackingOf(problem, SSolution{0.0, moved->m_Places})), "")
                << "case " << i;
            ++nFound;
        }
    }
    return nFound;
}

TEST(Compactor, OfRandomLayoutsIsValidWheneverItFindsAnything) {
    EXPECT_GT(CompactRandomLayouts(support::MixedSet(), RandomCases(400)), RandomCases(400) / 4);
}

TEST(Compactor, OfPiecesOfManyPartsIsValidWheneverItFindsAnything) {
    const std::vector<SPiece> flowers{support::Copies(support::Flower(5), 5, {0.0, 90.0}),
                                      support::Copies(support::Flower(8), 4)};
    EXPECT_GT(CompactRandomLayouts(flowers, RandomCases(60)), RandomCases(60) / 4);
}

TEST(Compactor, PutsTheTeethOfTwoCombsIntoEachOther) {
    const std::vector<SPiece> combs{support::Comb(12), support::Copies(support::Comb(12), 1, {180.0})};
    EXPECT_EQ(HeightOf(Compacted(combs, {240.0, 0.0, 0.0}, {{115, 22}, {125, 37}}, 9.0)), 50.0);
}

TEST(Compactor, LetsNoneOfManyPartsFallOntoThoseThatWereFarBefore) {
    // The upper comb's teeth are above the lower one's: all eight meet at once, after a fall of 6.
    const std::vector<SPiece> combs{support::Comb(8), support::Copies(support::Comb(8), 1, {180.0})};
    EXPECT_EQ(HeightOf(Compacted(combs, {150.0, 0.0, 0.0}, {{75, 20}, {75, 66}}, 9.0)), 80.0);
}

}  // namespace

}  // namespace nestrix
