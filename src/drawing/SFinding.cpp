#include "drawing/SFinding.h"

namespace nestrix {

std::string InWords(const SFinding& finding) {
    std::string text = finding.m_File + ":";
    if (finding.m_nLine > 0) {
        text += std::to_string(finding.m_nLine) + ":";
    }
    return text + " " + finding.m_Message;
}

}  // namespace nestrix
