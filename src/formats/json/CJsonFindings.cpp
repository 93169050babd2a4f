#include "formats/json/CJsonFindings.h"

#include "formats/json/PrintableText.h"

namespace nestrix {

namespace {

/// Whoever has made so many faults has made one of them very often.
constexpr size_t FINDINGS_MOST = 100;

constexpr size_t POINTER_MOST = 120;

}  // namespace

void CJsonFindings::Refuse(const CJsonValue& value, const std::string& what) {
    Miss(value, value.InWords() + " " + what);
}

void CJsonFindings::Miss(const CJsonValue& at, const std::string& message) {
    if (m_Findings.size() == FINDINGS_MOST) {
        m_Findings.push_back({m_File, 0, SFinding::ESeverity::FAULT, "there is more that is wrong"});
        return;
    }
    if (m_Findings.size() > FINDINGS_MOST) {
        return;
    }
    const std::string pointer = PrintableText(at.Pointer(), POINTER_MOST);
    m_Findings.push_back({m_File, at.Line(), SFinding::ESeverity::FAULT,
                          pointer.empty() ? message : pointer + ": " + message});
}

}  // namespace nestrix
