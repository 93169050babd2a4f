#include "batch/Findings.h"

#include <algorithm>
#include <map>

#include "batch/PolygonInput.h"
#include "drawing/Oddities.h"

namespace nestrix {

namespace {

/// What is odd about each piece by itself.
std::vector<SFinding> FindPieceOddities(const SInputSet& set, const SFreeOptions& demands,
                                        const std::optional<SFreeStrip>& strip) {
    std::vector<SFinding> findings;
    const std::vector<SPiece> pieces = WithDemands(set.m_Pieces, demands);
    for (size_t i = 0; i < pieces.size(); ++i) {
        const SDrawnPiece& drawn = set.m_Drawn[i];
        const std::vector<SFinding> more = FindOddities(pieces[i], strip, drawn.m_File, drawn.m_nLine);
        findings.insert(findings.end(), more.begin(), more.end());
    }
    return findings;
}

/// By the order of the files, then by the lines.
void Sort(std::span<const std::string> files, std::vector<SFinding>& findings) {
    std::map<std::string, size_t> order;
    for (const std::string& file : files) {
        order.emplace(file, order.size());
    }
    const auto rank = [&order](const SFinding& finding) {
        const auto found = order.find(finding.m_File);
        return std::pair(found != order.end() ? found->second : order.size(), finding.m_nLine);
    };
    std::stable_sort(findings.begin(), findings.end(),
                     [&rank](const SFinding& a, const SFinding& b) { return rank(a) < rank(b); });
}

}  // namespace

std::vector<SFinding> FindingsOf(std::span<const SUnfitPiece> unfit, std::span<const SDrawnPiece> drawn) {
    std::vector<SFinding> findings;
    for (const SUnfitPiece& piece : unfit) {
        const SDrawnPiece& where = drawn[static_cast<size_t>(piece.m_nPiece)];
        findings.push_back(
            {where.m_File, where.m_nLine, SFinding::ESeverity::FAULT, where.m_Name + ": " + piece.m_Reason});
    }
    return findings;
}

std::vector<SFinding> FindFaults(const SInputSet& set, const SFreeOptions& demands,
                                 const std::optional<SFreeStrip>& strip) {
    std::vector<SFinding> faults = FindPieceOddities(set, demands, strip);
    std::erase_if(faults,
                  [](const SFinding& finding) { return finding.m_eSeverity != SFinding::ESeverity::FAULT; });
    Sort(set.m_Files, faults);
    return faults;
}

std::vector<SFinding> FindAll(const SInputSet& set, const SFreeOptions& demands) {
    std::vector<SFinding> findings = set.m_Findings;
    for (const SInputPiece& piece : set.m_Sources) {
        if (const std::optional<SFinding> box = FindBadBox(piece)) {
            findings.push_back(*box);
        }
    }
    const std::vector<SFinding> oddities = FindPieceOddities(set, demands, StripOf(demands, set.m_Strip));
    findings.insert(findings.end(), oddities.begin(), oddities.end());
    Sort(set.m_Files, findings);
    return findings;
}

}  // namespace nestrix
