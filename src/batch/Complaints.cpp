#include "batch/Complaints.h"

#include <cstdio>

namespace nestrix {

void Complain(const std::string& complaint) {
    std::fprintf(stderr, "nestrix-batch: %s\n", complaint.c_str());
}

bool IsFaulty(const std::string& fault) {
    if (!fault.empty()) {
        Complain(fault);
    }
    return !fault.empty();
}

}  // namespace nestrix
