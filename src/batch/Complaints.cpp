#include "batch/Complaints.h"

#include <errno.h>

#include <algorithm>
#include <cstdio>

namespace nestrix {

namespace {

char const* Weight(SFinding::ESeverity severity) {
    switch (severity) {
        case SFinding::ESeverity::NOTE:
            return "note: ";
        case SFinding::ESeverity::ODD:
            return "warning: ";
        case SFinding::ESeverity::FAULT:
            break;
    }
    return "";
}

}  // namespace

void Complain(const std::string& complaint) {
    std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, complaint.c_str());
}

void Complain(const SFinding& finding) {
    Complain(Weight(finding.m_eSeverity) + InWords(finding));
}

bool IsFaulty(const std::string& fault) {
    if (!fault.empty()) {
        Complain(fault);
    }
    return !fault.empty();
}

bool IsFaulty(const std::vector<std::string>& faults) {
    return std::count_if(faults.begin(), faults.end(),
                         [](const std::string& fault) { return IsFaulty(fault); }) > 0;
}

}  // namespace nestrix
