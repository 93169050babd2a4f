#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "formats/dxf/DxfText.h"
#include "tests/formats/dxf/DxfTexts.h"

namespace nestrix {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

SDrawnText OnlyText(const std::string& entity) {
    const SDrawing drawing = support::ReadEntities(entity);
    EXPECT_THAT(support::FindingsOf(drawing), IsEmpty());
    EXPECT_EQ(drawing.m_Texts.size(), 1U);
    return drawing.m_Texts.empty() ? SDrawnText() : drawing.m_Texts[0];
}

TEST(Text, BeginsWhereItIsPut) {
    const SDrawnText text = OnlyText("0 TEXT 8 NOTES 10 1 20 2 40 5 1 words 50 30");
    EXPECT_EQ(text.m_Text, "words");
    EXPECT_EQ(text.m_At, (SPoint{1, 2}));
    EXPECT_EQ(text.m_Height, 5.0);
    EXPECT_NEAR(text.m_Degrees, 30.0, 1e-12);
    EXPECT_FALSE(text.m_bMirrored);
    EXPECT_EQ(text.m_Layer, "NOTES");
    EXPECT_EQ(text.m_nLine, 18);
}

TEST(Text, InTheMiddleOfAPointBeginsLeftOfItAndBelow) {
    const SDrawnText text = OnlyText("0 TEXT 10 0 20 0 40 4 1 ABCD 72 1 11 50 21 50 73 2");
    EXPECT_NEAR(text.m_At.m_X, 50.0 - 6.0, 1e-12);
    EXPECT_NEAR(text.m_At.m_Y, 48.0, 1e-12);
}

TEST(Text, ToTheRightEndsAtItsPoint) {
    EXPECT_NEAR(OnlyText("0 TEXT 10 0 20 0 40 4 1 ABCD 72 2 11 50 21 50").m_At.m_X, 38.0, 1e-12);
    EXPECT_NEAR(OnlyText("0 TEXT 10 0 20 0 40 4 1 ABCD 50 90 72 2 11 50 21 50").m_At.m_Y, 38.0, 1e-12);
}

TEST(Text, MayBeMirroredOrUpsideDown) {
    EXPECT_TRUE(OnlyText("0 TEXT 10 0 20 0 40 4 1 A 71 2").m_bMirrored);
    const SDrawnText text = OnlyText("0 TEXT 10 0 20 0 40 4 1 A 71 4");
    EXPECT_TRUE(text.m_bMirrored);
    EXPECT_NEAR(std::abs(text.m_Degrees), 180.0, 1e-12);
    EXPECT_TRUE(OnlyText("0 TEXT 10 0 20 0 40 4 1 A 230 -1").m_bMirrored);
}

TEST(Text, OfBlanksIsNone) {
    EXPECT_THAT(support::ReadEntities("0 TEXT 10 0 20 0 40 4").m_Texts, IsEmpty());
}

TEST(Attribute, OfAnInsertIsAText) {
    const SDrawnText text = OnlyText("0 ATTRIB 10 1 20 2 40 5 1 M8 2 THREAD 70 0 0 SEQEND");
    EXPECT_EQ(text.m_Text, "M8");
    EXPECT_EQ(text.m_At, (SPoint{1, 2}));
}

TEST(LongText, HasALineForEachOfItsOwn) {
    const SDrawing drawing = support::ReadEntities("0 MTEXT 10 10 20 20 40 3 71 1 1 first\\Psecond 50 90");
    ASSERT_EQ(drawing.m_Texts.size(), 2U);
    EXPECT_EQ(drawing.m_Texts[0].m_Text, "first");
    EXPECT_NEAR(drawing.m_Texts[0].m_At.m_X, 13.0, 1e-12);
    EXPECT_NEAR(drawing.m_Texts[0].m_At.m_Y, 20.0, 1e-12);
    EXPECT_NEAR(drawing.m_Texts[0].m_Degrees, 90.0, 1e-12);
    EXPECT_EQ(drawing.m_Texts[1].m_Text, "second");
    EXPECT_NEAR(drawing.m_Texts[1].m_At.m_X, 18.0, 1e-12);
}

TEST(LongText, InThreePartsIsOne) {
    EXPECT_EQ(OnlyText("0 MTEXT 10 0 20 0 40 3 71 7 3 one, 3 two, 1 three").m_Text, "one,two,three");
}

TEST(LongText, IsNotItsOwnRepetition) {
    const SDrawnText text =
        OnlyText("0 MTEXT 10 1 20 2 40 3 71 7 1 words 101 Embedded_Object 10 8 20 9 40 99 1 others");
    EXPECT_EQ(text.m_Text, "words");
    EXPECT_EQ(text.m_Height, 3.0);
}

TEST(Decoding, KnowsTheSignsOfDrawings) {
    EXPECT_EQ(DecodedText("%%c12 %%p0.1 45%%d 100%%% %%uunder%%u %%065"), "⌀12 ±0.1 45° 100% under A");
    EXPECT_EQ(DecodedText("50% 5%%x"), "50% 5x");
    EXPECT_EQ(DecodedText("end%%"), "end");
}

TEST(Decoding, TakesEscapedCharactersAndThoseOfAnyCodePage) {
    EXPECT_EQ(DecodedText("Gr\\U+00F6\\U+00DFe"), "Größe");
    EXPECT_EQ(DecodedText("\\U+D83D\\U+DE00"), "😀");
    EXPECT_EQ(DecodedText("\\U+D83D!"), "\uFFFD!");
    EXPECT_EQ(DecodedText("\\U+00"), "\\U+00");
    EXPECT_EQ(DecodedText("Größe"), "Größe");
    EXPECT_EQ(DecodedText("Gr\xF6\xDF"
                          "e \x80"),
              "Größe €");
    EXPECT_EQ(DecodedText("\xC0\xAF\xED\xA0\x80"), "À¯í\u00A0€") << "no UTF-8";
}

TEST(Decoding, DropsWhatWouldMoveACursor) {
    EXPECT_EQ(DecodedName("a\x1B[2Jb\x7F\\U+0007"), "a[2Jb");
}

TEST(Decoding, DropsTheFormattingOfLongTexts) {
    EXPECT_THAT(DecodedLines("{\\fArial|b1|i0;Bold} \\H2.5x;big\\P\\Lline\\l \\C1;red \\S1/2; \\S3^4;\\~end"),
                ElementsAre("Bold big", "line red 1/2 3/4 end"));
    EXPECT_THAT(DecodedLines("a \\{b\\} \\\\ ^Ic^J%%d\\U+00E4"), ElementsAre("a {b} \\  c", "°ä"));
    EXPECT_THAT(DecodedLines("\\fNever ends"), ElementsAre(""));
    EXPECT_THAT(DecodedLines("\\"), ElementsAre(""));
}

TEST(Encoding, IsPlainAndReadBackTheSame) {
    for (const char* pText : {"plain", "Größe 日本 😀", "100%% \\U+0041 \\P {x} ^J %%d", " blanks "}) {
        const std::string encoded = EncodedText(pText);
        EXPECT_TRUE(std::all_of(encoded.begin(), encoded.end(), [](char c) { return c >= ' ' && c < 0x7F; }));
        EXPECT_EQ(DecodedText(encoded), pText);
        EXPECT_EQ(DecodedName(encoded), pText);
    }
    EXPECT_EQ(EncodedText("two\nlines"), "two lines");
}

}  // namespace

}  // namespace nestrix
