#pragma once

#include <cstddef>
#include <string>

namespace nestrix::fuzz {

/// A regular file in memory with a path, since the reader takes nothing else, and no disk is fast enough for
/// thousands of files a second.
class CMemoryFile {
public:
    CMemoryFile();
    ~CMemoryFile();
    CMemoryFile(const CMemoryFile&) = delete;
    CMemoryFile& operator=(const CMemoryFile&) = delete;

    /// Replaces the content.
    void Write(const void* pBytes, size_t nBytes);

    [[nodiscard]] const char* Path() const { return m_Path.c_str(); }

private:
    int m_nDescriptor;
    std::string m_Path;
};

}  // namespace nestrix::fuzz
