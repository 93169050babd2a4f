#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/formats/dxf/DxfTexts.h"

namespace nestrix {

namespace {

using support::DxfFile;
using support::DxfGroups;
using support::FindingsOf;
using support::PointsOn;
using support::ReadEntities;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

MATCHER_P2(IsAt, x, y, "") {
    return std::abs(arg.m_X - x) <= 1e-12 && std::abs(arg.m_Y - y) <= 1e-12;
}

/// A block with a line from its base point one to the right and two up.
const std::string ARROW = "0 BLOCK 2 ARROW 10 5 20 5 70 0 0 LINE 8 0 10 5 20 5 11 6 21 7 0 ENDBLK ";

/// The ends of all lines that the inserts draw of it.
std::vector<SPoint> EndsOf(const std::string& insert) {
    const SDrawing drawing = ReadEntities(insert, ARROW);
    EXPECT_THAT(FindingsOf(drawing), IsEmpty());
    std::vector<SPoint> ends;
    for (const SDrawnPath& drawn : drawing.m_Paths) {
        ends.push_back(drawn.m_Path.m_Start);
        ends.push_back(EndOf(drawn.m_Path));
    }
    return ends;
}

TEST(Insert, PutsTheBasePointAtItsPlace) {
    EXPECT_THAT(EndsOf("0 INSERT 2 ARROW 10 100 20 200"), ElementsAre(IsAt(100, 200), IsAt(101, 202)));
}

TEST(Insert, FindsItsBlockInUpperAndLowerCase) {
    EXPECT_THAT(EndsOf("0 INSERT 2 Arrow 10 0 20 0"), ElementsAre(IsAt(0, 0), IsAt(1, 2)));
}

TEST(Insert, ScalesBeforeItTurns) {
    EXPECT_THAT(EndsOf("0 INSERT 2 ARROW 10 0 20 0 41 3 42 0.5 50 90"), ElementsAre(IsAt(0, 0), IsAt(-1, 3)));
}

TEST(Insert, MirrorsWithANegativeScale) {
    EXPECT_THAT(EndsOf("0 INSERT 2 ARROW 10 10 20 0 41 -1"), ElementsAre(IsAt(10, 0), IsAt(9, 2)));
    EXPECT_THAT(EndsOf("0 INSERT 2 ARROW 10 10 20 0 42 -1"), ElementsAre(IsAt(10, 0), IsAt(11, -2)));
}

TEST(Insert, ThatLiesUpsideDownIsSeenFromAbove) {
    EXPECT_THAT(EndsOf("0 INSERT 2 ARROW 10 10 20 0 230 -1"), ElementsAre(IsAt(-10, 0), IsAt(-11, 2)));
    EXPECT_THAT(EndsOf("0 INSERT 2 ARROW 10 10 20 0 50 90 230 -1"), ElementsAre(IsAt(-10, 0), IsAt(-8, 1)));
}

TEST(Insert, RepeatsInRowsAndColumnsThatTurnWithItButAreNotScaled) {
    EXPECT_THAT(EndsOf("0 INSERT 2 ARROW 10 0 20 0 50 90 70 2 71 2 44 10 45 20 41 2"),
                ElementsAre(IsAt(0, 0), IsAt(-2, 2), IsAt(0, 10), IsAt(-2, 12), IsAt(-20, 0), IsAt(-22, 2),
                            IsAt(-20, 10), IsAt(-22, 12)));
}

TEST(Insert, InABlockIsDrawnThroughBothMaps) {
    const SDrawing drawing =
        ReadEntities("0 INSERT 2 OUTER 10 30 20 0 41 2 42 1",
                     ARROW + "0 BLOCK 2 OUTER 10 0 20 0 0 INSERT 2 ARROW 10 1 20 0 50 90 0 ENDBLK");
    ASSERT_EQ(drawing.m_Paths.size(), 1U);
    EXPECT_THAT(PointsOn(drawing.m_Paths[0].m_Path, 1), ElementsAre(IsAt(32, 0), IsAt(28, 1)));
}

TEST(Insert, ScaledUnevenlyMakesEllipsesOfCirclesExactly) {
    const SDrawing drawing = ReadEntities("0 INSERT 2 HOLE 10 0 20 0 41 3 50 90",
                                          "0 BLOCK 2 HOLE 10 0 20 0 0 CIRCLE 10 0 20 0 40 2 0 ENDBLK");
    ASSERT_EQ(drawing.m_Paths.size(), 1U);
    for (const SPoint& point : PointsOn(drawing.m_Paths[0].m_Path, 24)) {
        EXPECT_NEAR(std::hypot(point.m_X / 2.0, point.m_Y / 6.0), 1.0, 1e-12);
    }
}

TEST(Block, NamesWhatItDrawsUnlessItIsAnonymous) {
    const SDrawing drawing =
        ReadEntities("0 INSERT 2 Part 10 0 20 0 0 LINE 10 0 20 0 11 1 21 1",
                     "0 BLOCK 2 Part 10 0 20 0 0 CIRCLE 10 0 20 0 40 1 0 INSERT 2 *U1 10 0 20 0 0 ENDBLK "
                     "0 BLOCK 2 *U1 10 0 20 0 0 CIRCLE 10 0 20 0 40 2 0 ENDBLK");
    ASSERT_EQ(drawing.m_Paths.size(), 3U);
    EXPECT_EQ(drawing.m_Paths[0].m_Name, "Part");
    EXPECT_EQ(drawing.m_Paths[1].m_Name, "Part");
    EXPECT_EQ(drawing.m_Paths[2].m_Name, "");
}

TEST(Block, DrawsWhatIsOnLayerZeroOnTheLayerOfItsInsert) {
    const SDrawing drawing = ReadEntities(
        "0 INSERT 2 A 8 GIVEN 10 0 20 0 0 INSERT 2 A 10 0 20 0",
        "0 BLOCK 2 A 10 0 20 0 0 CIRCLE 8 0 10 0 20 0 40 1 0 CIRCLE 8 OWN 10 0 20 0 40 2 0 ENDBLK");
    std::vector<std::string> layers;
    for (const SDrawnPath& drawn : drawing.m_Paths) {
        layers.push_back(drawn.m_Layer);
    }
    EXPECT_THAT(layers, ElementsAre("GIVEN", "OWN", "0", "OWN"));
}

TEST(Block, ThatIsNotThereIsAFaultOnceOnly) {
    const SDrawing drawing =
        ReadEntities("0 INSERT 2 A 10 0 20 0 0 INSERT 2 A 10 9 20 0 0 CIRCLE 10 0 20 0 40 1");
    EXPECT_EQ(drawing.m_Paths.size(), 1U);
    ASSERT_THAT(FindingsOf(drawing), ElementsAre("18: the block \"A\" is not in the file"));
    EXPECT_EQ(drawing.m_Findings[0].m_eSeverity, SFinding::ESeverity::FAULT);
}

TEST(Block, OfAnotherFileIsAFault) {
    EXPECT_THAT(
        FindingsOf(ReadEntities("0 INSERT 2 A 10 0 20 0", "0 BLOCK 2 A 70 4 10 0 20 0 1 a.dxf 0 ENDBLK")),
        ElementsAre(HasSubstr("the block \"A\" is in another file")));
}

TEST(Block, ThatIsThereTwiceIsTakenOnce) {
    const SDrawing drawing = ReadEntities("0 INSERT 2 A 10 0 20 0",
                                          "0 BLOCK 2 A 10 0 20 0 0 CIRCLE 10 0 20 0 40 1 0 ENDBLK "
                                          "0 BLOCK 2 a 10 0 20 0 0 CIRCLE 10 0 20 0 40 2 0 ENDBLK");
    ASSERT_EQ(drawing.m_Paths.size(), 1U);
    EXPECT_EQ(drawing.m_Paths[0].m_Path.m_Start.m_X, 1.0);
    EXPECT_THAT(FindingsOf(drawing), ElementsAre(HasSubstr("the block a is there twice")));
}

TEST(Block, ThatIsInsertedIntoItselfIsAFaultAndDrawsTheRest) {
    for (const char* pBlocks :
         {"0 BLOCK 2 A 10 0 20 0 0 CIRCLE 10 0 20 0 40 1 0 INSERT 2 A 10 0 20 0 0 ENDBLK",
          "0 BLOCK 2 A 10 0 20 0 0 INSERT 2 B 10 0 20 0 0 CIRCLE 10 0 20 0 40 1 0 ENDBLK "
          "0 BLOCK 2 B 10 0 20 0 0 INSERT 2 A 10 0 20 0 0 ENDBLK"}) {
        const SDrawing drawing = ReadEntities("0 INSERT 2 A 10 0 20 0", pBlocks);
        EXPECT_EQ(drawing.m_Paths.size(), 1U);
        EXPECT_THAT(FindingsOf(drawing), ElementsAre(HasSubstr("the block \"A\" is inserted into itself")));
    }
}

/// Blocks that each insert the next one so often, the last of which holds `content`.
std::string Chain(int nBlocks, int nTimes, const std::string& content) {
    std::string blocks;
    for (int i = 0; i < nBlocks; ++i) {
        blocks += "0 BLOCK 2 B" + std::to_string(i) + " 10 0 20 0 ";
        for (int nTime = 0; nTime < nTimes && i + 1 < nBlocks; ++nTime) {
            blocks += "0 INSERT 2 B" + std::to_string(i + 1) + " 10 0 20 0 ";
        }
        blocks += (i + 1 == nBlocks ? content : "") + " 0 ENDBLK ";
    }
    return blocks;
}

constexpr const char* TOO_MUCH = "0: its blocks draw too much: more than any drawing does";

TEST(Bomb, OfBlocksInBlocksEndsWithAFault) {
    for (const char* pContent : {"0 CIRCLE 10 0 20 0 40 1", "", "0 HATCH 8 0", "0 TEXT 10 0 20 0 40 1 1 x"}) {
        const SDrawing drawing = ReadDxfText(DxfFile("0 INSERT 2 B0 10 0 20 0", Chain(40, 3, pContent)),
                                             "bomb.dxf", {10'000, 10'000});
        EXPECT_THAT(FindingsOf(drawing), testing::Contains(TOO_MUCH)) << pContent;
        EXPECT_LE(drawing.m_Paths.size(), 10'000U);
    }
}

TEST(Bomb, OfRowsAndColumnsEndsWithAFault) {
    const SDrawing drawing =
        ReadDxfText(DxfFile("0 INSERT 2 ARROW 10 0 20 0 70 2147483647 71 2147483647 44 1 45 1", ARROW),
                    "bomb.dxf", {10'000, 10'000});
    EXPECT_THAT(FindingsOf(drawing), ElementsAre(TOO_MUCH));
}

TEST(Bomb, OfLongLinesEndsWithAFault) {
    std::string vertices;
    for (int i = 0; i < 1000; ++i) {
        vertices += " 10 " + std::to_string(i) + " 20 0";
    }
    const SDrawing drawing =
        ReadDxfText(DxfFile("0 INSERT 2 A 10 0 20 0 70 1000 44 1",
                            "0 BLOCK 2 A 10 0 20 0 0 LWPOLYLINE" + vertices + " 0 ENDBLK"),
                    "bomb.dxf", {10'000, 10'000});
    EXPECT_THAT(FindingsOf(drawing), ElementsAre(TOO_MUCH));
    EXPECT_LE(drawing.m_Paths.size(), 10U);
}

TEST(Bomb, ByTheUsualLimitsEndsSoon) {
    const SDrawing drawing =
        ReadEntities("0 INSERT 2 B0 10 0 20 0 70 30000 71 30000 44 1 45 1", Chain(60, 2, "0 LINE 11 1 21 1"));
    EXPECT_THAT(FindingsOf(drawing), ElementsAre(TOO_MUCH));
}

TEST(Chain, OfAThousandBlocksIsTooDeep) {
    const SDrawing drawing = ReadEntities("0 INSERT 2 B0 10 0 20 0", Chain(1000, 1, "0 LINE 11 1 21 1"));
    EXPECT_THAT(FindingsOf(drawing), ElementsAre(HasSubstr("is inserted too deep in other blocks")));
    EXPECT_EQ(ReadEntities("0 INSERT 2 B0 10 0 20 0", Chain(100, 1, "0 LINE 11 1 21 1")).m_Paths.size(), 1U);
}

SDrawing ReadWithLayers(const std::string& layers, const std::string& entities, const std::string& blocks) {
    return ReadDxfText(
        DxfGroups("0 SECTION 2 TABLES 0 TABLE 2 LAYER " + layers + " 0 ENDTAB 0 ENDSEC 0 SECTION 2 BLOCKS " +
                  blocks + " 0 ENDSEC 0 SECTION 2 ENTITIES " + entities + " 0 ENDSEC 0 EOF"),
        "test.dxf");
}

TEST(Layer, ThatIsFrozenOrOffHidesWhatIsOnIt) {
    const std::string layers =
        "0 LAYER 2 COLD 70 1 62 7 0 LAYER 2 DARK 70 0 62 -7 0 LAYER 2 LOCKED 70 4 62 7";
    for (const char* pLayer : {"COLD", "dark"}) {
        const SDrawing drawing =
            ReadWithLayers(layers, "0 CIRCLE 8 " + std::string(pLayer) + " 10 0 20 0 40 1", "");
        EXPECT_THAT(drawing.m_Paths, IsEmpty());
        ASSERT_THAT(FindingsOf(drawing), ElementsAre(HasSubstr("is left out: it is")));
        EXPECT_EQ(drawing.m_Findings[0].m_eSeverity, SFinding::ESeverity::NOTE);
    }
    EXPECT_EQ(ReadWithLayers(layers, "0 CIRCLE 8 LOCKED 10 0 20 0 40 1", "").m_Paths.size(), 1U);
}

TEST(Layer, OfAnInsertHidesAllOfItWhenFrozenButOnlyItsOwnWhenOff) {
    const std::string block =
        "0 BLOCK 2 A 10 0 20 0 0 CIRCLE 8 0 10 0 20 0 40 1 0 CIRCLE 8 OTHER 10 0 20 0 40 2 0 ENDBLK";
    const auto radii = [&block](const char* pLayers) {
        std::vector<double> found;
        for (const SDrawnPath& drawn : ReadWithLayers(pLayers, "0 INSERT 8 L 2 A 10 0 20 0", block).m_Paths) {
            found.push_back(drawn.m_Path.m_Start.m_X);
        }
        return found;
    };
    EXPECT_THAT(radii("0 LAYER 2 L 70 0 62 7"), ElementsAre(1.0, 2.0));
    EXPECT_THAT(radii("0 LAYER 2 L 70 1 62 7"), IsEmpty());
    EXPECT_THAT(radii("0 LAYER 2 L 70 0 62 -7"), ElementsAre(2.0));
}

}  // namespace

}  // namespace nestrix
