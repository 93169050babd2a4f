#include "nest/BoxPacking.h"

#include <gtest/gtest.h>

#include <numeric>

#include "tests/nest/FreeSets.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::RandomCases;

SFreePacking PackAll(std::span<const SPiece> pieces, const SFreeStrip& strip) {
    const CPackProblem problem(pieces, strip, true);
    std::vector<size_t> items(problem.Items().size());
    std::iota(items.begin(), items.end(), size_t{0});
    return problem.PackingOf(PackBoxes(problem, items, problem.Strip().m_nMargin));
}

double HeightOf(const SFreePacking& packing) {
    return packing.m_Grid.Length(packing.m_nHeight);
}

TEST(BoxPacking, OfNothingIsEmpty) {
    EXPECT_TRUE(PackAll({}, {}).m_Placed.empty());
}

TEST(BoxPacking, PutsFourSquaresInARowOfExactlyFourSides) {
    const std::vector<SPiece> pieces{support::Copies(support::Box(10, 10), 4)};
    EXPECT_EQ(HeightOf(PackAll(pieces, {40.0, 0.0, 0.0})), 10.0);
    EXPECT_EQ(HeightOf(PackAll(pieces, {46.0, 2.0, 0.0})), 10.0);
    EXPECT_EQ(HeightOf(PackAll(pieces, {52.0, 2.0, 3.0})), 13.0);
    EXPECT_EQ(HeightOf(PackAll(pieces, {45.9, 2.0, 0.0})), 22.0);
}

TEST(BoxPacking, LaysABoxInTheTurnThatEndsLowest) {
    const std::vector<SPiece> pieces{support::Copies(support::Box(10, 30), 3, {0.0, 90.0})};
    EXPECT_EQ(HeightOf(PackAll(pieces, {90.0, 0.0, 0.0})), 10.0);
}

TEST(BoxPacking, TakesAPieceAsWideAsTheStrip) {
    const std::vector<SPiece> pieces{support::Box(50, 10), support::Copies(support::Box(25, 10), 2)};
    const SFreePacking packing = PackAll(pieces, {50.0, 0.0, 0.0});
    EXPECT_EQ(support::FaultOf(pieces, packing), "");
    EXPECT_EQ(HeightOf(packing), 20.0);
}

TEST(BoxPacking, FillsRowsWithAThousandEqualSquares) {
    const std::vector<SPiece> pieces{support::Copies(support::Box(10, 10), 1000)};
    const SFreePacking packing = PackAll(pieces, {400.0, 0.0, 0.0});
    EXPECT_EQ(support::FaultOf(pieces, packing), "");
    EXPECT_EQ(HeightOf(packing), 250.0);
}

TEST(BoxPacking, FillsTheGapBesideATallBox) {
    const std::vector<SPiece> pieces{support::Box(10, 40), support::Copies(support::Box(30, 10), 4)};
    EXPECT_EQ(HeightOf(PackAll(pieces, {40.0, 0.0, 0.0})), 40.0);
}

TEST(BoxPacking, BeginsAtTheFloorThatItIsGiven) {
    const std::vector<SPiece> pieces{support::Copies(support::Box(10, 10), 4)};
    const CPackProblem problem(pieces, {40.0, 0.0, 0.0}, true);
    const std::vector<SFreePlacement> placed = PackBoxes(problem, {1, 3}, problem.Grid().Count(70.0));
    EXPECT_EQ(placed.size(), 2U);
    EXPECT_EQ(HeightOf(problem.PackingOf(placed)), 80.0);
    for (const SFreePlacement& placement : placed) {
        EXPECT_EQ(problem.Grid().Length(placement.m_At.m_nY), 70.0);
    }
}

TEST(BoxPacking, OfRandomBoxesIsValidWithAnySpacingAndMargin) {
    CSeededRandom random(1);
    for (int i = 0; i < RandomCases(3000); ++i) {
        const std::vector<SPiece> pieces = support::RandomBoxes(random, random.Range(1, 12), 20);
        const double spacing = random.Pick({0.0, 0.0, 1.0, 0.37});
        const SFreeStrip strip{static_cast<double>(random.Range(27, 60)), spacing, random.Pick({0.0, 2.5})};
        ASSERT_EQ(support::FaultOf(pieces, PackAll(pieces, strip)), "") << "case " << i;
    }
}

}  // namespace

}  // namespace nestrix
