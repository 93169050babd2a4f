#include "RandomCases.h"

#include <algorithm>
#include <cstdlib>

namespace support {

int RandomCases(int nOrdinary) {
    const char* pFactor = std::getenv("NESTRIX_CASES_FACTOR");
    return nOrdinary * (pFactor == nullptr ? 1 : std::max(1, std::atoi(pFactor)));
}

}  // namespace support
