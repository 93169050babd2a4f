#include "batch/SInputSet.h"

#include <algorithm>

namespace nestrix {

bool IsFaulty(const SInputSet& set) {
    return std::any_of(set.m_Findings.begin(), set.m_Findings.end(), [](const SFinding& finding) {
        return finding.m_eSeverity == SFinding::ESeverity::FAULT;
    });
}

}  // namespace nestrix
