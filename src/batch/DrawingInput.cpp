#include "batch/DrawingInput.h"

#include <algorithm>

#include "formats/dxf/DxfDrawing.h"
#include "formats/svg/SvgDrawing.h"

namespace nestrix {

namespace {

using ESeverity = SFinding::ESeverity;

bool HasFault(const std::vector<SFinding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const SFinding& finding) { return finding.m_eSeverity == ESeverity::FAULT; });
}

/// A lenient reading takes what could be read.
void Soften(std::vector<SFinding>& findings) {
    for (SFinding& finding : findings) {
        finding.m_eSeverity = std::min(finding.m_eSeverity, ESeverity::ODD);
    }
}

SInputFile InputOf(const SDrawing& drawing, const std::string& path, const SReadOptions& options) {
    const SAssembly assembly{ScaleOf(options, drawing.m_Unit), options.m_JoinTolerance,
                             options.m_FlatTolerance};
    SDrawnPieces found = FindPieces(drawing, path, assembly);
    SInputFile input;
    input.m_Unit = drawing.m_Unit;
    input.m_Findings = drawing.m_Findings;
    input.m_Findings.insert(input.m_Findings.end(), found.m_Findings.begin(), found.m_Findings.end());
    if (options.m_bLenient && !found.m_Pieces.empty()) {
        Soften(input.m_Findings);
    }
    if (found.m_Pieces.empty() && !HasFault(input.m_Findings)) {
        input.m_Findings.push_back({path, 0, ESeverity::FAULT, "no closed contour is in it"});
    }
    for (SDrawnPiece& drawn : found.m_Pieces) {
        SInputPiece& piece = input.m_Pieces.emplace_back();
        piece.m_Piece.m_Name = drawn.m_Name;
        piece.m_Piece.m_Shape = Flattened(drawn, options.m_FlatTolerance);
        piece.m_Drawn = std::move(drawn);
    }
    return input;
}

}  // namespace

SInputFile ReadDxfInput(const std::string& path, const SReadOptions& options) {
    return InputOf(ReadDxf(path), path, options);
}

SInputFile ReadSvgInput(const std::string& path, const SReadOptions& options) {
    return InputOf(ReadSvg(path), path, options);
}

}  // namespace nestrix
