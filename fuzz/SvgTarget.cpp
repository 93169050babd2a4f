#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "drawing/SMap.h"
#include "formats/svg/SvgDrawing.h"
#include "formats/svg/SvgPlan.h"
#include "fuzz/CMemoryFile.h"
#include "fuzz/Require.h"
#include "packing/PointVectors.h"

using namespace nestrix;

// Any bytes as an SVG file: read, and what was read written as a plan and read again.

namespace {

using fuzz::CMemoryFile;
using fuzz::Require;

constexpr double FARTHEST = 1e12;
/// So few that the fuzzer need not spend its time on copies of copies.
constexpr size_t MOST_POINTS = 20'000;

constexpr double FULL_TURN = 2.0 * std::numbers::pi;

/// Drawings that are written again have coordinates up to here, far above the digits that are written.
constexpr double FARTHEST_WRITTEN = 1e4;
constexpr double SHORTEST_WRITTEN = 1e-2;

bool IsWithin(SPoint point, double farthest) {
    return std::abs(point.m_X) <= farthest && std::abs(point.m_Y) <= farthest;
}

struct SSound {
    double m_Farthest;

    bool operator()(const SLineTo& line) const { return IsWithin(line.m_End, m_Farthest); }
    bool operator()(const SCurveTo& curve) const {
        return IsWithin(curve.m_FirstControl, m_Farthest) && IsWithin(curve.m_SecondControl, m_Farthest) &&
               IsWithin(curve.m_End, m_Farthest);
    }
    bool operator()(const SArcTo& arc) const {
        return IsWithin(arc.m_Centre, m_Farthest) && IsWithin(arc.m_FirstRadius, m_Farthest) &&
               IsWithin(arc.m_SecondRadius, m_Farthest) && IsWithin(arc.m_End, m_Farthest) &&
               std::isfinite(arc.m_From) && std::abs(arc.m_Sweep) <= FULL_TURN;
    }
};

bool IsWithin(const SPath& path, double farthest) {
    return IsWithin(path.m_Start, farthest) &&
           std::all_of(path.m_Stretches.begin(), path.m_Stretches.end(),
                       [farthest](const CStretch& stretch) { return std::visit(SSound{farthest}, stretch); });
}

void CheckDrawing(const SDrawing& drawing, const char* pPath) {
    for (const SDrawnPath& path : drawing.m_Paths) {
        Require(!path.m_Path.m_Stretches.empty(), "a path draws something");
        Require(IsWithin(path.m_Path, FARTHEST), "a drawing's numbers are finite and not huge");
        Require(path.m_nLine >= 0, "a line of the file is none or counted from 1");
    }
    for (const SDrawnText& text : drawing.m_Texts) {
        Require(!text.m_Text.empty(), "a text says something");
        Require(IsWithin(text.m_At, FARTHEST) && text.m_Height <= FARTHEST && std::isfinite(text.m_Degrees),
                "a text's numbers are finite and not huge");
    }
    for (const SFinding& finding : drawing.m_Findings) {
        Require(finding.m_File == pPath && !finding.m_Message.empty(),
                "a finding says something of the file");
    }
    Require(!drawing.m_Findings.empty() || drawing.m_Unit, "lengths without a unit are mentioned");
}

/// Whether no stretch is so short that the digits that are written make it a point.
bool IsPlain(const SPath& path) {
    SPoint at = path.m_Start;
    for (const CStretch& stretch : path.m_Stretches) {
        if (!std::holds_alternative<SArcTo>(stretch) && Length(EndOf(stretch) - at) < SHORTEST_WRITTEN) {
            return false;
        }
        if (const auto* pArc = std::get_if<SArcTo>(&stretch)) {
            const double area = Cross(pArc->m_FirstRadius, pArc->m_SecondRadius);
            if (std::abs(pArc->m_Sweep) < SHORTEST_WRITTEN || std::abs(area) < SHORTEST_WRITTEN) {
                return false;
            }
        }
        at = EndOf(stretch);
    }
    return IsWithin(path, FARTHEST_WRITTEN);
}

void CheckRoundTrip(const std::vector<SDrawnPath>& paths, CMemoryFile& file) {
    std::vector<SPiece> pieces;
    std::vector<SDrawnPiece> drawn;
    SFreePacking packing;
    packing.m_Grid = GridFor(packing.m_Strip.m_Width);
    for (const SDrawnPath& path : paths) {
        packing.m_Placed.push_back({static_cast<int>(pieces.size()), false, 0.0, {}});
        pieces.push_back({path.m_Name, {{path.m_Path.m_Start, EndOf(path.m_Path)}, {}}, 1, {}, false});
        drawn.push_back({path.m_Name, "", 0, path.m_Path, {}, {}, {}});
    }
    const std::string text = WriteSvgPlan({pieces, drawn, packing, EUnit::MILLIMETRE});
    file.Write(text.data(), text.size());
    const SDrawing again = ReadSvg(file.Path());
    Require(again.m_Findings.empty(), "a plan is a sound drawing");
    Require(again.m_Paths.size() == paths.size(), "a plan has the paths that it was made of");
    for (size_t i = 0; i < paths.size(); ++i) {
        const SMap map = MapOf(pieces[i].m_Shape, packing, packing.m_Placed[i]);
        const SPath expected = map(paths[i].m_Path);
        const SPath& found = again.m_Paths[i].m_Path;
        Require(Length(found.m_Start - expected.m_Start) < 1e-4, "a path begins where it was written");
        Require(Length(EndOf(found) - EndOf(expected)) < 1e-4, "a path ends where it was written");
        Require(found.m_bClosed == expected.m_bClosed, "a closed path stays closed, and an open one open");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t nBytes) {
    static CMemoryFile s_File;
    s_File.Write(pBytes, nBytes);
    const SDrawing drawing = ReadSvg(s_File.Path(), MOST_POINTS);
    CheckDrawing(drawing, s_File.Path());
    constexpr size_t MOST_WRITTEN = 1000;
    if (drawing.m_Paths.size() <= MOST_WRITTEN &&
        std::all_of(drawing.m_Paths.begin(), drawing.m_Paths.end(),
                    [](const SDrawnPath& path) { return IsPlain(path.m_Path); })) {
        CheckRoundTrip(drawing.m_Paths, s_File);
    }
    return 0;
}
