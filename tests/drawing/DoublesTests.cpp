#include <gmock/gmock.h>

#include <numbers>

#include "drawing/SDrawnPiece.h"
#include "tests/drawing/DrawnShapes.h"

namespace nestrix {

namespace {

using std::numbers::pi;
using support::DrawnCircle;
using support::DrawnLine;
using support::DrawnRectangle;
using support::Found;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

TEST(FoundPieces, AreOneWhereTheyAreDrawnTwice) {
    const SPath plate = DrawnRectangle(0, 0, 5, 5);
    const SPath elsewhere{{5, 5}, {SLineTo{{5, 0}}, SLineTo{{0, 0}}, SLineTo{{0, 5}}}, true};
    const SPath disc = DrawnCircle({20, 0}, 3);
    const SPath halves{
        {17, 0},
        {SArcTo{{20, 0}, {3, 0}, {0, 3}, -pi, pi, {23, 0}}, SArcTo{{20, 0}, {3, 0}, {0, 3}, 0, pi, {17, 0}}},
        true};
    for (const std::vector<SPath>& twice : {std::vector{plate, plate},
                                            {plate, Reversed(plate)},
                                            {plate, elsewhere},
                                            {disc, halves},
                                            {DrawnLine({0, 0}, {5, 0}), DrawnLine({5, 0}, {5, 5}), plate,
                                             DrawnLine({5, 5}, {0, 5}), DrawnLine({0, 0}, {0, 5})}}) {
        const SDrawnPieces found = Found(twice);
        ASSERT_THAT(found.m_Pieces, SizeIs(1));
        EXPECT_THAT(found.m_Pieces[0].m_Holes, IsEmpty());
        ASSERT_THAT(found.m_Findings, SizeIs(1));
        EXPECT_EQ(found.m_Findings[0].m_eSeverity, SFinding::ESeverity::ODD);
        EXPECT_THAT(found.m_Findings[0].m_Message, HasSubstr("is drawn twice"));
    }
}

TEST(FoundPieces, AreMadeOfLooseLinesOfWhichSomeAreDrawnTwice) {
    const SDrawnPieces found =
        Found({DrawnLine({0, 0}, {5, 0}), DrawnLine({5, 0}, {0, 0}), DrawnLine({5, 0}, {5, 5}),
               DrawnLine({5, 5}, {0, 0}), DrawnLine({5, 5}, {0, 0})});
    ASSERT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Marks, IsEmpty());
    ASSERT_THAT(found.m_Findings, SizeIs(2));
    EXPECT_EQ(found.m_Findings[0].m_nLine, 2);
    EXPECT_EQ(found.m_Findings[1].m_nLine, 5);
}

TEST(FoundPieces, AreTwoWhereOnlyTheirExtentIsTheSame) {
    const SPath up{{0, 0}, {SLineTo{{6, 0}}, SLineTo{{3, 6}}}, true};
    const SPath down{{0, 6}, {SLineTo{{6, 6}}, SLineTo{{3, 0}}}, true};
    EXPECT_THAT(Found({up, down}).m_Pieces, SizeIs(2));
}

}  // namespace

}  // namespace nestrix
