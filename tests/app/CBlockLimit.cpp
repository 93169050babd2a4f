#include "tests/app/CBlockLimit.h"

#include <atomic>
#include <limits>
#include <new>

namespace nestrix {

namespace {

constexpr size_t NO_LIMIT = std::numeric_limits<size_t>::max();
std::atomic<size_t> g_nLimit = NO_LIMIT;

}  // namespace

// The linker puts the second in the place of operator new(size_t), which keeps the name of the first.
extern "C" {

void* __real__Znwm(size_t nBytes);
void* __wrap__Znwm(size_t nBytes);

void* __wrap__Znwm(size_t nBytes) {
    if (nBytes > g_nLimit) {
        throw std::bad_alloc();
    }
    return __real__Znwm(nBytes);
}
}

namespace support {

CBlockLimit::CBlockLimit(size_t nBytes) {
    g_nLimit = nBytes;
}

CBlockLimit::~CBlockLimit() {
    g_nLimit = NO_LIMIT;
}

}  // namespace support

}  // namespace nestrix
