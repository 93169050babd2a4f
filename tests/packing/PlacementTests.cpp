#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "ga/CContainer.h"
#include "tests/reference/Agreement.h"
#include "tests/support/CContactLog.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

using support::MakeChromosome;
using support::MakePolygon;
using support::MakeRectangle;
using support::MakeSquare;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Placement : public testing::Test {
protected:
    void Use(std::vector<CPolygon> polygons) {
        m_Container.m_Polygons = std::move(polygons);
        m_Container.PrepareEverything(0);
    }

    float Place(std::initializer_list<SGene> genes) { return Place(MakeChromosome(genes)); }

    float Place(const CChromosome& chromosome) {
        // With and without a listener: only without one may a placement take short cuts.
        EXPECT_EQ(reference::FindPlacementDifference(m_Container, chromosome), "");
        m_Log.m_Contacts.clear();
        return support::PlaceChromosome(m_Container, chromosome, m_Placed, &m_Log);
    }

    /// The heights at which the polygons' reference points came to rest, in drop order.
    [[nodiscard]] std::vector<float> Rests() const {
        std::vector<float> rests;
        for (const CPolygon& polygon : m_Placed) {
            rests.push_back(polygon.m_ReferencePoint.y);
        }
        return rests;
    }

    CContainer m_Container;
    std::vector<CPolygon> m_Placed;
    support::CContactLog m_Log;
};

TEST_F(Placement, OfOnePolygonEndsOnTheFloorWithFitnessZero) {
    Use({MakeRectangle(30, 12)});
    EXPECT_EQ(Place({{0, 0, 100}}), 0.0F);
    EXPECT_THAT(Rests(), ElementsAre(0.0F));
    EXPECT_THAT(m_Log.m_Contacts, ElementsAre(mgVector3{100, 0, 0}));
}

TEST_F(Placement, OfTwoSquaresSideBySideRestsBothOnTheFloor) {
    Use({MakeSquare(10), MakeSquare(10)});
    EXPECT_EQ(Place({{0, 0, 0}, {1, 1, 50}}), 10.0F);
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 0.0F));
}

TEST_F(Placement, OfTwoOverlappingSquaresRestsTheSecondOnTheFirst) {
    Use({MakeSquare(10), MakeSquare(10)});
    EXPECT_EQ(Place({{0, 0, 0}, {1, 1, 5}}), 0.0F);
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 10.0F));
    EXPECT_THAT(m_Log.m_Contacts, ElementsAre(mgVector3{0, 0, 0}, mgVector3{5, 10, 0}));
}

TEST_F(Placement, OfTwoSquaresInLineLeavesTheSecondAtItsStart) {
    Use({MakeSquare(10), MakeSquare(10)});
    EXPECT_EQ(Place({{0, 0, 0}, {1, 1, 0}}), -30.0F);
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 40.0F));
    EXPECT_THAT(m_Log.m_Contacts, ElementsAre(mgVector3{0, 0, 0}, mgVector3{10, 10, 0}));
}

TEST_F(Placement, OfTwoSquaresClampedToTheSameWallLeavesTheSecondAtItsStart) {
    Use({MakeSquare(10), MakeSquare(10)});
    for (const float fX : {-30.0F, 395.0F}) {
        CChromosome chromosome = MakeChromosome({{0, 0, fX}, {1, 1, 2 * fX}});
        m_Container.ValidateChromosome(chromosome);
        EXPECT_EQ(Place(chromosome), -30.0F) << fX;
    }
}

TEST_F(Placement, HoldsZeroAndMinusZeroForInLine) {
    const support::Outline square = {{-0.0F, 0, 0}, {10, 0, 0}, {10, 10, 0}, {-0.0F, 10, 0}};
    // Out of line on the right, so that the left sides decide alone.
    Use({MakeRectangle(15, 10), MakePolygon(square)});
    EXPECT_EQ(Place({{0, 0, 0}, {1, 1, -0.0F}}), -30.0F);
    EXPECT_EQ(Place({{1, 0, -0.0F}, {0, 1, 0}}), -30.0F);
}

TEST_F(Placement, AtTheStartMeetsWhatHangsThere) {
    // The third overlaps the hanging second out of line: its lower side touches the second's top from inside.
    Use({MakeSquare(10), MakeSquare(10), MakeSquare(10)});
    EXPECT_EQ(Place({{0, 0, 0}, {1, 1, 0}, {2, 2, 5}}), 30.0F - 70.0F);
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 60.0F, 10.0F));
}

TEST_F(Placement, InLineWithAHangingPieceIsPushedAboveItsStart) {
    Use({MakeSquare(10), MakeSquare(10), MakeRectangle(10, 20)});
    EXPECT_EQ(Place({{0, 0, 0}, {1, 1, 0}, {2, 2, 0}}), 40.0F - 110.0F);
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 80.0F, 90.0F));
}

TEST_F(Placement, BesideAPieceAtItsEdgeIsDecidedByTheProfiles) {
    // The right side of the second lies in line with the left side of the first.
    Use({MakeSquare(10), MakeSquare(10)});
    Place({{0, 0, 10}, {1, 1, 0}});
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 40.0F));
    // A wedge has only its tip there: it comes to rest on the first one's corner.
    const support::Outline wedge = {{0, 0, 0}, {10, 2.5F, 0}, {0, 5, 0}};
    m_Container.m_Polygons[1] = MakePolygon(wedge);
    Place({{0, 0, 10}, {1, 1, 0}});
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 7.5F));
    // Where only the boxes touch, nothing stops it.
    m_Container.m_Polygons[1] = MakePolygon(wedge, {0, 0, 0}, {11, 5, 0});
    Place({{0, 0, 11}, {1, 1, 0}});
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 0.0F));
}

