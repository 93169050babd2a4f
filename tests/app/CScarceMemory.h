#pragma once

#include <sys/resource.h>

namespace nestrix::support {

/// While it lives, the process can have only so many more bytes of memory. Memory that the process already
/// has, and does not use, can still be had.
class CScarceMemory {
public:
    explicit CScarceMemory(rlim_t nBytes);
    ~CScarceMemory();
    CScarceMemory(const CScarceMemory&) = delete;
    CScarceMemory& operator=(const CScarceMemory&) = delete;

private:
    rlimit m_Previous = {};
};

}  // namespace nestrix::support
