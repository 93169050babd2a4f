#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "ga/CContainer.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

using support::MakeChromosome;
using support::MakePolygon;
using support::MakeRectangle;
using support::MakeSquare;
using support::PlacedAt;
using support::PrintedBy;
using testing::IsEmpty;
using testing::SizeIs;

constexpr float INFINITE = std::numeric_limits<float>::infinity();

TEST(FreshContainer, HoldsNothingInAStripOfFourHundred) {
    const CContainer container;
    EXPECT_EQ(container.m_pContactDisplay, nullptr);
    EXPECT_EQ(container.m_pEventHandler, nullptr);
    EXPECT_FALSE(container.m_bStop);
    EXPECT_EQ(container.m_fContainerWidth, 400.0F);
    EXPECT_EQ(container.m_fContainerHeight, 600.0F);
    EXPECT_EQ(container.m_fTotalHeight, 0.0F);
    EXPECT_EQ(container.m_fCullThreshold, 0.699999988F);
    EXPECT_THAT(container.m_Polygons, IsEmpty());
    EXPECT_THAT(container.m_Population, IsEmpty());
    EXPECT_EQ(container.m_BestChromosome.m_nGenes, 0);
    EXPECT_EQ(container.PopulationSize(), 0);
    EXPECT_EQ(container.CopyBestChromosome().m_nGenes, 0);
}

TEST(SharedScalars, KeepTheirWidths) {
    EXPECT_EQ(sizeof(CContainer::m_bStop), 1U);
    EXPECT_EQ(sizeof(g_MutationProbability), 4U);
    EXPECT_EQ(sizeof(CContainer::m_fBestFitness), 4U);
}

TEST(SharedScalars, ReadAndAssignLikePlainOnes) {
    CRelaxed<float> value = 2.5F;
    EXPECT_EQ(value, 2.5F);
    EXPECT_EQ(value = 3.5F, 3.5F);
    EXPECT_EQ(value * 2.0F, 7.0F);
}

TEST(AddPolygon, AppendsWhatTheFileHolds) {
    const support::CTemporaryFolder folder;
    const CPolygon square = MakeSquare(20);
    const CPolygon bar = MakeRectangle(30, 5);
    CContainer container;
    EXPECT_TRUE(container.AddPolygon(folder.Write("a.pol", support::PolygonFileText(square)).c_str()));
    EXPECT_TRUE(container.AddPolygon(folder.Write("b.pol", support::PolygonFileText(bar)).c_str()));
    EXPECT_THAT(container.m_Polygons, testing::ElementsAre(square, bar));
}

TEST(AddPolygon, OfAMissingFileSaysSoTwiceAndKeepsTheSet) {
    const support::CTemporaryFolder folder;
    const std::string path = folder.PathOf("missing.pol");
    CContainer container;
    container.m_Polygons = {MakeSquare(20)};
    EXPECT_EQ(PrintedBy([&] { EXPECT_FALSE(container.AddPolygon(path.c_str())); }),
              "Couldn't read polyon file " + path + "\nCouldn't Load Polygon " + path + "\n");
    EXPECT_THAT(container.m_Polygons, SizeIs(1));
}

TEST(PrepareEverything, StacksAllBoxesInOneColumn) {
    CContainer container;
    container.m_Polygons = {MakeRectangle(10, 20),
                            MakePolygon(support::RectangleOutline(5, 5), {0, -3, 0}, {5, 4, 0})};
    container.PrepareEverything(0);
    EXPECT_EQ(container.m_fTotalHeight, 27.0F);
}

TEST(PrepareEverything, AddsHeightsInSinglePrecisionInTheOrderOfTheSet) {
    CContainer container;
    container.m_Polygons = {MakeRectangle(1, 16777216), MakeRectangle(1, 1), MakeRectangle(1, 1)};
    container.PrepareEverything(0);
    EXPECT_EQ(container.m_fTotalHeight, 16777216.0F);
    std::swap(container.m_Polygons[0], container.m_Polygons[2]);
    container.PrepareEverything(0);
    EXPECT_EQ(container.m_fTotalHeight, 16777218.0F);
}

TEST(PrepareEverything, MakesChromosomesWithOneGenePerPolygon) {
    CContainer container;
    container.m_Polygons = {MakeSquare(1), MakeSquare(2), MakeSquare(3)};
    container.PrepareEverything(5);
    ASSERT_THAT(container.m_Population, SizeIs(5));
    EXPECT_EQ(container.PopulationSize(), 5);
    for (const CChromosome& chromosome : container.m_Population) {
        EXPECT_THAT(chromosome.Genes(), testing::ElementsAre(SGene{0, 0, 0}, SGene{1, 0, 0}, SGene{2, 0, 0}));
        EXPECT_EQ(chromosome.m_fFitness, 0.0F);
    }
}

TEST(PrepareEverything, AppendsToThePopulation) {
    CContainer container;
    container.m_Polygons = {MakeSquare(1)};
    container.PrepareEverything(2);
    container.m_Population[0].m_pGenes[0].m_nOrder = 7;
    container.PrepareEverything(3);
    EXPECT_THAT(container.m_Population, SizeIs(5));
    EXPECT_EQ(container.m_Population[0].m_pGenes[0].m_nOrder, 7);
    EXPECT_EQ(container.PopulationSize(), 5);
}

TEST(Clear, EmptiesTheSetAndThePopulationAndKeepsTheBestChromosome) {
    CContainer container;
    container.m_Polygons = {MakeSquare(1)};
    container.PrepareEverything(2);
    container.m_BestChromosome = MakeChromosome({{0, 1, 2}});
    container.Clear();
    EXPECT_THAT(container.m_Polygons, IsEmpty());
    EXPECT_THAT(container.m_Population, IsEmpty());
    EXPECT_EQ(container.PopulationSize(), 0);
    EXPECT_THAT(container.CopyBestChromosome().Genes(), testing::ElementsAre(SGene{0, 1, 2}));
}

