#include "nest/CLayout.h"

#include <gtest/gtest.h>

#include "tests/nest/FreeSets.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::RandomCases;

constexpr double WIDTH = 100.0;

std::vector<SPlace> RandomPlaces(const CPackProblem& problem, CSeededRandom& random, double height) {
    std::vector<SPlace> places;
    for (const size_t nPiece : problem.Items()) {
        const std::vector<size_t>& versions = problem.VersionsOf(nPiece);
        const double x = static_cast<double>(random.Unit()) * static_cast<double>(problem.Strip().m_nWidth);
        places.push_back(
            {{x, static_cast<double>(random.Unit()) * height}, versions[random.Index(versions.size())]});
    }
    return places;
}

SPlaneBox BoxOf(const CPackProblem& problem, const SPlace& place) {
    const SGridBox& box = problem.Versions()[place.m_nVersion].m_Box;
    return {place.m_At + SPoint{static_cast<double>(box.m_Low.m_nX), static_cast<double>(box.m_Low.m_nY)},
            place.m_At + SPoint{static_cast<double>(box.m_High.m_nX), static_cast<double>(box.m_High.m_nY)}};
}

/// Compares the neighbours of a place with all items whose boxes are nearer than the spacing.
void ExpectNeighbours(const CLayout& layout, const SPlace& place) {
    const CPackProblem& problem = layout.Problem();
    std::vector<int> visits(layout.Count());
    layout.VisitNeighbours(place, [&visits](size_t nOther) {
        ++visits[nOther];
        return true;
    });
    // Boxes are kept in single precision, enlarged by what that may lose.
    const double lost =
        4.0 * std::max(layout.Height(), static_cast<double>(problem.Strip().m_nWidth)) * 0x1p-23;
    const double spacing = static_cast<double>(problem.Strip().m_nSpacing);
    for (size_t i = 0; i < layout.Count(); ++i) {
        const double gap = GapOf(BoxOf(problem, place), BoxOf(problem, layout.PlaceOf(i)));
        if (gap < spacing) {
            ASSERT_EQ(visits[i], 1) << i;
        } else if (gap > spacing + lost) {
            ASSERT_EQ(visits[i], 0) << i;
        }
    }
}

/// Items at random, again and again moved, in a strip so much higher than wide.
void ExpectNeighboursOfAll(int nPieces, double heights, double spacing, uint64_t nSeed) {
    CSeededRandom random(nSeed);
    const std::vector<SPiece> pieces = support::RandomBoxes(random, nPieces, 20);
    const CPackProblem problem(pieces, {WIDTH, spacing, 0.0}, true);
    CFieldTable fields(problem);
    const double height = heights * WIDTH / problem.Grid().Length(1);
    CLayout layout(problem, fields, RandomPlaces(problem, random, height));
    for (int nRound = 0; nRound < 3; ++nRound) {
        for (int i = 0; i < RandomCases(200); ++i) {
            layout.Move(random.Index(layout.Count()),
                        RandomPlaces(problem, random, height)[random.Index(layout.Count())]);
            ASSERT_NO_FATAL_FAILURE(ExpectNeighbours(layout, layout.PlaceOf(random.Index(layout.Count()))));
        }
        layout.Assign(RandomPlaces(problem, random, height / 2), height / 2);
    }
}

TEST(Layout, OfFewItemsVisitsThoseWhoseBoxesOverlap) {
    ExpectNeighboursOfAll(1, 1.0, 0.0, 1);
    ExpectNeighboursOfAll(10, 1.0, 0.0, 2);
    ExpectNeighboursOfAll(40, 1.0, 3.0, 3);
}

TEST(Layout, OfManyItemsVisitsThoseWhoseBoxesOverlap) {
    ExpectNeighboursOfAll(400, 4.0, 0.0, 4);
    ExpectNeighboursOfAll(400, 4.0, 2.0, 5);
}

TEST(Layout, OfATallStripVisitsThoseWhoseBoxesOverlap) {
    ExpectNeighboursOfAll(600, 300.0, 0.0, 6);
}

TEST(Layout, VisitsNoFurtherThanAsLongAsItIsToldTo) {
    CSeededRandom random(7);
    const std::vector<SPiece> pieces{support::Copies(support::Box(10, 10), 200)};
    const CPackProblem problem(pieces, {WIDTH, 0.0, 0.0}, true);
    CFieldTable fields(problem);
    const CLayout layout(problem, fields, std::vector<SPlace>(200));
    int nVisits = 0;
    layout.VisitNeighbours({}, [&nVisits](size_t) { return ++nVisits < 5; });
    EXPECT_EQ(nVisits, 5);
}

TEST(Layout, HasRoomForAVersionWithinTheMargins) {
    const std::vector<SPiece> pieces{support::Box(10, 20)};
    const CPackProblem problem(pieces, {WIDTH, 0.0, 5.0}, true);
    CFieldTable fields(problem);
    CLayout layout(problem, fields, std::vector<SPlace>(1));
    const double unit = problem.Grid().Length(1);
    layout.Assign(std::vector<SPlace>(1), 60.0 / unit);
    // The reference point is the middle of the box.
    const SPlaneBox room = layout.RoomFor(0);
    EXPECT_DOUBLE_EQ(room.m_Low.m_X * unit, 10.0);
    EXPECT_DOUBLE_EQ(room.m_High.m_X * unit, 90.0);
    EXPECT_DOUBLE_EQ(room.m_Low.m_Y * unit, 15.0);
    EXPECT_DOUBLE_EQ(room.m_High.m_Y * unit, 50.0);
    layout.Assign(std::vector<SPlace>(1), 20.0 / unit);
    EXPECT_LT(layout.RoomFor(0).m_High.m_Y, layout.RoomFor(0).m_Low.m_Y) << "the strip is too low for it";
}

TEST(Layout, PutsBackWhatSticksOutOfTheStrip) {
    const std::vector<SPiece> pieces{support::Copies(support::Box(10, 20), 2, {0.0})};
    const CPackProblem problem(pieces, {WIDTH, 0.0, 5.0}, true);
    CFieldTable fields(problem);
    const double unit = 1.0 / problem.Grid().Length(1);
    const std::vector<SPlace> outside{{SPoint{-50, 300} * unit, 0}, {SPoint{500, -300} * unit, 0}};
    CLayout layout(problem, fields, outside);
    layout.Assign(outside, 100 * unit);
    EXPECT_EQ(layout.PlaceOf(0).m_At, (SPoint{10, 90} * unit));
    EXPECT_EQ(layout.PlaceOf(1).m_At, (SPoint{90, 15} * unit));
    // A strip that is too low for an item is left at its top.
    layout.Assign(outside, 20 * unit);
    EXPECT_EQ(layout.PlaceOf(0).m_At, (SPoint{10, 15} * unit));
}

}  // namespace

}  // namespace nestrix
