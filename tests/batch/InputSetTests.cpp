#include "batch/CInputReader.h"

#include <gmock/gmock.h>

#include "batch/PolygonInput.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CTemporaryFolder;
using support::SquareFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

SInputSet SetOf(const std::vector<std::string>& words, const SReadOptions& reading = {}) {
    return ReadInputs({words, reading});
}

}  // namespace

TEST(InputSet, HasTheOutlineOfAPolygonFileExactlyInItsOrder) {
    const CTemporaryFolder folder;
    const std::string clockwise = folder.Write("odd.pol", "3\n0.1,0\n-3,9.7\n1e-3,-4\n;0,0\n0,0");
    const SInputSet set = SetOf({clockwise});
    ASSERT_THAT(set.m_Pieces, SizeIs(1));
    EXPECT_THAT(set.m_Pieces[0].m_Shape.m_Outline,
                ElementsAre(SPoint{0.1F, 0.0}, SPoint{-3.0, 9.7F}, SPoint{1e-3F, -4.0}));
    EXPECT_THAT(set.m_Pieces[0].m_Shape.m_Holes, IsEmpty());
}

TEST(InputSet, NamesThePieceOfAPolygonFileForItsFile) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("square.pol", SquareFile(10.0F));
    const SInputSet set = SetOf({path});
    EXPECT_EQ(set.m_Pieces.at(0).m_Name, "square");
    EXPECT_EQ(set.m_Drawn.at(0).m_Name, "square");
    EXPECT_EQ(set.m_Drawn.at(0).m_File, path);
    EXPECT_EQ(set.m_Drawn.at(0).m_nLine, 2);
}

TEST(InputSet, TakesAFileThatIsListedTwiceForCopiesOfOne) {
    const CTemporaryFolder folder;
    const std::string small = folder.Write("small.pol", SquareFile(10.0F));
    const std::string large = folder.Write("large.pol", SquareFile(20.0F));
    const SInputSet set = SetOf({small, large, small + ":2", folder.Path()});
    EXPECT_THAT(set.m_Files, ElementsAre(small, large));
    EXPECT_EQ(set.m_Pieces.at(0).m_nQuantity, 4);
    EXPECT_EQ(set.m_Pieces.at(1).m_nQuantity, 2);
    EXPECT_THAT(set.m_Order, ElementsAre(0, 1, 0, 0, 1, 0));
}

TEST(InputSet, ScalesEveryLength) {
    const CTemporaryFolder folder;
    SReadOptions reading;
    reading.m_Scale = 2.5;
    const SInputSet set = SetOf({folder.Write("a.pol", SquareFile(10.0F))}, reading);
    EXPECT_EQ(set.m_Pieces.at(0).m_Shape.m_Outline.at(2), (SPoint{25.0, 25.0}));
    EXPECT_EQ(EndOf(set.m_Drawn.at(0).m_Outline), (SPoint{0.0, 25.0}));
    EXPECT_EQ(PolygonOf(set.m_Sources.at(0)), support::MakeSquare(25.0F));
    EXPECT_EQ(set.m_Unit, std::nullopt);
}

TEST(InputSet, CountsInMillimetresOnceAUnitIsGiven) {
    const CTemporaryFolder folder;
    SReadOptions reading;
    reading.m_Unit = EUnit::INCH;
    const SInputSet set = SetOf({folder.Write("a.pol", SquareFile(10.0F))}, reading);
    EXPECT_EQ(set.m_Pieces.at(0).m_Shape.m_Outline.at(2), (SPoint{254.0, 254.0}));
    EXPECT_EQ(set.m_Unit, EUnit::MILLIMETRE);
}

TEST(InputSet, OfMoreThanAMillionPiecesIsRefused) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.pol", SquareFile(10.0F));
    std::vector<std::string> words(100, path + ":10000");
    EXPECT_FALSE(IsFaulty(SetOf(words)));
    words.push_back(path);
    EXPECT_TRUE(IsFaulty(SetOf(words)));
}

TEST(InputSummary, TellsWhatAFileHolds) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("a.pol", "4\n0,0\n20,0\n20,5.1\n0,5.1\n;20,5.1\n0,0\n");
    const SInputSet set = SetOf({path});
    EXPECT_EQ(InWords(set.m_Summaries.at(0), std::nullopt), path + ": 1 piece, 20 x 5.1, area 102");
    EXPECT_EQ(InWords(set.m_Summaries.at(0), EUnit::MILLIMETRE),
              path + ": 1 piece, 20 x 5.1 mm, area 102 mm2");
}

TEST(InputSummary, TellsWhatAFolderHoldsWithTheLargestPieceAndAllCopies) {
    const CTemporaryFolder folder;
    (void)folder.Write("a.pol", SquareFile(10.0F));
    (void)folder.Write("b.pol", SquareFile(20.0F));
    const SInputSet set = SetOf({folder.Path().native() + ":3"});
    EXPECT_EQ(InWords(set.m_Summaries.at(0), std::nullopt),
              folder.Path().native() + ":3: 2 files, 2 pieces (6 with copies), up to 20 x 20, area 500");
}

TEST(PolygonOfAPiece, IsThatOfItsFile) {
    const CTemporaryFolder folder;
    const SInputSet set = SetOf({folder.Write("a.pol", "3\n0,0\n0,9\n9,0\n;12,12\n-1,0")});
    const CPolygon polygon = PolygonOf(set.m_Sources.at(0));
    EXPECT_EQ(polygon.m_BoundingBoxMax, (mgVector3{12.0F, 12.0F, 0.0F}));
    EXPECT_EQ(polygon.PositionOf(1), (mgVector3{0.0F, 9.0F, 0.0F}));
}

TEST(PolygonOfAPiece, OfADrawingRunsCounterClockwiseInATightBox) {
    SInputPiece piece;
    piece.m_Piece.m_Shape.m_Outline = {{0, 0}, {0, 9}, {9, 0}};
    const CPolygon polygon = PolygonOf(piece);
    EXPECT_EQ(polygon, support::MakePolygon({{9, 0, 0}, {0, 9, 0}, {0, 0, 0}}));
}

TEST(PolygonOfAPiece, OfADrawingHasNothingOfItsCurvesRounding) {
    SInputPiece piece;
    piece.m_Piece.m_Shape.m_Outline = {{5.6e-17, 0}, {9, -1e-16}, {1e-3, 9}};
    EXPECT_EQ(PolygonOf(piece), support::MakePolygon({{0, 0, 0}, {9, 0, 0}, {1e-3F, 9, 0}}));
}

}  // namespace nestrix
