#include "tests/formats/dxf/DxfTexts.h"

#include <cmath>
#include <sstream>

#include "packing/PointVectors.h"

namespace nestrix::support {

namespace {

SPoint PointOn(SPoint start, const CStretch& stretch, double share) {
    if (const auto* const pArc = std::get_if<SArcTo>(&stretch)) {
        const double parameter = pArc->m_From + share * pArc->m_Sweep;
        return pArc->m_Centre + pArc->m_FirstRadius * std::cos(parameter) +
               pArc->m_SecondRadius * std::sin(parameter);
    }
    if (const auto* const pCurve = std::get_if<SCurveTo>(&stretch)) {
        const double rest = 1.0 - share;
        return start * (rest * rest * rest) + pCurve->m_FirstControl * (3.0 * rest * rest * share) +
               pCurve->m_SecondControl * (3.0 * rest * share * share) +
               pCurve->m_End * (share * share * share);
    }
    return start + (EndOf(stretch) - start) * share;
}

}  // namespace

std::string DxfGroups(const std::string& words) {
    std::istringstream stream(words);
    std::string groups;
    for (std::string word; stream >> word;) {
        groups.append(word).append("\n");
    }
    return groups;
}

std::string DxfFile(const std::string& entities, const std::string& blocks, const std::string& header) {
    return DxfGroups("0 SECTION 2 HEADER " + header + " 0 ENDSEC 0 SECTION 2 BLOCKS " + blocks +
                     " 0 ENDSEC 0 SECTION 2 ENTITIES " + entities + " 0 ENDSEC 0 EOF");
}

SDrawing ReadEntities(const std::string& entities, const std::string& blocks, const std::string& header) {
    return ReadDxfText(DxfFile(entities, blocks, header), "test.dxf");
}

std::vector<std::string> FindingsOf(const SDrawing& drawing) {
    std::vector<std::string> findings;
    for (const SFinding& finding : drawing.m_Findings) {
        findings.push_back(std::to_string(finding.m_nLine) + ": " + finding.m_Message);
    }
    return findings;
}

std::vector<SPoint> PointsOn(const SPath& path, int nOnEachStretch) {
    std::vector<SPoint> points{path.m_Start};
    SPoint start = path.m_Start;
    for (const CStretch& stretch : path.m_Stretches) {
        for (int i = 1; i <= nOnEachStretch; ++i) {
            points.push_back(PointOn(start, stretch, static_cast<double>(i) / nOnEachStretch));
        }
        start = EndOf(stretch);
    }
    return points;
}

}  // namespace nestrix::support
