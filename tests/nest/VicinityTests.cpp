#include "nest/CVicinity.h"

#include <gtest/gtest.h>

#include "tests/nest/CMoveScene.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CMoveScene;
using support::RandomCases;

constexpr double REACH = 5.0;
constexpr double OUT_OF_THE_STRIP = 120.0;

/// Its neighbours are summed up in another order.
constexpr double ROUNDING = 1e-12;

/// Turning forth and back, in units.
constexpr double TURNING = 1e-3;

/// A random walk of an item: mostly within the reach, now and then far beyond it, or out of the strip.
class CWalk {
public:
    explicit CWalk(uint64_t nSeed)
        : m_Scene(support::MixedScene(nSeed)),
          m_Overlap(m_Scene.Layout(), m_Scene.Weights()),
          m_Vicinity(m_Overlap) {}

    /// Calls visit(place, exact value there) at many places in the vicinity of several items.
    template <class TVisit>
    void Go(TVisit&& visit) {
        for (int i = 0; i < RandomCases(200); ++i) {
            const CItemOverlap::CScope ofItem(m_Overlap, m_Scene.Random().Index(m_Scene.Layout().Count()));
            const SPlace from = m_Scene.DrawPlace(m_Overlap.Item());
            m_Vicinity.Enter(from, m_Scene.InUnits(REACH));
            for (int k = 0; k < 20; ++k) {
                const double reach =
                    m_Scene.Random().Pick({REACH, REACH, REACH, 4.0 * REACH, OUT_OF_THE_STRIP});
                const SPlace place{m_Scene.DrawAround(from.m_At, reach), from.m_nVersion};
                visit(place, m_Overlap.ValueAt(place, HUGE_VAL));
                if (testing::Test::HasFatalFailure()) {
                    return;
                }
            }
        }
    }

    CMoveScene m_Scene;
    CItemOverlap m_Overlap;
    CVicinity m_Vicinity;
};

TEST(Vicinity, KnowsTheOverlapNearAndFar) {
    CWalk walk(1);
    int nOverlapping = 0;
    walk.Go([&](const SPlace& place, double exact) {
        ASSERT_NEAR(walk.m_Vicinity.ValueAt(place.m_At, HUGE_VAL), exact, ROUNDING * exact);
        nOverlapping += exact > 0.0 ? 1 : 0;
    });
    EXPECT_GT(nOverlapping, RandomCases(200) * 10);
}

TEST(Vicinity, IsExactBelowTheLimitAndAtLeastTheLimitElse) {
    CWalk walk(2);
    int nInexact = 0;
    walk.Go([&](const SPlace& place, double exact) {
        const double limit = static_cast<double>(walk.m_Scene.Random().Between(0.1F, 1.5F)) * exact;
        const double answer = walk.m_Vicinity.ValueAt(place.m_At, limit);
        ASSERT_LE(answer, exact * (1.0 + ROUNDING));
        ASSERT_TRUE(answer >= std::min(limit, exact) * (1.0 - ROUNDING)) << answer << " of " << exact;
        nInexact += answer < exact * (1.0 - ROUNDING) ? 1 : 0;
    });
    EXPECT_GT(nInexact, RandomCases(200));
}

TEST(Vicinity, TakesTheSameOverlapForHinges) {
    CWalk walk(3);
    std::vector<CHingeModel::SHinge> hinges;
    walk.Go([&](const SPlace& place, double exact) {
        ASSERT_NEAR(walk.m_Vicinity.GatherHinges(place.m_At, 7.0, hinges), exact, ROUNDING * exact);
        double value = 0.0;
        for (const CHingeModel::SHinge& hinge : hinges) {
            ASSERT_EQ(hinge.m_Weight, walk.m_Overlap.FactorOf(hinge.m_nOther));
            value += hinge.m_Weight * (hinge.m_Depth - 7.0);
        }
        ASSERT_NEAR(value, exact, 1e-6 * exact);
    });
}

TEST(Vicinity, HasHingesThatLeadOutOfEachOverlapAndNoFurther) {
    constexpr double BEYOND = 100.0;
    CWalk walk(4);
    const CLayout& layout = walk.m_Scene.Layout();
    std::vector<CHingeModel::SHinge> hinges;
    int nHinges = 0;
    walk.Go([&](const SPlace& place, double /*exact*/) {
        (void)walk.m_Vicinity.GatherHinges(place.m_At, BEYOND, hinges);
        for (const CHingeModel::SHinge& hinge : hinges) {
            const SPlace& other = layout.PlaceOf(hinge.m_nOther);
            const auto depthAfter = [&](double way) {
                return layout.Fields().DepthOf(place.m_nVersion, place.m_At + hinge.m_Out * way,
                                               other.m_nVersion, other.m_At);
            };
            const double depth = hinge.m_Depth - BEYOND;
            ASSERT_NEAR(depthAfter(0.0), depth, TURNING);
            ASSERT_NEAR(depthAfter(depth), 0.0, TURNING + 1e-6 * depth);
            ASSERT_GT(depthAfter(0.9 * depth), 0.0);
            ++nHinges;
        }
    });
    EXPECT_GT(nHinges, RandomCases(200) * 20);
}

}  // namespace

}  // namespace nestrix
