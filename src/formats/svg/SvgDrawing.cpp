#include "formats/svg/SvgDrawing.h"

#include "formats/svg/CSvgWalk.h"

namespace nestrix {

SDrawing ReadSvg(const std::string& path, size_t nMostPoints) {
    SDrawing drawing;
    const CSvgFile file(path);
    if (!file.Fault().empty()) {
        drawing.m_Findings.push_back({path, file.FaultLine(), SFinding::ESeverity::FAULT, file.Fault()});
        return drawing;
    }
    CSvgFindings findings(file, path);
    CSvgWalk(file, nMostPoints, findings, drawing).Run();
    drawing.m_Findings = findings.Finish();
    return drawing;
}

}  // namespace nestrix
