#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/formats/svg/InShort.h"

// Names and layers; what is left out, and what is said about it.

namespace nestrix {

namespace {

using testing::ElementsAre;

std::vector<std::string> Names(const std::string& content) {
    std::vector<std::string> names;
    for (const SDrawnPath& path : ReadSvgContent(content).m_Paths) {
        names.push_back(path.m_Layer.empty() ? path.m_Name : path.m_Layer + "/" + path.m_Name);
    }
    return names;
}

std::string Findings(const std::string& content) {
    return InShort(ReadSvgContent(content).m_Findings);
}

constexpr char const* LINE = "<line x2='9'/>";

TEST(SvgNames, AreIdsAndBeforeThemLabels) {
    EXPECT_THAT(Names("<line id='a' x2='9'/><line id='a' inkscape:label='arm' x2='9'/><line x2='9'/>"),
                ElementsAre("a", "arm", ""));
}

TEST(SvgNames, ComeFromTheNearestGroupThatHasOne) {
    EXPECT_THAT(
        Names(std::string("<g id='outer'><g id='inner'>") + LINE + "</g><g>" + LINE + "</g></g>" + LINE),
        ElementsAre("inner", "outer", ""));
}

TEST(SvgNames, OfLabelledGroupsWinOverTheIdsInsideThem) {
    EXPECT_THAT(Names("<g inkscape:label='bracket'><line id='path1234' x2='9'/></g>"),
                ElementsAre("bracket"));
}

TEST(SvgNames, OfLayersAreNoNames) {
    EXPECT_THAT(
        Names(std::string("<g inkscape:groupmode='layer' inkscape:label='Cut &amp; mark' id='layer1'>") +
              LINE + "<g id='part'>" + LINE + "</g></g><g inkscape:groupmode='layer' id='layer2'>" + LINE +
              "</g>"),
        ElementsAre("Cut & mark/", "Cut & mark/part", "layer2/"));
}

TEST(SvgNames, OfThePageAreNotThoseOfItsLines) {
    EXPECT_EQ(ReadSvgText("<svg id='svg8'><line x2='9'/></svg>").m_Paths.at(0).m_Name, "");
}

TEST(SvgNames, MayHaveAPrefixForTheElements) {
    const SDrawing drawing = ReadSvgText(
        "<s:svg xmlns:s='http://www.w3.org/2000/svg'><s:g id='a'><s:line x2='9'/></s:g><line "
        "x2='7'/></s:svg>");
    EXPECT_EQ(InShort(drawing), "M0,0 L9,0");
}

TEST(SvgVisibility, LeavesOutWhatIsNotDisplayed) {
    EXPECT_THAT(Names(std::string("<g display='none'>") + LINE + "</g>"), ElementsAre());
    EXPECT_THAT(Names(std::string("<g style='fill:none; display : none'>") + LINE + "</g>"), ElementsAre());
    EXPECT_THAT(Names(std::string("<g style='display:none !important'>") + LINE + "</g>"), ElementsAre());
    EXPECT_THAT(Names(std::string("<g display='none' style='display:inline'>") + LINE + "</g>"),
                ElementsAre(""));
}

TEST(SvgVisibility, CanComeBackInsideWhatIsHidden) {
    EXPECT_THAT(Names("<g visibility='hidden'><line id='a' x2='9'/>"
                      "<line id='b' x2='9' style='visibility:visible'/></g>"),
                ElementsAre("b"));
    EXPECT_THAT(Names("<g visibility='collapse'><path id='a' d='M0 0H9'/><text>A</text></g>"), ElementsAre());
}

TEST(SvgVisibility, LeavesOutWhatServesOthersWithoutAWord) {
    for (char const* pName : {"defs", "clipPath", "mask", "pattern", "marker", "symbol", "metadata"}) {
        const std::string name = pName;
        const SDrawing drawing = ReadSvgContent("<" + name + ">" + LINE + "</" + name + ">");
        EXPECT_EQ(InShort(drawing) + InShort(drawing.m_Findings), "") << name;
    }
    EXPECT_EQ(Findings("<sodipodi:namedview><inkscape:grid/></sodipodi:namedview>"), "");
}

TEST(SvgFindings, SpeakOnceOfEachKindThatIsLeftOut) {
    EXPECT_EQ(Findings("<image/>\n<image/><foreignObject>\n<line x2='9'/></foreignObject><image/>"),
              "1 odd: left out: 'image', which is no outline and no text (3 times)\n"
              "2 odd: left out: 'foreignObject', which is no outline and no text");
}

TEST(SvgFindings, SpeakOfWhatOthersShowDifferently) {
    EXPECT_EQ(Findings("<g clip-path='url(#a)'><rect style='mask:url(#b)'/></g>"),
              "1 odd: clip-path is not looked at: outlines are taken whole\n"
              "1 odd: mask is not looked at: outlines are taken whole");
    EXPECT_EQ(Findings("<g clip-path='none'/>"), "");
    EXPECT_EQ(Findings("<style>.a { display: none }</style><style>.b { fill: red }</style>"),
              "1 odd: style sheets are not read: what they hide is not left out");
    EXPECT_EQ(Findings("<style><![CDATA[.a { visibility: hidden }]]></style>"),
              "1 odd: style sheets are not read: what they hide is not left out");
    EXPECT_EQ(Findings("<g transform-origin='5 5'/>"), "1 odd: transform-origin is not looked at");
}

TEST(SvgSwitches, ShowTheFirstThatAsksForNothing) {
    EXPECT_THAT(Names("<switch><foreignObject/><g requiredExtensions='x'><line id='a' x2='9'/></g>"
                      "<line id='b' x2='9'/><line id='c' x2='9'/></switch>"),
                ElementsAre("b"));
}

}  // namespace

}  // namespace nestrix
