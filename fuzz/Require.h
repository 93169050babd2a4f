#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace nestrix::fuzz {

/// Ends the process, which is how a finding is reported, unless the promise was kept.
inline void Require(bool bKept, const char* pPromise) {
    if (!bKept) {
        std::fprintf(stderr, "Broken promise: %s\n", pPromise);
        std::abort();
    }
}

/// The same for comparisons that say in words what differs.
inline void RequireNone(const std::string& difference) {
    Require(difference.empty(), difference.c_str());
}

}  // namespace nestrix::fuzz
