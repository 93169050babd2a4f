#pragma once

#include <cstddef>

namespace nestrix::support {

/// While it lives, the program's own operator new throws for blocks of more than so many bytes, in all
/// threads. The libraries of the toolkit get what they ask for: the OpenGL drivers do not survive less.
class CBlockLimit {
public:
    explicit CBlockLimit(size_t nBytes);
    ~CBlockLimit();
    CBlockLimit(const CBlockLimit&) = delete;
    CBlockLimit& operator=(const CBlockLimit&) = delete;
};

}  // namespace nestrix::support