TEST_F(Placement, DropsInAscendingOrderOfTheKeys) {
    Use({MakeRectangle(10, 1), MakeRectangle(10, 2), MakeRectangle(10, 3)});
    Place({{0, 30, 0}, {1, -10, 100}, {2, 20, 200}});
    EXPECT_THAT(m_Placed, SizeIs(3));
    EXPECT_EQ(m_Placed[0].m_BoundingBoxMax.y, 2.0F);
    EXPECT_EQ(m_Placed[1].m_BoundingBoxMax.y, 3.0F);
    EXPECT_EQ(m_Placed[2].m_BoundingBoxMax.y, 1.0F);
}

TEST_F(Placement, TakesTheOrderOfEqualKeysFromTheLibrarysSort) {
    Use({MakeRectangle(10, 1), MakeRectangle(20, 2), MakeRectangle(30, 3)});
    SGene genes[] = {{2, 5, 0}, {0, 5, 3}, {1, 5, 6}};
    Place(MakeChromosome({genes[0], genes[1], genes[2]}));
    std::qsort(genes, 3, sizeof(SGene), GeneSortCallBack);
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(m_Placed[i].m_ReferencePoint.x, genes[i].m_fX);
    }
}

TEST_F(Placement, ClearsTheListAndReturnsPlacedCopies) {
    Use({MakeSquare(10)});
    m_Placed = {MakeSquare(1), MakeSquare(2), MakeSquare(3)};
    Place({{0, 0, 25}});
    EXPECT_THAT(m_Placed, ElementsAre(support::PlacedAt(MakeSquare(10), 25, 0)));
    EXPECT_EQ(m_Container.m_Polygons[0], MakeSquare(10)) << "the set stays where it is";
}

TEST_F(Placement, KeepsZOfTheReferencePoint) {
    Use({MakeSquare(10)});
    m_Container.m_Polygons[0].m_ReferencePoint = {7, 8, 9};
    Place({{0, 0, 25}});
    EXPECT_EQ(m_Placed[0].m_ReferencePoint, (mgVector3{25, 0, 9}));
}

TEST_F(Placement, PutsTheBoxNotTheOutlineOnTheFloor) {
    Use({MakePolygon(support::RectangleOutline(10, 10), {0, -5, 0}, {10, 20, 0})});
    EXPECT_EQ(Place({{0, 0, 0}}), 25.0F - 25.0F);
    EXPECT_THAT(Rests(), ElementsAre(5.0F));
}

TEST_F(Placement, WithoutAListenerIsTheSame) {
    Use({MakeSquare(10), MakeSquare(10)});
    const float fFitness = Place({{0, 0, 0}, {1, 1, 5}});
    std::vector<CPolygon> placed;
    EXPECT_EQ(support::PlaceChromosome(m_Container, MakeChromosome({{0, 0, 0}, {1, 1, 5}}), placed, nullptr),
              fFitness);
    EXPECT_EQ(placed, m_Placed);
}

TEST_F(Placement, DoesNotWriteTheFitness) {
    Use({MakeSquare(10)});
    CChromosome chromosome = MakeChromosome({{0, 0, 0}});
    chromosome.m_fFitness = 77;
    Place(chromosome);
    EXPECT_EQ(chromosome.m_fFitness, 77.0F);
}

TEST_F(Placement, OfAChromosomeWithoutGenesIsEmptyAndHasTheTotalHeight) {
    Use({MakeSquare(10), MakeSquare(30)});
    m_Placed = {MakeSquare(1)};
    EXPECT_EQ(Place({}), 40.0F);
    EXPECT_THAT(m_Placed, IsEmpty());
}

TEST_F(Placement, SkipsGenesOfUnknownPolygons) {
    Use({MakeSquare(10)});
    constexpr int MOST = std::numeric_limits<int>::max();
    constexpr int LEAST = std::numeric_limits<int>::min();
    EXPECT_EQ(Place({{1, 0, 0}, {-1, 1, 0}, {MOST, 2, 0}, {LEAST, 3, 0}, {0, 4, 60}}), 0.0F);
    EXPECT_THAT(m_Placed, ElementsAre(support::PlacedAt(MakeSquare(10), 60, 0)));
    EXPECT_THAT(m_Log.m_Contacts, SizeIs(1));
}

TEST_F(Placement, OfAnOldChromosomeAfterTheSetWasEmptiedPlacesNothing) {
    Use({MakeSquare(10), MakeSquare(20)});
    const CChromosome old = MakeChromosome({{0, 0, 0}, {1, 1, 50}});
    Place(old);
    m_Container.Clear();
    Place(old);
    EXPECT_THAT(m_Placed, IsEmpty());
}

TEST_F(Placement, MayUseAPolygonTwice) {
    Use({MakeSquare(10)});
    Place({{0, 0, 0}, {0, 1, 5}});
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 10.0F));
}

TEST_F(Placement, OfAPolygonWithoutVerticesPutsItsBoxOnTheFloor) {
    Use({MakeSquare(10), MakePolygon({}, {0, 0, 0}, {10, 7, 0})});
    EXPECT_EQ(Place({{0, 0, 0}, {1, 1, 0}}), 17.0F - 10.0F);
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 0.0F));
}

TEST_F(Placement, AtAnOffsetThatIsNoNumberEndsOnTheFloor) {
    Use({MakeSquare(10), MakeSquare(10)});
    EXPECT_EQ(Place({{0, 0, 0}, {1, 1, std::nanf("")}}), 10.0F);
    EXPECT_THAT(Rests(), ElementsAre(0.0F, 0.0F));
}

}  // namespace

}  // namespace nestrix
