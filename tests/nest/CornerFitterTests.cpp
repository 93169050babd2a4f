#include "nest/CCornerFitter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/nest/FreeSets.h"

namespace nestrix {

namespace {

constexpr double TOLERANCE = 1e-5;

class CFitting {
public:
    explicit CFitting(std::vector<SPiece> pieces, const SFreeStrip& strip, uint64_t nMost = 10'000)
        : m_Pieces(std::move(pieces)),
          m_Problem(m_Pieces, strip, true),
          m_Fields(m_Problem),
          m_Limit(1, nMost, [] { return false; }),
          m_Steps(m_Limit, 0, 1'000'000, [] {}) {}

    [[nodiscard]] std::optional<CCornerFitter::SFit> Fit(size_t nLayouts, double height = HUGE_VAL) {
        return CCornerFitter(m_Problem, m_Fields, m_Steps, TOLERANCE, height / m_Problem.Grid().Length(1))
            .Fit(nLayouts);
    }
    [[nodiscard]] double HeightOf(const CCornerFitter::SFit& fit) const {
        return nestrix::HeightOf(m_Problem, fit.m_Places) * m_Problem.Grid().Length(1);
    }
    [[nodiscard]] std::string FaultOf(const CCornerFitter::SFit& fit) const {
        return support::FaultOf(m_Pieces, PackingOf(m_Problem, {0.0, fit.m_Places}));
    }
    [[nodiscard]] bool IsWorthTrying() const { return CCornerFitter::IsWorthTrying(m_Problem); }
    [[nodiscard]] uint64_t Steps() const { return m_Steps.Steps(); }

private:
    std::vector<SPiece> m_Pieces;
    CPackProblem m_Problem;
    CFieldTable m_Fields;
    CStepLimit m_Limit;
    CStepCounter m_Steps;
};

TEST(CornerFitter, PutsAPuzzleTogether) {
    CFitting fitting(support::Puzzle(), {60.0, 0.0, 0.0});
    const std::optional<CCornerFitter::SFit> fit = fitting.Fit(5);
    ASSERT_TRUE(fit);
    EXPECT_DOUBLE_EQ(fitting.HeightOf(*fit), 60.0);
    EXPECT_EQ(fit->m_Filled, 1.0);
    EXPECT_EQ(fitting.FaultOf(*fit), "");
}

TEST(CornerFitter, PutsAPuzzleTogetherWhosePiecesComeInAnotherOrderAndTurned) {
    std::vector<SPiece> pieces = support::Puzzle();
    std::reverse(pieces.begin(), pieces.end());
    for (SPoint& point : pieces[1].m_Shape.m_Outline) {
        point = {-point.m_X, -point.m_Y};
    }
    CFitting fitting(std::move(pieces), {60.0, 0.0, 0.0});
    EXPECT_DOUBLE_EQ(fitting.HeightOf(*fitting.Fit(5)), 60.0);
}

TEST(CornerFitter, KeepsOffTheMargin) {
    CFitting fitting(support::Puzzle(), {66.0, 0.0, 3.0});
    EXPECT_DOUBLE_EQ(fitting.HeightOf(*fitting.Fit(5)), 63.0);
}

TEST(CornerFitter, LaysCopiesOfAPieceBesideEachOther) {
    CFitting fitting({support::Copies(support::Box(10, 10), 9)}, {30.0, 0.0, 0.0});
    EXPECT_DOUBLE_EQ(fitting.HeightOf(*fitting.Fit(1)), 30.0);
}

TEST(CornerFitter, GivesEachItemAPlaceInTheOrderOfThePieces) {
    CFitting fitting({support::Copies(support::Box(10, 30), 2), support::Copies(support::Box(20, 30), 2)},
                     {30.0, 0.0, 0.0});
    const std::optional<CCornerFitter::SFit> fit = fitting.Fit(4);
    ASSERT_EQ(fit->m_Places.size(), 4U);
    EXPECT_EQ(fit->m_Places[0].m_nVersion, fit->m_Places[1].m_nVersion);
    EXPECT_NE(fit->m_Places[1].m_nVersion, fit->m_Places[2].m_nVersion);
    EXPECT_EQ(fitting.FaultOf(*fit), "");
}

TEST(CornerFitter, PutsWhatFitsNoCornerAboveTheOthers) {
    // No corner of theirs is as narrow as those between the floor and the walls.
    SPiece hexagon;
    hexagon.m_Shape.m_Outline = {{10.0, 0.0},  {20.0, 0.0},  {30.0, 15.0},
                                 {20.0, 30.0}, {10.0, 30.0}, {0.0, 15.0}};
    CFitting fitting({support::Copies(hexagon, 2)}, {40.0, 0.0, 0.0});
    const std::optional<CCornerFitter::SFit> fit = fitting.Fit(2);
    EXPECT_DOUBLE_EQ(fitting.HeightOf(*fit), 60.0);
    EXPECT_EQ(fit->m_Filled, 0.0);
    EXPECT_EQ(fitting.FaultOf(*fit), "");
}

TEST(CornerFitter, KeepsBelowAHeight) {
    // Upright the two fill half of the width; below 10 they have to lie.
    CFitting fitting({support::Copies(support::Box(5, 20), 2, {0.0, 90.0})}, {20.0, 0.0, 0.0});
    const std::optional<CCornerFitter::SFit> fit = fitting.Fit(1, 10.0);
    EXPECT_TRUE(fit->m_bComplete);
    EXPECT_DOUBLE_EQ(fitting.HeightOf(*fit), 10.0);
}

TEST(CornerFitter, PutsWhatFitsNoCornerBelowTheHeightAboveTheOthers) {
    CFitting fitting({support::Copies(support::Box(10, 10), 9)}, {30.0, 0.0, 0.0});
    const std::optional<CCornerFitter::SFit> fit = fitting.Fit(1, 29.0);
    EXPECT_FALSE(fit->m_bComplete);
    EXPECT_DOUBLE_EQ(fitting.HeightOf(*fit), 50.0);
    EXPECT_EQ(fitting.FaultOf(*fit), "");
}

TEST(CornerFitter, TakesAStepForEachPieceOfEachLayout) {
    CFitting fitting({support::Copies(support::Box(10, 10), 9)}, {30.0, 0.0, 0.0});
    (void)fitting.Fit(1);
    EXPECT_EQ(fitting.Steps(), 9U);
}

TEST(CornerFitter, EndsWithTheSteps) {
    CFitting fitting(support::Puzzle(), {60.0, 0.0, 0.0}, 3);
    EXPECT_FALSE(fitting.Fit(5));
}

TEST(CornerFitter, IsOnlyTriedWherePiecesTouchAndAreFewAndPlain) {
    EXPECT_TRUE(CFitting(support::Puzzle(), {60.0, 0.0, 0.0}).IsWorthTrying());
    EXPECT_FALSE(CFitting(support::Puzzle(), {60.0, 1.0, 0.0}).IsWorthTrying());
    EXPECT_FALSE(CFitting({support::Copies(support::Box(10, 10), 201)}, {60.0, 0.0, 0.0}).IsWorthTrying());
    EXPECT_FALSE(CFitting({support::Comb(12)}, {400.0, 0.0, 0.0}).IsWorthTrying());
}

}  // namespace

}  // namespace nestrix
