#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/SDrawnPiece.h"
#include "formats/dxf/DxfDrawing.h"
#include "formats/dxf/DxfPlan.h"
#include "fuzz/Require.h"

using namespace nestrix;

// Any bytes as a DXF file: read, and what was read written as a packing and read again.

namespace {

using fuzz::Require;

/// Small, so that traps are seen to be such in no time.
constexpr SDxfLimits LIMITS{.m_nMostCopies = 1000, .m_nMostStretches = 20'000};

constexpr size_t MOST_FINDINGS = 200;
constexpr double LARGEST_NUMBER = 1e15;

/// What is this large has no room on the grid of a packing.
constexpr double LARGEST_PLACED = 1e6;

constexpr size_t MOST_PLACED = 20;

template <class CPredicate>
bool AllPointsOf(const SPath& path, CPredicate isGood) {
    return isGood(path.m_Start) &&
           std::all_of(path.m_Stretches.begin(), path.m_Stretches.end(), [&](const CStretch& stretch) {
               if (const auto* const pArc = std::get_if<SArcTo>(&stretch)) {
                   return isGood(pArc->m_Centre) && isGood(pArc->m_FirstRadius) &&
                          isGood(pArc->m_SecondRadius) && isGood(pArc->m_End);
               }
               if (const auto* const pCurve = std::get_if<SCurveTo>(&stretch)) {
                   return isGood(pCurve->m_FirstControl) && isGood(pCurve->m_SecondControl) &&
                          isGood(pCurve->m_End);
               }
               return isGood(EndOf(stretch));
           });
}

bool IsWithin(const SPath& path, double most) {
    return AllPointsOf(
        path, [most](SPoint point) { return std::abs(point.m_X) <= most && std::abs(point.m_Y) <= most; });
}

bool HasFault(const SDrawing& drawing) {
    return std::any_of(drawing.m_Findings.begin(), drawing.m_Findings.end(), [](const SFinding& finding) {
        return finding.m_eSeverity == SFinding::ESeverity::FAULT;
    });
}

void CheckDrawing(const SDrawing& drawing, std::string_view text) {
    const auto nLines = std::count(text.begin(), text.end(), '\n') + 1;
    size_t nStretches = 0;
    for (const SDrawnPath& drawn : drawing.m_Paths) {
        nStretches += drawn.m_Path.m_Stretches.size();
        Require(!drawn.m_Path.m_Stretches.empty(), "a path leads somewhere");
        Require(IsWithin(drawn.m_Path, LARGEST_NUMBER), "numbers are finite and not too large");
        Require(drawn.m_nLine >= 1 && drawn.m_nLine <= nLines, "a path is in a line of the file");
    }
    Require(nStretches <= 2 * LIMITS.m_nMostStretches, "no more is drawn than is allowed");
    Require(drawing.m_Findings.size() <= MOST_FINDINGS, "there are not too many findings to read");
    for (const SFinding& finding : drawing.m_Findings) {
        Require(finding.m_nLine >= 0 && finding.m_nLine <= nLines, "a finding is in a line of the file");
        Require(std::none_of(finding.m_Message.begin(), finding.m_Message.end(),
                             [](char c) { return c >= 0 && c < ' '; }),
                "a message moves no cursor");
    }
}

/// Each path as the outline of a piece.
void CheckPlan(const SDrawing& drawing) {
    std::vector<SPiece> pieces;
    std::vector<SDrawnPiece> drawn;
    SFreePacking packing;
    packing.m_Grid = GridFor(packing.m_Strip.m_Width);
    for (const SDrawnPath& path : drawing.m_Paths) {
        if (drawn.size() < MOST_PLACED && IsWithin(path.m_Path, LARGEST_PLACED)) {
            SDrawnPiece piece;
            piece.m_Name = path.m_Name;
            piece.m_Outline = path.m_Path;
            piece.m_Marks.push_back(path.m_Path);
            packing.m_Placed.push_back({static_cast<int>(drawn.size()),
                                        path.m_nLine % 2 == 0,
                                        static_cast<double>(path.m_nLine % 360),
                                        {}});
            pieces.push_back({path.m_Name, {{path.m_Path.m_Start, EndOf(path.m_Path)}, {}}, 1, {}, true});
            drawn.push_back(std::move(piece));
        }
    }
    const std::string document = WriteDxfPlan({pieces, drawn, packing, drawing.m_Unit});
    const SDrawing again = ReadDxfText(document, "plan.dxf", LIMITS);
    Require(!HasFault(again), "what is written can be read");
    Require(again.m_Paths.size() >= 2 * drawn.size(), "every line is written");
    Require(again.m_Unit == drawing.m_Unit, "the unit is written");
    Require(drawn.empty() || again.m_Paths[0].m_Name == drawn[0].m_Name, "names are written");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t nBytes) {
    const std::string_view text(reinterpret_cast<const char*>(pBytes), nBytes);
    const SDrawing drawing = ReadDxfText(text, "input.dxf", LIMITS);
    CheckDrawing(drawing, text);
    CheckPlan(drawing);
    return 0;
}
