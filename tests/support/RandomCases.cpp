#include "RandomCases.h"

#include <algorithm>
#include <cstdlib>

namespace support {
namespace {

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
constexpr bool SANITIZED = true;
#else
constexpr bool SANITIZED = false;
#endif
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool SANITIZED = true;
#else
constexpr bool SANITIZED = false;
#endif

}  // namespace

int RandomCases(int nOrdinary) {
    const char* pFactor = std::getenv("NESTRIX_CASES_FACTOR");
    const int nFactor = pFactor == nullptr ? 1 : std::max(1, std::atoi(pFactor));
    return std::max(1, nOrdinary / (SANITIZED ? 4 : 1)) * nFactor;
}

}  // namespace support
