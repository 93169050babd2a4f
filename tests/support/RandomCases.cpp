#include "tests/support/RandomCases.h"

#include <algorithm>
#include <cstdlib>

#include "tests/support/UnderSanitizer.h"

namespace nestrix::support {
int RandomCases(int nOrdinary) {
    const char* pFactor = std::getenv("NESTRIX_CASES_FACTOR");
    const int nFactor = pFactor == nullptr ? 1 : std::max(1, std::atoi(pFactor));
    return std::max(1, nOrdinary / (UNDER_SANITIZER ? 4 : 1)) * nFactor;
}

}  // namespace nestrix::support
