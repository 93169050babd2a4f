#include <gtest/gtest.h>

#include "tests/formats/svg/InShort.h"

// The page: units, viewBox, preserveAspectRatio; and viewports inside it.

namespace nestrix {

namespace {

constexpr char const* SQUARE = "<rect x='10' y='20' width='10' height='10'/>";

SDrawing OnPage(const std::string& attributes, const std::string& content = SQUARE) {
    return ReadSvgText("<svg " + attributes + ">" + content + "</svg>");
}

/// The drawing, with its unit in front and its findings behind.
std::string Read(const SDrawing& drawing) {
    const std::string findings = InShort(drawing.m_Findings);
    return (drawing.m_Unit == EUnit::MILLIMETRE ? "mm " : "") + InShort(drawing) +
           (findings.empty() ? "" : " | " + findings);
}

TEST(SvgPages, InMillimetresAreReadInMillimetres) {
    EXPECT_EQ(Read(OnPage("width='210mm' height='297mm' viewBox='0 0 210 297'")),
              "mm M10,277 L20,277 L20,267 L10,267 Z");
}

TEST(SvgPages, InOtherPhysicalUnitsAreReadInMillimetres) {
    for (char const* pAttributes : {"width='20cm' height='10cm' viewBox='0 0 100 50'",
                                    "width='7.874015748031496in' viewBox='0 0 100 50'",
                                    "height='283.46456692913387pt' viewBox='0 0 100 50'",
                                    "height='23.62204724409449pc' viewBox='0 0 100 50'"}) {
        EXPECT_EQ(Read(OnPage(pAttributes)), "mm M20,60 L40,60 L40,40 L20,40 Z") << pAttributes;
    }
}

TEST(SvgPages, WithoutAViewBoxCountInPixels) {
    EXPECT_EQ(Read(OnPage("width='254mm' height='127mm'", "<rect width='96' height='48'/>")),
              "mm M0,127 L25.4,127 L25.4,114.3 L0,114.3 Z");
}

TEST(SvgPages, WithoutAPhysicalSizeKeepTheirUserUnitsAndSaySo) {
    const std::string square = "M10,80 L20,80 L20,70 L10,70 Z";
    const std::string note = "1 note: the file names no unit of length, only user units";
    const std::string size = ", of which the page measures 200 by 100";
    EXPECT_EQ(Read(OnPage("width='200' height='100'")), square + " | " + note + size);
    EXPECT_EQ(Read(OnPage("width='200px' height='100px'")), square + " | " + note + size);
    EXPECT_EQ(Read(OnPage("width='100%' height='100%' viewBox='0 0 200 100'")), square + " | " + note + size);
    EXPECT_EQ(Read(OnPage("width='800' height='600' viewBox='0 0 200 100'")), square + " | " + note + size);
    EXPECT_EQ(Read(OnPage("")), "M10,-20 L20,-20 L20,-30 L10,-30 Z | " + note);
}

TEST(SvgPages, BeginWhereTheViewBoxBegins) {
    EXPECT_EQ(Read(OnPage("width='200mm' height='100mm' viewBox='-10 -20 200 100'")),
              "mm M20,60 L30,60 L30,50 L20,50 Z");
    EXPECT_EQ(InShort(OnPage("viewBox='-10,-20,200,100'")), "M20,60 L30,60 L30,50 L20,50 Z");
}

TEST(SvgPages, FitTheViewBoxAsTheyAreTold) {
    const auto fitted = [](const std::string& aspect) {
        return InShort(
            OnPage("width='200mm' height='100mm' viewBox='0 0 10 10' preserveAspectRatio='" + aspect + "'",
                   "<line x2='10' y2='10'/>"));
    };
    EXPECT_EQ(fitted(""), "M50,100 L150,0");
    EXPECT_EQ(fitted("xMidYMid meet"), "M50,100 L150,0");
    EXPECT_EQ(fitted("xMinYMin"), "M0,100 L100,0");
    EXPECT_EQ(fitted("xMaxYMax"), "M100,100 L200,0");
    EXPECT_EQ(fitted("none"), "M0,100 L200,0");
    EXPECT_EQ(fitted("xMidYMin slice"), "M0,100 L200,-100");
    EXPECT_EQ(fitted("xMinYMid slice"), "M0,150 L200,-50");
    EXPECT_EQ(fitted("xMaxYMax slice"), "M0,200 L200,0");
}

TEST(SvgPages, WithoutSenseAreFaults) {
    EXPECT_EQ(Read(OnPage("width='0mm' viewBox='0 0 9 9'", "")).substr(0, 67),
              " | 1 fault: width of the page is no length above 0: '0mm'\n1 note: t");
    EXPECT_NE(Read(OnPage("viewBox='0 0 9'")).find("fault: viewBox is no place with a size: '0 0 9'"),
              std::string::npos);
    EXPECT_NE(Read(OnPage("viewBox='0 0 9 -9'")).find("fault: viewBox"), std::string::npos);
    EXPECT_NE(Read(OnPage("width='9mm' viewBox='0 0 9 9' preserveAspectRatio='middle'"))
                  .find("fault: preserveAspect"),
              std::string::npos);
}

TEST(SvgPages, HoldOtherPages) {
    EXPECT_EQ(
        InShort(OnPage("viewBox='0 0 100 100'",
                       "<svg x='10' y='20' width='40' height='40' viewBox='0 0 10 10'><line x2='10' y2='10'/>"
                       "<line x2='100%'/></svg>")),
        "M10,80 L50,40 M10,80 L50,80");
    EXPECT_EQ(
        InShort(OnPage("viewBox='0 0 100 50'", "<svg viewBox='0 0 10 10'><line x2='10' y2='10'/></svg>")),
        "M25,50 L75,0");
}

}  // namespace

}  // namespace nestrix
