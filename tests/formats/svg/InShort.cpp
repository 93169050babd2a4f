#include "tests/formats/svg/InShort.h"

#include <cmath>
#include <numbers>

#include "base/NumberText.h"
#include "tests/support/CTemporaryFolder.h"

namespace nestrix {

namespace {

std::string InShort(double number) {
    return ShortestDigits(std::round(number * 1e4) / 1e4 + 0.0);
}

std::string InShort(SPoint point) {
    return InShort(point.m_X) + "," + InShort(point.m_Y);
}

std::string InDegrees(double angle) {
    return InShort(angle * 180.0 / std::numbers::pi);
}

struct SInShort {
    std::string operator()(const SLineTo& line) const { return std::string("L").append(InShort(line.m_End)); }
    std::string operator()(const SArcTo& arc) const {
        return std::string("A(").append(InShort(arc.m_Centre)) + "; " + InShort(arc.m_FirstRadius) + "; " +
               InShort(arc.m_SecondRadius) + "; " + InDegrees(arc.m_From) + ", " + InDegrees(arc.m_Sweep) +
               ") " + InShort(arc.m_End);
    }
    std::string operator()(const SCurveTo& curve) const {
        return std::string("C").append(InShort(curve.m_FirstControl)) + " " + InShort(curve.m_SecondControl) +
               " " + InShort(curve.m_End);
    }
};

}  // namespace

std::string InShort(const SPath& path) {
    std::string text = std::string("M").append(InShort(path.m_Start));
    for (const CStretch& stretch : path.m_Stretches) {
        text.append(" ").append(std::visit(SInShort(), stretch));
    }
    return text + (path.m_bClosed ? " Z" : "");
}

std::string InShort(const SDrawing& drawing) {
    std::string text;
    for (const SDrawnPath& path : drawing.m_Paths) {
        text.append(text.empty() ? "" : " ").append(InShort(path.m_Path));
    }
    return text;
}

std::string InShort(const std::vector<SFinding>& findings) {
    std::string text;
    for (const SFinding& finding : findings) {
        const bool bFault = finding.m_eSeverity == SFinding::ESeverity::FAULT;
        const bool bOdd = finding.m_eSeverity == SFinding::ESeverity::ODD;
        text.append(text.empty() ? "" : "\n").append(std::to_string(finding.m_nLine));
        text.append(bFault ? " fault: " : bOdd ? " odd: " : " note: ").append(finding.m_Message);
    }
    return text;
}

SDrawing ReadSvgText(const std::string& text, size_t nMostPoints) {
    const support::CTemporaryFolder folder;
    return ReadSvg(folder.Write("drawing.svg", text), nMostPoints);
}

SDrawing ReadSvgContent(const std::string& content) {
    SDrawing drawing = ReadSvgText("<svg>" + content + "</svg>");
    std::erase_if(drawing.m_Findings,
                  [](const SFinding& finding) { return finding.m_eSeverity == SFinding::ESeverity::NOTE; });
    return drawing;
}

}  // namespace nestrix
