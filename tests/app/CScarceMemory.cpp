#include "tests/app/CScarceMemory.h"

#include <unistd.h>

#include <fstream>

namespace nestrix::support {

CScarceMemory::CScarceMemory(rlim_t nBytes) {
    getrlimit(RLIMIT_AS, &m_Previous);
    rlim_t nPages = 0;
    std::ifstream("/proc/self/statm") >> nPages;
    const rlimit scarce{nPages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + nBytes, m_Previous.rlim_max};
    setrlimit(RLIMIT_AS, &scarce);
}

CScarceMemory::~CScarceMemory() {
    setrlimit(RLIMIT_AS, &m_Previous);
}

}  // namespace nestrix::support
