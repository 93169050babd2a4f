#include "batch/InputReport.h"

#include <cstdio>

#include "batch/Complaints.h"

namespace nestrix {

void ReportInputs(const SInputSet& set, bool bQuiet) {
    for (const SFinding& finding : set.m_Findings) {
        Complain(finding);
    }
    if (!bQuiet && !IsFaulty(set)) {
        ReportSummaries(set);
    }
}

void ReportSummaries(const SInputSet& set) {
    for (const SInputSummary& summary : set.m_Summaries) {
        std::fprintf(stderr, "%s\n", InWords(summary, set.m_Unit).c_str());
    }
}

}  // namespace nestrix