/// The offset of a polygon's only gene after the clamp.
float Clamped(const CPolygon& polygon, float fX) {
    CContainer container;
    container.m_Polygons = {polygon};
    CChromosome chromosome = MakeChromosome({{0, 3, fX}});
    container.ValidateChromosome(chromosome);
    EXPECT_EQ(chromosome.m_pGenes[0].m_nOrder, 3);
    return chromosome.m_pGenes[0].m_fX;
}

TEST(Clamp, MovesAPieceThatSticksOutOnTheLeftToTheLeftWall) {
    EXPECT_EQ(Clamped(MakeSquare(10), -30), 0.0F);
}

TEST(Clamp, MovesAPieceThatSticksOutOnTheRightToTheRightWall) {
    EXPECT_EQ(Clamped(MakeSquare(10), 395), 390.0F);
}

TEST(Clamp, LetsAPieceWiderThanTheStripStickOutOnTheLeft) {
    EXPECT_EQ(Clamped(MakeSquare(500), 0), -100.0F);
    EXPECT_EQ(Clamped(MakeSquare(500), 1000), -100.0F);
    EXPECT_EQ(Clamped(MakeSquare(500), -1000), -100.0F);
}

TEST(Clamp, LeavesAPieceInsideTheStripWhereItIs) {
    for (const float fX : {0.0F, 200.5F, 390.0F}) {
        EXPECT_EQ(Clamped(MakeSquare(10), fX), fX);
    }
}

TEST(Clamp, GoesByTheBoxWhereverItsOriginLies) {
    const CPolygon polygon = MakePolygon(support::Moved(support::RectangleOutline(10, 10), 100, 0));
    EXPECT_EQ(Clamped(polygon, -150), -100.0F);
    EXPECT_EQ(Clamped(polygon, 350), 290.0F);
}

TEST(Clamp, PutsAnOffsetThatIsNoNumberOnTheLeftWall) {
    EXPECT_EQ(Clamped(MakeSquare(10), std::nanf("")), 0.0F);
    EXPECT_EQ(Clamped(MakeSquare(10), -INFINITE), 0.0F);
    EXPECT_EQ(Clamped(MakeSquare(10), INFINITE), 390.0F);
}

TEST(Clamp, SkipsGenesOfUnknownPolygons) {
    CContainer container;
    container.m_Polygons = {MakeSquare(10)};
    CChromosome chromosome = MakeChromosome({{-1, 0, -5}, {1, 0, -5}, {0, 0, -5}});
    container.ValidateChromosome(chromosome);
    EXPECT_THAT(chromosome.Genes(), testing::ElementsAre(SGene{-1, 0, -5}, SGene{1, 0, -5}, SGene{0, 0, 0}));
}

/// Whether a square of side 10 falling at (fX, fY) can touch a square of side 10 placed at the given place.
bool IsCollidable(float fX, float fY, float fPlacedX, float fPlacedY) {
    const CContainer container;
    std::vector<CPolygon> collidable;
    container.GetCollidablePolygonList(PlacedAt(MakeSquare(10), fX, fY),
                                       {PlacedAt(MakeSquare(10), fPlacedX, fPlacedY)}, collidable);
    return !collidable.empty();
}

TEST(Collidable, AreBoxesWhoseXRangesOverlapOrTouch) {
    EXPECT_TRUE(IsCollidable(0, 50, 5, 0));
    EXPECT_TRUE(IsCollidable(0, 50, 10, 0));
    EXPECT_TRUE(IsCollidable(10, 50, 0, 0));
    EXPECT_FALSE(IsCollidable(0, 50, 10.25F, 0));
    EXPECT_FALSE(IsCollidable(10.25F, 50, 0, 0));
}

TEST(Collidable, IsNothingThatBeginsAboveTheFallingPiece) {
    EXPECT_TRUE(IsCollidable(0, 50, 0, 60));
    EXPECT_FALSE(IsCollidable(0, 50, 0, 60.25F));
}

TEST(Collidable, IsNothingBelowTheFloor) {
    EXPECT_TRUE(IsCollidable(0, 50, 0, -10));
    EXPECT_FALSE(IsCollidable(0, 50, 0, -10.25F));
}

TEST(Collidable, IsABoxThatIsNoNumberAboveTheFloor) {
    // "Not below the floor" rather than "above it".
    CPolygon obstacle = MakeSquare(10);
    obstacle.m_BoundingBoxMax.y = std::nanf("");
    std::vector<CPolygon> collidable;
    CContainer().GetCollidablePolygonList(PlacedAt(MakeSquare(10), 0, 50), {obstacle}, collidable);
    EXPECT_THAT(collidable, SizeIs(1));
}

TEST(Collidable, AreAppendedAsCopiesInTheOrderOfPlacement) {
    const std::vector<CPolygon> placed = {PlacedAt(MakeSquare(10), 0, 0), PlacedAt(MakeSquare(10), 300, 0),
                                          PlacedAt(MakeSquare(10), 5, 10)};
    std::vector<CPolygon> collidable = {MakeSquare(77)};
    CContainer().GetCollidablePolygonList(PlacedAt(MakeSquare(10), 0, 50), placed, collidable);
    EXPECT_THAT(collidable, testing::ElementsAre(MakeSquare(77), placed[0], placed[2]));
}

}  // namespace

}  // namespace nestrix
