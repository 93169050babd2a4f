#include "nest/CHingeModel.h"

#include <gtest/gtest.h>

#include "packing/SGrid.h"
#include "tests/support/CSeededRandom.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::RandomCases;

const SPlaneBox ROOM{{-100, -100}, {100, 100}};

TEST(HingeModel, WithoutHingesStaysWhereItIs) {
    const CHingeModel model(ROOM);
    EXPECT_EQ(model.ValueAt({3, 4}), 0.0);
    EXPECT_EQ(model.FindBest({}), SPoint());
}

TEST(HingeModel, OfOneHingeGoesOutAlongIt) {
    CHingeModel model(ROOM);
    EXPECT_TRUE(model.Enter({0, 10.0, {0.6, 0.8}, 2.0}, {}, 0.1));
    EXPECT_DOUBLE_EQ(model.ValueAt({}), 20.0);
    const SPoint best = model.FindBest({});
    EXPECT_DOUBLE_EQ(best.m_X, 6.0);
    EXPECT_DOUBLE_EQ(best.m_Y, 8.0);
}

TEST(HingeModel, OfTwoHingesGoesToTheirCorner) {
    CHingeModel model(ROOM);
    (void)model.Enter({0, 10.0, {1.0, 0.0}, 1.0}, {}, 0.1);
    (void)model.Enter({1, 5.0, {0.0, 1.0}, 1.0}, {}, 0.1);
    EXPECT_EQ(model.FindBest({}), (SPoint{10, 5}));
}

TEST(HingeModel, YieldsToTheHeavierOfTwoOppositeHinges) {
    CHingeModel model(ROOM);
    (void)model.Enter({0, 10.0, {1.0, 0.0}, 1.0}, {}, 0.1);
    (void)model.Enter({1, 5.0, {-1.0, 0.0}, 3.0}, {}, 0.1);
    EXPECT_EQ(model.FindBest({}), (SPoint{-5, 0}));
}

TEST(HingeModel, TellsOfAValueAboveTheLimitSomethingAboveIt) {
    CHingeModel model(ROOM);
    for (uint32_t nOther = 0; nOther < 4; ++nOther) {
        (void)model.Enter({nOther, 5.0, {1.0, 0.0}, 1.0}, {}, 0.1);
    }
    EXPECT_EQ(model.ValueAt({}, 20.0), 20.0) << "not above it";
    for (const double limit : {0.0, 5.0, 7.0, 19.0}) {
        EXPECT_GT(model.ValueAt({}, limit), limit);
        EXPECT_LE(model.ValueAt({}, limit), 20.0);
    }
}

TEST(HingeModel, StaysInItsRoom) {
    CHingeModel model({{-1, -1}, {2, 3}});
    (void)model.Enter({0, 10.0, {1.0, 0.0}, 1.0}, {}, 0.1);
    EXPECT_EQ(model.FindBest({}), (SPoint{2, -1})) << "the nearer corner";
}

TEST(HingeModel, KeepsOneHingeForEachNeighbourAndTheLatest) {
    CHingeModel model(ROOM);
    EXPECT_TRUE(model.Enter({7, 10.0, {1.0, 0.0}, 1.0}, {}, 0.1));
    EXPECT_FALSE(model.Enter({7, 10.05, {0.0, 1.0}, 1.0}, {}, 0.1)) << "nearer than the tolerance";
    EXPECT_TRUE(model.Enter({7, 4.0, {0.0, 1.0}, 1.0}, {3, 2}, 0.1));
    EXPECT_DOUBLE_EQ(model.ValueAt({3, 2}), 4.0);
    EXPECT_DOUBLE_EQ(model.ValueAt({0, 6}), 0.0);
}

TEST(HingeModel, OfRandomHingesFindsAValueAsLowAsAFineGridDoes) {
    constexpr int STEPS = 100;
    CSeededRandom random(1);
    for (int i = 0; i < RandomCases(300); ++i) {
        CHingeModel model({{-10, -10}, {10, 10}});
        for (int k = random.Range(1, 8); k > 0; --k) {
            const SDirection way = DirectionOf(random.Range(0, 359));
            (void)model.Enter({static_cast<uint32_t>(k),
                               static_cast<double>(random.Between(0.1F, 12.0F)),
                               {way.m_Cosine, way.m_Sine},
                               static_cast<double>(random.Between(0.5F, 4.0F))},
                              {}, 1e-3);
        }
        double least = model.ValueAt({});
        for (int x = -STEPS; x <= STEPS; ++x) {
            for (int y = -STEPS; y <= STEPS; ++y) {
                least = std::min(least, model.ValueAt({10.0 * x / STEPS, 10.0 * y / STEPS}));
            }
        }
        // What it takes for no gain.
        ASSERT_LE(model.ValueAt(model.FindBest({})), least * 1.0001 + 2e-3);
    }
}

}  // namespace

}  // namespace nestrix
