#include "drawing/CFindingLog.h"

#include <algorithm>
#include <utility>

namespace nestrix {

void CFindingLog::Add(int nLine, SFinding::ESeverity eSeverity, const std::string& message,
                      const std::string& many) {
    SKind& kind = m_Kinds[many];
    ++kind.m_nCount;
    kind.m_eSeverity = std::max(kind.m_eSeverity, eSeverity);
    if (kind.m_nCount <= NAMED_MOST) {
        m_Findings.push_back({m_File, nLine, eSeverity, message});
    }
}

std::vector<SFinding> CFindingLog::Take() {
    std::stable_sort(m_Findings.begin(), m_Findings.end(),
                     [](const SFinding& a, const SFinding& b) { return a.m_nLine < b.m_nLine; });
    for (const auto& [many, kind] : m_Kinds) {
        if (kind.m_nCount > NAMED_MOST) {
            m_Findings.push_back(
                {m_File, 0, kind.m_eSeverity, std::to_string(kind.m_nCount - NAMED_MOST) + " more " + many});
        }
    }
    m_Kinds.clear();
    return std::exchange(m_Findings, {});
}

}  // namespace nestrix
