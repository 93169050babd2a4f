#include "batch/FreePieces.h"

#include <gmock/gmock.h>

#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CTemporaryFolder;
using support::SquareFile;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

SFreePieces PiecesOf(const std::vector<std::string>& paths, const SFreeOptions& options = {}) {
    const SPolygonInput input = ReadPolygonInput(paths, std::nullopt);
    EXPECT_THAT(input.m_Faults, IsEmpty());
    return FreePiecesOf(input, options);
}

}  // namespace

TEST(FreePiece, HasTheOutlineOfItsFileExactlyInItsOrder) {
    const CTemporaryFolder folder;
    const std::string clockwise = folder.Write("odd.pol", "3\n0.1,0\n-3,9.7\n1e-3,-4\n;0,0\n0,0");
    const SFreePieces pieces = PiecesOf({clockwise});
    ASSERT_THAT(pieces.m_Pieces, SizeIs(1));
    EXPECT_THAT(pieces.m_Pieces[0].m_Shape.m_Outline,
                ElementsAre(SPoint{0.1F, 0.0}, SPoint{-3.0, 9.7F}, SPoint{1e-3F, -4.0}));
    EXPECT_THAT(pieces.m_Pieces[0].m_Shape.m_Holes, IsEmpty());
}

TEST(FreePiece, IsNamedForItsFile) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("square.pol", SquareFile(10.0F));
    const SFreePieces pieces = PiecesOf({path});
    EXPECT_EQ(pieces.m_Pieces.at(0).m_Name, "square.pol");
    EXPECT_THAT(pieces.m_Files, ElementsAre(path));
}

TEST(FreePiece, MayBeTurnedAndMirroredAsTheOptionsSay) {
    const CTemporaryFolder folder;
    SFreeOptions options;
    options.m_Turns = {false, {0.0, 180.0}};
    options.m_bMirror = true;
    const SFreePieces pieces = PiecesOf({folder.Write("a.pol", SquareFile(10.0F))}, options);
    EXPECT_THAT(pieces.m_Pieces.at(0).m_Turns.m_Degrees, ElementsAre(0.0, 180.0));
    EXPECT_TRUE(pieces.m_Pieces.at(0).m_bMirrored);
}

TEST(FreePieces, OfAFileThatIsListedTwiceAreCopiesOfOne) {
    const CTemporaryFolder folder;
    const std::string small = folder.Write("small.pol", SquareFile(10.0F));
    const std::string large = folder.Write("large.pol", SquareFile(20.0F));
    const SFreePieces pieces = PiecesOf({small, large, small, folder.Path()});
    EXPECT_THAT(pieces.m_Files, ElementsAre(small, large));
    EXPECT_EQ(pieces.m_Pieces.at(0).m_nQuantity, 3);
    EXPECT_EQ(pieces.m_Pieces.at(1).m_nQuantity, 2);
}

TEST(FreePieces, OfAFileThatWasWrittenAnewInBetweenAreTwo) {
    const CTemporaryFolder folder;
    const std::vector<std::string> path{folder.Write("a.pol", SquareFile(10.0F))};
    SPolygonInput input = ReadPolygonInput(path, std::nullopt);
    (void)folder.Write("a.pol", SquareFile(20.0F));
    const SPolygonInput later = ReadPolygonInput(path, std::nullopt);
    input.m_Files.push_back(later.m_Files[0]);
    input.m_Polygons.push_back(later.m_Polygons[0]);
    EXPECT_THAT(FreePiecesOf(input, {}).m_Pieces, SizeIs(2));
}

TEST(PolygonsToBePackedFreely, AreNotOddForTheirBoxOrWinding) {
    const CTemporaryFolder folder;
    const std::vector<std::string> paths{
        folder.Write("odd.pol", "3\n0,0\n0,9\n900,0\n;1,1\n0,0"),
        folder.Write("two.pol", SquareFile(10.0F) + "\n" + SquareFile(9.0F))};
    EXPECT_THAT(ReadPolygonInput(paths, std::nullopt).m_Warnings,
                ElementsAre(testing::HasSubstr("two.pol:9: what follows the bounding box is left out")));
}

}  // namespace nestrix
