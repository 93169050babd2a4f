#include "nest/CItemMover.h"

#include <gtest/gtest.h>

#include "tests/nest/CMoveScene.h"
#include "tests/nest/FreeSets.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CMoveScene;
using support::RandomCases;

constexpr SFreeStrip STRIP{80.0, 1.0, 2.0};

double OverlapOf(CMoveScene& scene, size_t nItem) {
    CItemOverlap overlap(scene.Layout(), scene.Weights());
    const CItemOverlap::CScope ofItem(overlap, nItem);
    return overlap.ValueAt(scene.Layout().PlaceOf(nItem), HUGE_VAL);
}

/// Moves items at random, so many times, and examines each move.
/// @return how many made an overlap less.
int CountGains(CMoveScene& scene, int nMoves) {
    CRandom random(1);
    CItemMover mover(scene.Layout(), scene.Weights(), random);
    int nGains = 0;
    for (int i = 0; i < nMoves; ++i) {
        const size_t nItem = scene.Random().Index(scene.Layout().Count());
        const std::vector<SPlace> places = scene.Layout().Places();
        const double before = OverlapOf(scene, nItem);
        const bool bMoved = mover.Move(nItem);
        const double after = OverlapOf(scene, nItem);
        // The neighbours may be summed up in another order.
        EXPECT_LE(after, before * (1.0 + 1e-9));
        EXPECT_TRUE(scene.IsInRoom(scene.Layout().PlaceOf(nItem)));
        for (size_t k = 0; k < places.size(); ++k) {
            const bool bSame = scene.Layout().PlaceOf(k).m_At == places[k].m_At &&
                               scene.Layout().PlaceOf(k).m_nVersion == places[k].m_nVersion;
            EXPECT_TRUE(bSame || (bMoved && k == nItem)) << "moved besides " << nItem << ": " << k;
        }
        EXPECT_TRUE(before > 0.0 || !bMoved) << "nothing was in the way";
        nGains += after < before ? 1 : 0;
    }
    return nGains;
}

TEST(ItemMover, MovesTheItemAloneAndNeverToWhereItOverlapsMoreOrLeavesTheStrip) {
    CMoveScene scene = support::MixedScene(1);
    EXPECT_GT(CountGains(scene, RandomCases(400)), 20);
}

TEST(ItemMover, MovesOneOfManyItemsJustSo) {
    std::vector<SPiece> pieces = support::MixedSet();
    for (SPiece& piece : pieces) {
        piece.m_nQuantity *= 9;
    }
    CMoveScene scene(std::move(pieces), STRIP, 500.0, 2);
    EXPECT_GT(CountGains(scene, RandomCases(400)), 40);
}

/// Each two figures in each of 120 turns against each other: 120 fields for each of 276 pairs, of which the
/// table holds 250, so that the last pairs push out the first ones.
std::vector<SPiece> SetOfTooManyFields() {
    std::vector<SPiece> pieces;
    for (int i = 0; i < 23; ++i) {
        pieces.push_back(support::Copies(support::LetterL(20.0 + 0.1 * i), 1, {0.0, 180.0}));
    }
    pieces[2].m_Turns.m_Degrees.clear();
    for (int i = 0; i < 120; ++i) {
        pieces[2].m_Turns.m_Degrees.push_back(3.0 * i);
    }
    return pieces;
}

TEST(ItemMover, MovesItemsWhoseFieldsPushOutEachOther) {
    CMoveScene scene(SetOfTooManyFields(), STRIP, 50.0, 3);
    ASSERT_FALSE(CFieldTable::FitsAll(scene.Layout().Problem()));
    CFieldTable& fields = scene.Layout().Fields();
    const auto fieldOf = [&](size_t nItem, size_t nOther, size_t nTurn) {
        return fields.WayOf(scene.VersionsOf(nItem).front(), scene.VersionsOf(nOther)[nTurn]).m_pField;
    };
    const CPairField* const pField = fieldOf(0, 2, 0);
    for (size_t nTurn = 1; nTurn < 8; ++nTurn) {
        (void)fieldOf(0, 2, nTurn);
    }
    ASSERT_EQ(fieldOf(0, 2, 0), pField);
    (void)fieldOf(0, 22, 0);
    ASSERT_NE(fieldOf(0, 2, 0), pField) << "pushed out";
    EXPECT_GT(CountGains(scene, RandomCases(300)), 20);
}

TEST(ItemMover, TakesAllItemsApartWhereThereIsRoom) {
    CMoveScene scene(support::MixedSet(), STRIP, 200.0, 4);
    CRandom random(2);
    CItemMover mover(scene.Layout(), scene.Weights(), random);
    for (size_t nItem = 0; nItem < scene.Layout().Count(); ++nItem) {
        (void)mover.Move(nItem);
    }
    for (size_t nItem = 0; nItem < scene.Layout().Count(); ++nItem) {
        EXPECT_EQ(OverlapOf(scene, nItem), 0.0) << nItem;
    }
}

TEST(ItemMover, MovesAsBeforeFromTheSameSeed) {
    std::vector<SPlace> places[2];
    for (std::vector<SPlace>& ended : places) {
        CMoveScene scene = support::MixedScene(5);
        CRandom random(3);
        CItemMover mover(scene.Layout(), scene.Weights(), random);
        for (size_t i = 0; i < 50; ++i) {
            (void)mover.Move(i % scene.Layout().Count());
        }
        ended = scene.Layout().Places();
    }
    for (size_t i = 0; i < places[0].size(); ++i) {
        EXPECT_EQ(places[0][i].m_At, places[1][i].m_At);
        EXPECT_EQ(places[0][i].m_nVersion, places[1][i].m_nVersion);
    }
}

TEST(ItemMover, KeepsAnItemForWhichTheStripIsTooLowOnTheFloorInAVersionOfItsOwn) {
    CMoveScene scene({support::Box(2.0, 2.0), support::Copies(support::Box(10.0, 10.0), 2)}, {40.0, 0.0, 0.0},
                     40.0, 6);
    scene.SetHeight(8.0);
    for (uint64_t nSeed = 0; nSeed < 20; ++nSeed) {
        scene.Put(0, 35.0, 5.0);
        scene.Put(1, 20.0, 5.0);
        scene.Put(2, 22.0, 5.0);
        const double before = OverlapOf(scene, 2);
        CRandom random(nSeed);
        (void)CItemMover(scene.Layout(), scene.Weights(), random).Move(2);
        const SPlace& place = scene.Layout().PlaceOf(2);
        EXPECT_EQ(place.m_nVersion, scene.VersionsOf(2).front());
        EXPECT_EQ(place.m_At.m_Y, scene.Layout().RoomFor(place.m_nVersion).m_Low.m_Y);
        EXPECT_LE(OverlapOf(scene, 2), before);
    }
}

}  // namespace

}  // namespace nestrix
