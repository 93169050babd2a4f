#include "formats/dxf/CDxfFindings.h"

#include <algorithm>
#include <utility>

namespace nestrix {

namespace {

constexpr size_t MOST_FINDINGS = 100;
constexpr size_t MOST_KINDS = 50;

}  // namespace

void CDxfFindings::Add(SFinding::ESeverity eSeverity, int nLine, const std::string& message) {
    if (m_Findings.size() < MOST_FINDINGS) {
        m_Findings.push_back({m_File, nLine, eSeverity, message});
    } else {
        ++m_nUnsaid;
    }
}

void CDxfFindings::AddOnce(SFinding::ESeverity eSeverity, int nLine, const std::string& message) {
    const bool bKnown = std::any_of(m_Findings.begin(), m_Findings.end(),
                                    [&](const SFinding& finding) { return finding.m_Message == message; });
    if (!bKnown) {
        Add(eSeverity, nLine, message);
    }
}

void CDxfFindings::LeaveOut(const std::string& kind, int nLine) {
    const bool bRoom = m_LeftOut.size() < MOST_KINDS || m_LeftOut.contains(kind);
    SLeftOut& leftOut = m_LeftOut[bRoom ? kind : "of other kinds"];
    if (leftOut.m_nCount++ == 0) {
        leftOut.m_nFirstLine = nLine;
    }
}

std::vector<SFinding> CDxfFindings::Take() {
    if (m_nUnsaid > 0) {
        m_Findings.push_back(
            {m_File, 0, SFinding::ESeverity::FAULT, "and " + std::to_string(m_nUnsaid) + " more of this"});
    }
    for (const auto& [kind, leftOut] : m_LeftOut) {
        m_Findings.push_back({m_File, leftOut.m_nFirstLine, SFinding::ESeverity::ODD,
                              std::to_string(leftOut.m_nCount) + " " + kind +
                                  (leftOut.m_nCount == 1 ? " is" : " are") +
                                  " left out: this kind is not read"});
    }
    return std::exchange(m_Findings, {});
}

}  // namespace nestrix
