#include <gtest/gtest.h>

#include "tests/formats/svg/InShort.h"

namespace nestrix {

namespace {

std::string Read(const std::string& content) {
    const SDrawing drawing = ReadSvgContent(content);
    const std::string findings = InShort(drawing.m_Findings);
    return InShort(drawing) + (findings.empty() ? "" : " | " + findings);
}

TEST(SvgCopies, LieWhereTheyAreTold) {
    EXPECT_EQ(Read("<line id='a' x2='9'/><use href='#a' x='10' y='20'/><use xlink:href='#a' y='5'/>"),
              "M0,0 L9,0 M10,-20 L19,-20 M0,-5 L9,-5");
}

TEST(SvgCopies, AreMovedBeforeTheyAreTransformed) {
    EXPECT_EQ(Read("<defs><line id='a' x2='9'/></defs><use href='#a' x='10' transform='scale(2)'/>"),
              "M20,0 L38,0");
    EXPECT_EQ(Read("<defs><line id='a' x2='9' transform='scale(3)'/></defs><use href='#a' x='10'/>"),
              "M10,0 L37,0");
}

TEST(SvgCopies, CanBeGroupsAndCopies) {
    EXPECT_EQ(Read("<defs><g id='a'><line x2='1'/><line x2='2'/></g><use id='b' href='#a' x='10'/></defs>"
                   "<use href='#b' x='100'/>"),
              "M110,0 L111,0 M110,0 L112,0");
}

TEST(SvgCopies, OfSymbolsFillTheSizeOfTheUse) {
    const std::string symbol =
        "<symbol id='s' viewBox='0 0 10 10'><line x2='10' y2='10'/></symbol><svg width='1000' height='1000'>";
    EXPECT_EQ(Read(symbol + "<use href='#s' x='5' width='20' height='20'/></svg>"), "M5,0 L25,-20");
    EXPECT_EQ(Read(symbol + "<use href='#s'/></svg>"), "M0,0 L1000,-1000");
}

TEST(SvgCopies, HaveTheNameOfWhatIsCopied) {
    const auto name = [](const std::string& content) { return ReadSvgContent(content).m_Paths.at(0).m_Name; };
    EXPECT_EQ(name("<defs><line id='a' x2='9'/></defs><use id='use3' href='#a'/>"), "a");
    EXPECT_EQ(name("<defs><line x2='9' id='a' inkscape:label='arm'/></defs><use id='use3' href='#a'/>"),
              "arm");
    EXPECT_EQ(name("<defs><line id='a' x2='9'/></defs><use inkscape:label='left arm' href='#a'/>"),
              "left arm");
}

TEST(SvgCopies, OfNothingAreFaults) {
    EXPECT_EQ(Read("<use href='#a'/>"), " | 1 fault: there is nothing with the id 'a'");
}

TEST(SvgCopies, OfOtherFilesAreLeftOut) {
    EXPECT_EQ(Read("<use href='other.svg#a'/>"), " | 1 odd: left out: a 'use' of another file");
    EXPECT_EQ(Read("<use/>"), " | 1 odd: left out: a 'use' of nothing");
}

TEST(SvgCopies, ThatContainThemselvesAreFaults) {
    EXPECT_EQ(Read("<use id='a' href='#a'/>"), " | 1 fault: a copy that contains itself: 'a'");
    EXPECT_EQ(Read("<g id='a'><line x2='9'/>\n<use href='#a'/></g>"),
              "M0,0 L9,0 | 2 fault: a copy that contains itself: 'a'");
    EXPECT_EQ(
        Read("<defs><g id='a'><use href='#b'/></g><g id='b'><use href='#a'/></g></defs><use href='#a'/>"),
        " | 1 fault: a copy that contains itself: 'a'");
}

}  // namespace

}  // namespace nestrix
