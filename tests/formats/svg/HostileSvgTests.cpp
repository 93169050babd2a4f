#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/svg/SvgDrawing.h"
#include "tests/formats/svg/InShort.h"
#include "tests/support/CTemporaryFolder.h"

// Files that were made to do harm, or were damaged: each ends in a message.

namespace nestrix {

namespace {

using support::CTemporaryFolder;
using testing::HasSubstr;

std::string Repeated(const std::string& text, size_t nTimes) {
    std::string all;
    all.reserve(text.size() * nTimes);
    for (size_t i = 0; i < nTimes; ++i) {
        all += text;
    }
    return all;
}

std::string FindingsOf(const std::string& text) {
    return InShort(ReadSvgText(text).m_Findings);
}

TEST(HostileSvg, CannotBeReadWhereItIsNoFile) {
    const CTemporaryFolder folder;
    EXPECT_EQ(InShort(ReadSvg(folder.PathOf("missing.svg")).m_Findings),
              "0 fault: No such file or directory");
    EXPECT_EQ(InShort(ReadSvg(folder.Path()).m_Findings), "0 fault: not a regular file");
    EXPECT_EQ(ReadSvg(folder.PathOf("missing.svg")).m_Findings.at(0).m_File, folder.PathOf("missing.svg"));
}

TEST(HostileSvg, IsNoSoundXml) {
    EXPECT_THAT(FindingsOf(""), HasSubstr("1 fault: not sound XML"));
    EXPECT_THAT(FindingsOf("<svg>\n<g>\n</svg>"),
                HasSubstr("3 fault: not sound XML: Start-end tags mismatch"));
    EXPECT_THAT(FindingsOf("<svg><path d='M0"), HasSubstr("fault: not sound XML"));
    EXPECT_THAT(FindingsOf("\x1f\x8b\x08"), HasSubstr("fault: compressed"));
}

TEST(HostileSvg, IsNoDrawing) {
    EXPECT_EQ(FindingsOf("\n<html/>"), "2 fault: not an SVG drawing: its root element is no 'svg'");
}

TEST(HostileSvg, WithEntitiesOfEntitiesIsNotExpanded) {
    const SDrawing drawing = ReadSvgText(
        "<?xml version='1.0'?><!DOCTYPE svg [<!ENTITY a 'xxxxxxxxxx'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;'>"
        "<!ENTITY c SYSTEM 'file:///etc/passwd'>]><svg><text>&b;</text><text>&c;</text></svg>");
    ASSERT_EQ(drawing.m_Texts.size(), 2U);
    EXPECT_EQ(drawing.m_Texts[0].m_Text, "&b;");
    EXPECT_EQ(drawing.m_Texts[1].m_Text, "&c;");
}

TEST(HostileSvg, OfAMillionGroupsInEachOtherIsReadAsDeepAsItMakesSense) {
    const size_t nDepth = 1'000'000;
    const SDrawing drawing = ReadSvgText("<svg>" + Repeated("<g>", nDepth) + "<line x2='9'/>" +
                                         Repeated("</g>", nDepth) + "<line x2='7'/></svg>");
    EXPECT_THAT(InShort(drawing.m_Findings), HasSubstr("fault: more than 1000 elements within each other"));
    EXPECT_EQ(InShort(drawing), "M0,0 L7,0");
}

TEST(HostileSvg, OfAMillionTextPartsInEachOtherIsReadAsDeepAsItMakesSense) {
    const size_t nDepth = 1'000'000;
    const SDrawing drawing = ReadSvgText("<svg><text>A" + Repeated("<tspan>", nDepth) + "B" +
                                         Repeated("</tspan>", nDepth) + "</text></svg>");
    ASSERT_EQ(drawing.m_Texts.size(), 1U);
    EXPECT_EQ(drawing.m_Texts[0].m_Text, "A");
}

/// A file in which each group copies the one before it ten times.
std::string CopiesOfCopies(int nLevels, const std::string& innermost) {
    std::string text = "<svg><defs><g id='g0'>" + innermost + "</g>";
    for (int i = 1; i <= nLevels; ++i) {
        text += "<g id='g" + std::to_string(i) + "'>" +
                Repeated("<use href='#g" + std::to_string(i - 1) + "'/>", 10) + "</g>";
    }
    return text + "</defs><use href='#g" + std::to_string(nLevels) + "'/></svg>";
}

TEST(HostileSvg, OfBillionsOfCopiesStopsInTime) {
    for (char const* pInnermost : {"<line x2='9'/>", "<g/>", "<text>A</text>", ""}) {
        EXPECT_THAT(FindingsOf(CopiesOfCopies(20, pInnermost)),
                    HasSubstr("fault: with all its copies, the drawing has too many points"))
            << pInnermost;
    }
}

TEST(HostileSvg, OfManyCopiesOfOneLongPathStopsInTime) {
    for (const std::string& data : {"M0 0" + Repeated("h1", 10'000), Repeated("M0 0", 10'000)}) {
        const SDrawing drawing = ReadSvgText(CopiesOfCopies(9, "<path d='" + data + "'/>"), 200'000);
        EXPECT_THAT(InShort(drawing.m_Findings), HasSubstr("too many points"));
    }
}

TEST(HostileSvg, OfAThousandCopiesIsReadWhole) {
    const SDrawing drawing = ReadSvgText(CopiesOfCopies(3, "<line x2='9'/>"));
    EXPECT_EQ(drawing.m_Paths.size(), 1000U);
    EXPECT_THAT(InShort(drawing.m_Findings), HasSubstr("note"));
    EXPECT_EQ(drawing.m_Findings.size(), 1U);
}

TEST(HostileSvg, WithHugeNumbersIsNotDrawn) {
    for (char const* pElement :
         {"<rect width='1e300' height='1'/>", "<line x2='1e13'/>", "<circle r='1e200'/>",
          "<g transform='scale(1e200)'><g transform='scale(1e200)'><line x2='9'/></g></g>",
          "<path d='M0 0A1e-300 1e-300 0 0 1 1e300 1e300'/>", "<line x2='1' transform='skewX(90)' y2='1'/>",
          "<text transform='scale(1e300)' x='1e300'>A</text>", "<text font-size='1e99'>A</text>"}) {
        const SDrawing drawing = ReadSvgContent(pElement);
        EXPECT_EQ(InShort(drawing.m_Findings), "1 fault: lies farther out than any drawing reaches")
            << pElement;
        EXPECT_TRUE(drawing.m_Paths.empty() && drawing.m_Texts.empty()) << pElement;
    }
}

TEST(HostileSvg, WithMorePointsThanAllowedEndsInAMessage) {
    const std::string text = "<svg><path d='M0 0" + Repeated("h1", 200'000) + "'/></svg>";
    EXPECT_THAT(InShort(ReadSvgText(text, 200'000).m_Findings), HasSubstr("too many points"));
    EXPECT_EQ(ReadSvgText(text, 300'000).m_Findings.size(), 1U);  // the note on the unit
}

TEST(HostileSvg, ThatIsTooLargeIsNotRead) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("large.svg", "<svg/>");
    std::filesystem::resize_file(path, 200'000'000);
    EXPECT_THAT(InShort(ReadSvg(path).m_Findings), HasSubstr("larger than 128 MB"));
}

TEST(HostileSvg, ThatIsWrongThroughoutSaysSoAHundredTimes) {
    const SDrawing drawing = ReadSvgContent(Repeated("<path d='M0 0?'/>\n", 5000));
    EXPECT_EQ(drawing.m_Findings.size(), 100U);
    EXPECT_THAT(drawing.m_Findings.back().m_Message, "and so on, 4901 times more");
    EXPECT_EQ(drawing.m_Findings.back().m_eSeverity, SFinding::ESeverity::FAULT);
}

TEST(HostileSvg, WithBytesThatAreNoTextIsQuotedWithoutThem) {
    EXPECT_THAT(FindingsOf("<svg><path d='M0 0 \x01\x02'/></svg>"), HasSubstr("on: '  '"));
    EXPECT_THAT(FindingsOf("<svg><path d='M0 0 ?" + Repeated("\xC3\xA4", 99) + "'/></svg>"),
                HasSubstr("...'"));
}

}  // namespace

}  // namespace nestrix
