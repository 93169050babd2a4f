#include "formats/svg/CSvgFindings.h"

#include <algorithm>

namespace nestrix {

namespace {

constexpr size_t MOST_FINDINGS = 100;
constexpr size_t MOST_KINDS = 100;

}  // namespace

void CSvgFindings::Add(pugi::xml_node element, SFinding::ESeverity eSeverity, const std::string& message) {
    if (m_Findings.size() == MOST_FINDINGS) {
        ++m_nUntold;
        m_eUntold = std::max(m_eUntold, eSeverity);
        return;
    }
    m_Findings.push_back({m_Path, m_File.LineOf(element), eSeverity, message});
}

void CSvgFindings::Odd(pugi::xml_node element, const std::string& kind) {
    const auto found = m_Kinds.find(kind);
    if (found != m_Kinds.end()) {
        ++found->second.m_nCount;
    } else if (m_Kinds.size() < MOST_KINDS) {
        m_Kinds[kind] = {m_File.LineOf(element), 1};
    }
}

std::vector<SFinding> CSvgFindings::Finish() {
    std::vector<SFinding> findings = std::move(m_Findings);
    for (const auto& [kind, told] : m_Kinds) {
        const std::string times = told.m_nCount > 1 ? " (" + std::to_string(told.m_nCount) + " times)" : "";
        findings.push_back({m_Path, told.m_nLine, SFinding::ESeverity::ODD, kind + times});
    }
    std::stable_sort(findings.begin(), findings.end(),
                     [](const SFinding& a, const SFinding& b) { return a.m_nLine < b.m_nLine; });
    if (m_nUntold > 0) {
        findings.push_back({m_Path, 0, m_eUntold, "and so on, " + std::to_string(m_nUntold) + " times more"});
    }
    return findings;
}

}  // namespace nestrix
