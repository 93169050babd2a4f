#include <gmock/gmock.h>

#include <limits>

#include "display/CPlotter.h"
#include "tests/display/CCanvasHost.h"

namespace nestrix {

namespace {

using testing::NanSensitiveFloatEq;

class PlotterRange : public testing::Test {
protected:
    void SetUp() override {
        m_pPlotter = new CPlotter(m_Host.Parent());
        m_pPlotter->Initialize();
        m_pPlotter->Reset();
        m_pPlotter->Reshape(100.0F);
    }

    void Add(std::initializer_list<float> values) {
        for (const float fValue : values) {
            m_pPlotter->AddValue(static_cast<float>(m_pPlotter->m_Points.size()), fValue);
        }
    }

    void ExpectRange(float fMinY, float fMaxY) const {
        EXPECT_FLOAT_EQ(m_pPlotter->m_fMinY, fMinY);
        EXPECT_FLOAT_EQ(m_pPlotter->m_fMaxY, fMaxY);
    }

    support::CCanvasHost m_Host;
    CPlotter* m_pPlotter = nullptr;
};

TEST(Plotter, SpansHundredAndFiftyGenerationsUntilTheFirstRun) {
    const support::CCanvasHost host;
    auto* pPlotter = new CPlotter(host.Parent());
    EXPECT_EQ(pPlotter->m_fMaxY, 50.0F);
    EXPECT_EQ(pPlotter->m_fMinY, 0.0F);
    EXPECT_EQ(pPlotter->m_fMaxValue, 0.0F);
    EXPECT_TRUE(pPlotter->m_Points.empty());
    pPlotter->Initialize();
    EXPECT_EQ(pPlotter->m_fMaxX, 150.0F);
    EXPECT_EQ(pPlotter->m_fWidth, 150.0F);
    EXPECT_EQ(pPlotter->m_fHeight, 80.0F);
}

TEST(Plotter, SharesItsMarginsWithAllOthers) {
    EXPECT_EQ(CPlotter::m_LeftMargin, 10.0F);
    EXPECT_EQ(CPlotter::m_RightMargin, 10.0F);
    EXPECT_EQ(CPlotter::m_BottomMargin, 10.0F);
    EXPECT_EQ(CPlotter::m_TopMargin, 2.0F);
    EXPECT_TRUE(CPlotter::m_bFirst);
}

TEST_F(PlotterRange, ScalesTheClientAreaLessTheMargins) {
    EXPECT_FLOAT_EQ(m_pPlotter->m_fScaleX, (150.0F - 20.0F) / 100.0F);
    EXPECT_FLOAT_EQ(m_pPlotter->m_fScaleY, (80.0F - 12.0F) / 50.0F);
}

TEST_F(PlotterRange, KeepsFiftyOnTopWhileAllValuesStayBelow) {
    Add({20.0F, 49.0F, 12.5F, 30.0F});
    ExpectRange(12.5F, 50.0F);
    EXPECT_EQ(m_pPlotter->m_fMaxValue, 49.0F);
}

TEST_F(PlotterRange, BeginsAtTheFirstValue) {
    Add({20.0F});
    ExpectRange(20.0F, 50.0F);
    EXPECT_FLOAT_EQ(m_pPlotter->m_fScaleY, 68.0F / 30.0F);
}

TEST_F(PlotterRange, LeavesAFifthOfTheSpreadFreeAboveAValueBeyondTheTop) {
    Add({20.0F, 80.0F});
    ExpectRange(20.0F, 20.0F + 60.0F * 1.2F);
    EXPECT_FLOAT_EQ(m_pPlotter->m_fScaleY, 68.0F / 72.0F);
}

TEST_F(PlotterRange, GrowsWhenAValueExactlyReachesTheTop) {
    Add({20.0F, 50.0F});
    ExpectRange(20.0F, 20.0F + 30.0F * 1.2F);
}

TEST_F(PlotterRange, HasNoHeightAfterAFirstValueOfFiftyOrMore) {
    Add({70.0F});
    ExpectRange(70.0F, 70.0F);
    EXPECT_EQ(m_pPlotter->m_fScaleY, 0.0F);
}

TEST_F(PlotterRange, GainsHeightWithALargerSecondValue) {
    Add({70.0F, 80.0F});
    ExpectRange(70.0F, 82.0F);
}

TEST_F(PlotterRange, GainsHeightWithASmallerSecondValue) {
    Add({70.0F, 60.0F});
    ExpectRange(60.0F, 72.0F);
}

TEST_F(PlotterRange, KeepsNoHeightWhileTheValueStaysTheSame) {
    Add({100.0F, 100.0F, 100.0F});
    ExpectRange(100.0F, 100.0F);
    EXPECT_EQ(m_pPlotter->m_fScaleY, 0.0F);
}

TEST_F(PlotterRange, NeverShrinksDuringARun) {
    Add({10.0F, 90.0F, -20.0F, 40.0F, 41.0F});
    ExpectRange(-20.0F, 10.0F + 80.0F * 1.2F);
}

TEST_F(PlotterRange, LowersTheBottomBeforeItRaisesTheTop) {
    Add({70.0F, 82.0F, 60.0F});
    // 82 is below the top of 84.4 that it made, so only the bottom moves.
    ExpectRange(60.0F, 70.0F + 12.0F * 1.2F);
}

TEST_F(PlotterRange, IsFiftyAgainAfterReset) {
    Add({70.0F, 80.0F});
    m_pPlotter->Reset();
    ExpectRange(0.0F, 50.0F);
    EXPECT_EQ(m_pPlotter->m_fMaxValue, 0.0F);
    EXPECT_TRUE(m_pPlotter->m_Points.empty());
}

TEST_F(PlotterRange, KeepsThePointsInTheOrderAdded) {
    Add({5.0F, 7.0F});
    ASSERT_EQ(m_pPlotter->m_Points.size(), 2U);
    EXPECT_EQ(m_pPlotter->m_Points[1], (mgVector3{1.0F, 7.0F, 0.0F}));
}

/// What the comparisons make of values that are not finite, one by one.
TEST_F(PlotterRange, ComparesValuesThatAreNotFiniteLikeAnyOther) {
    constexpr float NAN_VALUE = std::numeric_limits<float>::quiet_NaN();
    constexpr float INF = std::numeric_limits<float>::infinity();
    struct SCase {
        std::initializer_list<float> m_Values;
        float m_fMaxValue, m_fMinY, m_fMaxY;
    };
    for (const SCase& expected :
         {SCase{{NAN_VALUE}, NAN_VALUE, NAN_VALUE, NAN_VALUE},
          SCase{{NAN_VALUE, 70.0F, 20.0F}, NAN_VALUE, NAN_VALUE, NAN_VALUE},
          SCase{{20.0F, NAN_VALUE}, 20.0F, NAN_VALUE, 50.0F},
          SCase{{20.0F, NAN_VALUE, 30.0F}, 30.0F, 30.0F, 50.0F},
          SCase{{70.0F, NAN_VALUE}, 70.0F, 70.0F, 70.0F}, SCase{{INF}, INF, INF, NAN_VALUE},
          SCase{{INF, 70.0F}, INF, 70.0F, INF}, SCase{{20.0F, INF, 30.0F}, INF, 20.0F, INF},
          SCase{{-INF, 20.0F}, 20.0F, -INF, 50.0F}, SCase{{20.0F, -INF, 30.0F}, 30.0F, -INF, 50.0F}}) {
        m_pPlotter->Reset();
        Add(expected.m_Values);
        const std::string values = testing::PrintToString(std::vector<float>(expected.m_Values));
        EXPECT_EQ(m_pPlotter->m_Points.size(), expected.m_Values.size());
        EXPECT_THAT(m_pPlotter->m_fMaxValue, NanSensitiveFloatEq(expected.m_fMaxValue)) << values;
        EXPECT_THAT(m_pPlotter->m_fMinY, NanSensitiveFloatEq(expected.m_fMinY)) << values;
        EXPECT_THAT(m_pPlotter->m_fMaxY, NanSensitiveFloatEq(expected.m_fMaxY)) << values;
    }
}

TEST_F(PlotterRange, HasNoWidthInARunOfNoGenerations) {
    m_pPlotter->Reshape(0.0F);
    EXPECT_EQ(m_pPlotter->m_fScaleX, 0.0F);
}

TEST_F(PlotterRange, FollowsAResizeOnlyAtTheNextReshape) {
    Add({20.0F});
    m_pPlotter->SetSize(300, 160);
    Add({30.0F});
    EXPECT_EQ(m_pPlotter->m_fWidth, 150.0F);
    Add({10.0F});
    EXPECT_EQ(m_pPlotter->m_fWidth, 300.0F);
    EXPECT_EQ(m_pPlotter->m_fHeight, 160.0F);
    EXPECT_FLOAT_EQ(m_pPlotter->m_fScaleX, 2.8F);
}

}  // namespace

}  // namespace nestrix
