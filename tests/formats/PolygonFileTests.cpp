#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "base/CNumericLocale.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/Pieces.h"

namespace nestrix {

namespace {

using support::CTemporaryFolder;
using support::PrintedBy;

constexpr const char* SQUARE_FILE =
    "4\n"
    "0,0\n"
    "20,0\n"
    "20,20\n"
    "0,20\n"
    ";20,20\n"
    "0,0\n";

class PolygonFile : public testing::Test {
protected:
    /// Reads a file with the given text into a fresh polygon.
    CPolygon Read(std::string_view text) {
        CPolygon polygon;
        EXPECT_TRUE(polygon.ReadPolygon(m_Folder.Write("piece.pol", text).c_str()));
        return polygon;
    }

    CTemporaryFolder m_Folder;
};

std::vector<mgVector3> Positions(const CPolygon& polygon) {
    std::vector<mgVector3> positions;
    for (const CPoint& point : polygon.m_Points) {
        positions.push_back(point.m_Position);
    }
    return positions;
}

TEST_F(PolygonFile, OfASquareIsReadAndAnalysed) {
    const CPolygon square = Read(SQUARE_FILE);
    EXPECT_EQ(square, support::MakeSquare(20));
    EXPECT_EQ(square.m_Points.size(), 4U);
    EXPECT_EQ(square.m_Lines.size(), 4U);
    EXPECT_EQ(square.m_BoundingBoxMin, (mgVector3{0, 0, 0}));
    EXPECT_EQ(square.m_BoundingBoxMax, (mgVector3{20, 20, 0}));
    EXPECT_EQ(square.m_ReferencePoint, (mgVector3{0, 0, 0}));
}

TEST_F(PolygonFile, OnOneLineIsReadTheSame) {
    EXPECT_EQ(Read("4\n0,0 20,0 20,20 0,20 ;20,20 0,0"), support::MakeSquare(20));
    EXPECT_EQ(Read("4 0,0 20,0 20,20 0,20;20,20 0,0"), support::MakeSquare(20));
}

TEST_F(PolygonFile, MayHaveWhiteSpaceBeforeEveryNumberAndTheSemicolon) {
    EXPECT_EQ(Read("\n\t 4\r\n 0,\t0\n\n20, 0 20,\n20\t0,20  \n \n ; 20,\t20 \n\n 0, 0"),
              support::MakeSquare(20));
}

TEST_F(PolygonFile, MayHaveLineEndsOfAnotherSystem) {
    EXPECT_EQ(Read("4\r\n0,0\r\n20,0\r\n20,20\r\n0,20\r\n;20,20\r\n0,0\r\n"), support::MakeSquare(20));
}

TEST_F(PolygonFile, IsReadUpToTheBoxAndNoFurther) {
    EXPECT_EQ(Read(std::string(SQUARE_FILE) + "\nanything, 99,99 ;1,1"), support::MakeSquare(20));
}

TEST_F(PolygonFile, GivesTheUpperRightCornerFirst) {
    const CPolygon polygon = Read("0 ;30,40 -1,-2");
    EXPECT_EQ(polygon.m_BoundingBoxMax, (mgVector3{30, 40, 0}));
    EXPECT_EQ(polygon.m_BoundingBoxMin, (mgVector3{-1, -2, 0}));
}

TEST_F(PolygonFile, MayHaveSignsFractionsAndExponents) {
    const CPolygon polygon = Read("3 -1.5,+2 1e2,.25 0x10,-1E-1 ;1e2,2 -1.5,-0.1");
    EXPECT_THAT(Positions(polygon), testing::ElementsAre(mgVector3{-1.5F, 2, 0}, mgVector3{100, 0.25F, 0},
                                                         mgVector3{16, -0.1F, 0}));
}

TEST_F(PolygonFile, WithABlankBeforeACommaIsMisread) {
    const CPolygon polygon = Read("2 5 ,6 7,8 ;1,2 3,4");
    EXPECT_THAT(Positions(polygon), testing::ElementsAre(mgVector3{5, 0, 0}, mgVector3{0, 0, 0}));
    EXPECT_EQ(polygon.m_BoundingBoxMax, mgVector3());
    EXPECT_EQ(polygon.m_BoundingBoxMin, mgVector3());
}

TEST_F(PolygonFile, WithACountOfZeroGivesNothingButTheBox) {
    const CPolygon polygon = Read("0\n;20,30\n1,2\n");
    CPolygon expected;
    expected.m_BoundingBoxMax = {20, 30, 0};
    expected.m_BoundingBoxMin = {1, 2, 0};
    EXPECT_EQ(polygon, expected);
}

TEST_F(PolygonFile, WithANegativeCountGivesNothingButTheBox) {
    EXPECT_EQ(Read("-3\n;20,30\n1,2\n"), Read("0\n;20,30\n1,2\n"));
}

TEST_F(PolygonFile, WithTooSmallACountLosesItsBoxWithTheSuperfluousVertices) {
    const CPolygon polygon = Read("3\n0,0\n20,0\n20,20\n0,20\n;20,20\n0,0\n");
    EXPECT_EQ(polygon.m_Points.size(), 3U);
    EXPECT_EQ(polygon.m_BoundingBoxMax, mgVector3());
}

TEST_F(PolygonFile, WithTooLargeACountFillsUpWithZeros) {
    const CPolygon polygon = Read("6\n5,5\n20,5\n20,20\n5,20\n;20,20\n5,5\n");
    ASSERT_EQ(polygon.m_Points.size(), 6U);
    EXPECT_EQ(polygon.PositionOf(3), (mgVector3{5, 20, 0}));
    EXPECT_EQ(polygon.PositionOf(4), mgVector3());
    EXPECT_EQ(polygon.PositionOf(5), mgVector3());
}

TEST_F(PolygonFile, WithoutASemicolonHasAZeroBox) {
    const CPolygon polygon = Read("3 0,0 20,0 20,20 20,20 0,0");
    EXPECT_EQ(polygon.m_Points.size(), 3U);
    EXPECT_EQ(polygon.m_BoundingBoxMax, mgVector3());
}

TEST_F(PolygonFile, KeepsTheCornerThatItCanRead) {
    const CPolygon polygon = Read("0 ;20,30 oops");
    EXPECT_EQ(polygon.m_BoundingBoxMax, (mgVector3{20, 30, 0}));
    EXPECT_EQ(polygon.m_BoundingBoxMin, mgVector3());
}

TEST_F(PolygonFile, MayGiveABoxThatHasNothingToDoWithTheVertices) {
    EXPECT_EQ(Read("3 0,0 20,0 20,20 ;-5,-6 700,800").m_BoundingBoxMin, (mgVector3{700, 800, 0}));
}

TEST_F(PolygonFile, IsAppendedToAPolygonThatHoldsVertices) {
    CPolygon polygon;
    polygon.m_Points.resize(1);
    polygon.m_Points[0].m_Position = {-5, -5, 0};
    EXPECT_TRUE(polygon.ReadPolygon(m_Folder.Write("piece.pol", SQUARE_FILE).c_str()));
    ASSERT_EQ(polygon.m_Points.size(), 5U);
    EXPECT_EQ(polygon.PositionOf(0), (mgVector3{-5, -5, 0}));
    EXPECT_EQ(polygon.PositionOf(1), (mgVector3{0, 0, 0}));
    EXPECT_EQ(polygon.m_Lines.size(), 5U);
}

TEST_F(PolygonFile, LeavesTheReferencePointAlone) {
    CPolygon polygon;
    polygon.m_ReferencePoint = {1, 2, 3};
    EXPECT_TRUE(polygon.ReadPolygon(m_Folder.Write("piece.pol", SQUARE_FILE).c_str()));
    EXPECT_EQ(polygon.m_ReferencePoint, (mgVector3{1, 2, 3}));
}

TEST_F(PolygonFile, PrintsNothingWhenItCanBeRead) {
    const std::string path = m_Folder.Write("piece.pol", SQUARE_FILE);
    CPolygon polygon;
    EXPECT_EQ(PrintedBy([&] { (void)polygon.ReadPolygon(path.c_str()); }), "");
}

TEST_F(PolygonFile, ThatDoesNotExistIsNamedAndLeavesThePolygonUntouched) {
    const std::string path = m_Folder.PathOf("missing 100%s.pol");
    CPolygon polygon = support::MakeSquare(20);
    bool bRead = true;
    EXPECT_EQ(PrintedBy([&] { bRead = polygon.ReadPolygon(path.c_str()); }),
              "Couldn't read polyon file " + path + "\n");
    EXPECT_FALSE(bRead);
    EXPECT_EQ(polygon, support::MakeSquare(20));
}

TEST_F(PolygonFile, ReadsBackWhatWasWritten) {
    support::CSeededRandom random(17);
    for (const support::EPiece piece :
         {support::EPiece::Star, support::EPiece::NegativeLocal, support::EPiece::Huge,
          support::EPiece::LooseBox, support::EPiece::Degenerate}) {
        for (int i = 0; i < 20; ++i) {
            const CPolygon polygon = support::MakePiece(random, piece);
            ASSERT_EQ(Read(support::PolygonFileText(polygon)), polygon);
        }
    }
}

TEST_F(PolygonFile, IsReadTheSameUnderADecimalComma) {
    const support::CCommaLocale locale;
    ASSERT_EQ(std::strtof("12,5", nullptr), 12.5F) << "the locale has no decimal comma";
    const CPolygon polygon = Read("3 12.5,3 0.25,7.75 -1.5,2 ;12.5,7.75 -1.5,2");
    EXPECT_THAT(Positions(polygon), testing::ElementsAre(mgVector3{12.5F, 3, 0}, mgVector3{0.25F, 7.75F, 0},
                                                         mgVector3{-1.5F, 2, 0}));
    EXPECT_EQ(polygon.m_BoundingBoxMax, (mgVector3{12.5F, 7.75F, 0}));
}

TEST_F(PolygonFile, LeavesTheProcessItsLocale) {
    const support::CCommaLocale locale;
    (void)Read(SQUARE_FILE);
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 0.5);
    EXPECT_STREQ(text, "0,5");
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), support::CCommaLocale::Name());
}

TEST(NumericLocale, HoldsForItsOwnLifetimeOnly) {
    const support::CCommaLocale locale;
    EXPECT_EQ(std::strtof("1,5", nullptr), 1.5F);
    {
        const CNumericLocale outer;
        EXPECT_EQ(std::strtof("1.5", nullptr), 1.5F);
        {
            const CNumericLocale inner;
            EXPECT_EQ(std::strtof("1.5", nullptr), 1.5F);
        }
        EXPECT_EQ(std::strtof("1.5", nullptr), 1.5F);
    }
    EXPECT_EQ(std::strtof("1,5", nullptr), 1.5F);
}

}  // namespace

}  // namespace nestrix
