#include "batch/InputSummary.h"

#include <algorithm>

#include "formats/SvgNumber.h"
#include "packing/SFreePacking.h"

namespace nestrix {

namespace {

struct SExtent {
    double m_Width = 0.0;
    double m_Height = 0.0;
};

SExtent ExtentOf(const SShape& shape) {
    const CRing& ring = shape.m_Outline;
    if (ring.empty()) {
        return {};
    }
    const auto [left, right] = std::minmax_element(
        ring.begin(), ring.end(), [](const SPoint& a, const SPoint& b) { return a.m_X < b.m_X; });
    const auto [low, high] = std::minmax_element(
        ring.begin(), ring.end(), [](const SPoint& a, const SPoint& b) { return a.m_Y < b.m_Y; });
    return {right->m_X - left->m_X, high->m_Y - low->m_Y};
}

std::string Measures(const SExtent& extent) {
    return SvgNumber(extent.m_Width) + " x " + SvgNumber(extent.m_Height);
}

std::string Counted(int nCount, const std::string& what) {
    return std::to_string(nCount) + " " + what + (nCount == 1 ? "" : "s");
}

}  // namespace

void SInputSummary::Add(const SShape& shape) {
    const SExtent extent = ExtentOf(shape);
    ++m_nPieces;
    m_nHoles += static_cast<int>(shape.m_Holes.size());
    m_Area += AreaOf(shape);
    if (extent.m_Width * extent.m_Height >= m_Width * m_Height) {
        m_Width = extent.m_Width;
        m_Height = extent.m_Height;
    }
}

std::string InWords(const SInputSummary& summary, std::optional<EUnit> unit) {
    const std::string name(unit ? NameOf(*unit) : "");
    std::string text = summary.m_Word + ": ";
    if (summary.m_nFiles > 1) {
        text.append(Counted(summary.m_nFiles, "file")).append(", ");
    }
    text.append(Counted(summary.m_nPieces, "piece"));
    if (summary.m_nCopies != summary.m_nPieces) {
        text.append(" (").append(std::to_string(summary.m_nCopies)).append(" with copies)");
    }
    if (summary.m_nHoles > 0) {
        text.append(", ").append(Counted(summary.m_nHoles, "hole"));
    }
    text.append(summary.m_nPieces == 1 ? ", " : ", up to ");
    text.append(Measures({summary.m_Width, summary.m_Height}));
    text.append(unit ? " " : "").append(name).append(", area ").append(SvgNumber(summary.m_Area));
    text.append(unit ? " " : "").append(name).append(unit ? "2" : "");
    return text;
}

std::string SizeInWords(const SShape& shape) {
    return Measures(ExtentOf(shape));
}

}  // namespace nestrix
