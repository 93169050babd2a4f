#include "batch/DropPlan.h"

#include <gmock/gmock.h>

namespace nestrix {

TEST(DroppedPackingOnTheGrid, HasThePiecesWhereTheyWereDroppedWhereverTheyAreDrawn) {
    SInputSet set;
    set.m_Pieces.resize(2);
    set.m_Pieces[0].m_Shape.m_Outline = {{5, 7}, {15, 7}, {15, 27}};
    set.m_Pieces[1].m_Shape.m_Outline = {{-3, -4}, {0, -4}, {0, 0}};
    set.m_Order = {1, 0, 1};
    SPacking packing;
    packing.m_Placed = {{1, {100.0F, 200.0F, 0.0F}}, {2, {0.5F, 4.0F, 0.0F}}};
    const SFreePacking onGrid = OnGrid(packing, set);
    ASSERT_EQ(onGrid.m_Placed.size(), 2U);
    EXPECT_EQ(onGrid.m_Placed[0].m_nPiece, 0);
    EXPECT_EQ(onGrid.m_Grid.Length(onGrid.m_Placed[0].m_At.m_nX), 105.0);
    EXPECT_EQ(onGrid.m_Grid.Length(onGrid.m_Placed[0].m_At.m_nY), 207.0);
    EXPECT_EQ(onGrid.m_Placed[1].m_nPiece, 1);
    EXPECT_EQ(onGrid.m_Grid.Length(onGrid.m_Placed[1].m_At.m_nX), -2.5);
    EXPECT_EQ(onGrid.m_Grid.Length(onGrid.m_Placed[1].m_At.m_nY), 0.0);
    EXPECT_EQ(onGrid.m_Grid.Length(onGrid.m_nHeight), 227.0);
}

}  // namespace nestrix
