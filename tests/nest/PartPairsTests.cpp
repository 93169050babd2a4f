#include "nest/CPartPairs.h"

#include <gtest/gtest.h>

#include "tests/nest/FreeSets.h"
#include "tests/support/FreePieces.h"

namespace nestrix {

namespace {

constexpr double REACH = 10.0;

/// Two items, the only ones of their problem, and the pairs of their parts. All lengths are in units of the
/// strip, also those of the rows.
class CTwoItems {
public:
    CTwoItems(std::vector<SPiece> pieces, double spacing, SPoint first, SPoint second)
        : m_Pieces(std::move(pieces)),
          m_Problem(m_Pieces, {1000.0, spacing, 0.0}, true),
          m_Unit(m_Problem.Grid().Length(1)),
          m_Parts(m_Problem),
          m_Pairs(m_Parts, spacing / m_Unit, REACH / m_Unit) {
        m_Pairs.Add(ItemAt(0, first), ItemAt(1, second));
    }

    std::vector<SKeepApart> TakeNear() { return InStrip(m_Pairs.TakeNear()); }
    std::vector<SKeepApart> TakeOverlapping(SPoint first, SPoint second) {
        const std::vector<SPoint> moves{first * (1.0 / m_Unit), second * (1.0 / m_Unit)};
        return InStrip(m_Pairs.TakeOverlapping(moves));
    }
    void Tighten() { m_Pairs.Tighten(); }

private:
    /// @param at the middle of its box.
    [[nodiscard]] CPartPairs::SItem ItemAt(size_t nItem, SPoint at) const {
        const size_t nVersion = m_Problem.VersionsOf(m_Problem.Items()[nItem]).front();
        return {nItem, nVersion, at * (1.0 / m_Unit)};
    }

    [[nodiscard]] std::vector<SKeepApart> InStrip(std::vector<SKeepApart> rows) const {
        for (SKeepApart& row : rows) {
            row.m_Least *= m_Unit;
            row.m_Lost *= m_Unit;
        }
        return rows;
    }

    std::vector<SPiece> m_Pieces;
    CPackProblem m_Problem;
    double m_Unit;
    CExactParts m_Parts;
    CPartPairs m_Pairs;
};

const std::vector<SPiece> TWO_SQUARES{support::Copies(support::Box(10, 10), 2)};
constexpr SPoint STAYS{0.0, 0.0};

TEST(PartPairs, HaveARowFromTheBeginningWhereTheyAreNear) {
    CTwoItems items(TWO_SQUARES, 0.0, {0, 0}, {10.5, 3});
    const std::vector<SKeepApart> rows = items.TakeNear();
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows.front().m_nFirst, 0U);
    EXPECT_EQ(rows.front().m_nSecond, 1U);
    EXPECT_DOUBLE_EQ(rows.front().m_Normal.m_X, -1.0);
    EXPECT_NEAR(rows.front().m_Least, -0.5, 1e-6);
    EXPECT_TRUE(items.TakeNear().empty());
}

TEST(PartPairs, AreNearByWhatTheSpacingLeaves) {
    CTwoItems items(TWO_SQUARES, 4.0, {0, 0}, {14.5, 3});
    const std::vector<SKeepApart> rows = items.TakeNear();
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_NEAR(rows.front().m_Least, -0.5, 1e-6);
}

TEST(PartPairs, HaveARowOnceAMoveBringsThemOverEachOther) {
    CTwoItems items(TWO_SQUARES, 0.0, {0, 0}, {15, 3});
    EXPECT_TRUE(items.TakeNear().empty());
    EXPECT_TRUE(items.TakeOverlapping(STAYS, STAYS).empty());
    EXPECT_TRUE(items.TakeOverlapping({2.5, 0}, {-2.5, 0}).empty());
    const std::vector<SKeepApart> rows = items.TakeOverlapping({2.6, 0}, {-2.5, 0});
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_NEAR(rows.front().m_Least, -5.0, 1e-6);
    EXPECT_TRUE(items.TakeOverlapping({2.6, 0}, {-2.5, 0}).empty());
}

TEST(PartPairs, HaveARowIfTheyCanMeetByTheFarthestMovesOfAll) {
    EXPECT_EQ(CTwoItems(TWO_SQUARES, 0.0, {0, 0}, {29.9, 29.9}).TakeOverlapping({10, 10}, {-10, -10}).size(),
              1U);
}

TEST(PartPairs, HaveNoRowWhereAMoveBringsThemToAnotherSideOfEachOther) {
    const SPiece diamond = support::PieceOf({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    CTwoItems items({support::Copies(diamond, 2)}, 0.0, {0, 0}, {10, 4});
    EXPECT_TRUE(items.TakeOverlapping({3, 5}, {-3, -6}).empty());
    EXPECT_EQ(items.TakeOverlapping({3, 3}, {-3, -6}).size(), 1U);
}

TEST(PartPairs, HaveARowWhereTheirBoxesAreApartButForTheSpacing) {
    CTwoItems items(TWO_SQUARES, 4.0, {0, 0}, {20, 0});
    EXPECT_TRUE(items.TakeOverlapping({6, 0}, STAYS).empty());
    EXPECT_EQ(items.TakeOverlapping({6.1, 0}, STAYS).size(), 1U);
}

TEST(PartPairs, KeepSomethingForRoundingOnASlopeUnlessTightened) {
    const std::vector<SPiece> triangles{support::Copies(support::RightTriangle(20, 20), 1),
                                        support::Copies(support::RightTriangle(20, 20), 1, {180.0})};
    // Their long sides lie on one another.
    CTwoItems loose(triangles, 0.0, {0, 0}, {0, 0});
    const std::vector<SKeepApart> rows = loose.TakeOverlapping(STAYS, STAYS);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_GT(rows.front().m_Lost, 0.0);
    CTwoItems tight(triangles, 0.0, {0, 0}, {0, 0});
    tight.Tighten();
    EXPECT_TRUE(tight.TakeOverlapping(STAYS, STAYS).empty());
    const std::vector<SKeepApart> moved = tight.TakeOverlapping({0.1, 0.1}, STAYS);
    ASSERT_EQ(moved.size(), 1U);
    EXPECT_EQ(moved.front().m_Lost, 0.0);
}

/// Lays a bar onto eight teeth, a little askew: some are deeper in it than others.
void ExpectDeepestFirst(const SPiece& bar) {
    CTwoItems items({support::Comb(8), bar}, 0.0, {0, 0}, {0, 23});
    const std::vector<SKeepApart> first = items.TakeNear();
    const std::vector<SKeepApart> others = items.TakeOverlapping(STAYS, STAYS);
    EXPECT_EQ(first.size() + others.size(), 8U);
    EXPECT_FALSE(others.empty());
    for (const SKeepApart& deep : first) {
        for (const SKeepApart& shallow : others) {
            EXPECT_GT(deep.m_Least, shallow.m_Least);
        }
    }
}

TEST(PartPairs, OfTwoItemsBeginWithThoseThatOverlapMost) {
    ExpectDeepestFirst(support::PieceOf({{0, 1}, {150, 0}, {150, 10}, {0, 10}}));
    ExpectDeepestFirst(support::PieceOf({{0, 0}, {150, 1}, {150, 10}, {0, 10}}));
}

}  // namespace

}  // namespace nestrix
