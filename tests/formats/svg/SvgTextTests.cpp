#include <gtest/gtest.h>

#include "base/NumberText.h"
#include "tests/formats/svg/InShort.h"

namespace nestrix {

namespace {

std::string Rounded(double number) {
    return ShortestDigits(static_cast<double>(static_cast<long>(number * 1000 + (number < 0 ? -0.5 : 0.5))) /
                          1000);
}

/// "text at x,y height h [turned d] [mirrored]" for each.
std::string Texts(const std::string& content) {
    std::string all;
    for (const SDrawnText& text : ReadSvgContent(content).m_Texts) {
        all += (all.empty() ? "" : "; ") + text.m_Text + " at " + Rounded(text.m_At.m_X) + "," +
               Rounded(text.m_At.m_Y) + " height " + Rounded(text.m_Height);
        if (std::string turn = Rounded(text.m_Degrees); turn != "0") {
            all += " turned " + turn;
        }
        all += text.m_bMirrored ? " mirrored" : "";
    }
    return all;
}

TEST(SvgTexts, HaveAPlaceAndTheHeightOfCapitals) {
    EXPECT_EQ(Texts("<text x='10' y='20' font-size='10'>Left</text>"), "Left at 10,-20 height 7");
    EXPECT_EQ(Texts("<g style='font-size:20px'><text>A</text></g>"), "A at 0,0 height 14");
    EXPECT_EQ(Texts("<g font-size='20'><text font-size='50%'>A</text></g>"), "A at 0,0 height 7");
}

TEST(SvgTexts, HaveTheSizeThatThePageTells) {
    const SDrawing drawing = ReadSvgText("<svg font-size='10'><text>A</text></svg>");
    EXPECT_NEAR(drawing.m_Texts.at(0).m_Height, 7.0, 1e-12);
}

TEST(SvgTexts, AreTurnedAndMirroredWithWhatTheyLieOn) {
    EXPECT_EQ(Texts("<text font-size='10' transform='rotate(-90)'>A</text>"), "A at 0,0 height 7 turned 90");
    EXPECT_EQ(Texts("<text font-size='10' transform='scale(-1 1)'>A</text>"), "A at 0,0 height 7 mirrored");
    EXPECT_EQ(Texts("<text font-size='10' transform='scale(3)'>A</text>"), "A at 0,0 height 21");
}

TEST(SvgTexts, AreALineForEachPartWithAPlace) {
    EXPECT_EQ(Texts("<text x='1' y='2' font-size='10'><tspan x='1' y='2'>one</tspan><tspan x='1' y='14'>two "
                    "<tspan font-weight='bold'>three</tspan></tspan></text>"),
              "one at 1,-2 height 7; two three at 1,-14 height 7");
}

TEST(SvgTexts, HaveOneBlankForAnyWhiteSpace) {
    EXPECT_EQ(Texts("<text font-size='10'>\n  a \n\t b  </text>"), "a b at 0,0 height 7");
    EXPECT_EQ(Texts("<text font-size='10'> \n </text>"), "");
}

TEST(SvgTexts, AreShiftedByTheirEstimatedWidth) {
    EXPECT_EQ(Texts("<text x='100' font-size='10' text-anchor='middle'>abcd</text>"),
              "abcd at 88.8,0 height 7");
    EXPECT_EQ(Texts("<text x='100' font-size='10' style='text-anchor:end'>\xC3\xA4\xC3\xB6</text>"),
              "\xC3\xA4\xC3\xB6 at 88.8,0 height 7");
}

TEST(SvgTexts, KnowTheirLayerAndLine) {
    const SDrawing drawing =
        ReadSvgContent("\n<g inkscape:groupmode='layer' inkscape:label='marks'>\n<text>A &lt; B</text></g>");
    ASSERT_EQ(drawing.m_Texts.size(), 1U);
    EXPECT_EQ(drawing.m_Texts[0].m_Text, "A < B");
    EXPECT_EQ(drawing.m_Texts[0].m_Layer, "marks");
    EXPECT_EQ(drawing.m_Texts[0].m_nLine, 3);
}

}  // namespace

}  // namespace nestrix
