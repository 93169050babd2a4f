#include "fuzz/CMemoryFile.h"

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/Require.h"

namespace nestrix::fuzz {

CMemoryFile::CMemoryFile()
    : m_nDescriptor(memfd_create("input.pol", MFD_CLOEXEC)),
      m_Path("/proc/self/fd/" + std::to_string(m_nDescriptor)) {
    Require(m_nDescriptor >= 0, "a file can be made in memory");
}

CMemoryFile::~CMemoryFile() {
    close(m_nDescriptor);
}

void CMemoryFile::Write(const void* pBytes, size_t nBytes) {
    Require(ftruncate(m_nDescriptor, 0) == 0, "the file in memory can be emptied");
    const ssize_t nWritten = pwrite(m_nDescriptor, pBytes, nBytes, 0);
    Require(nWritten == static_cast<ssize_t>(nBytes), "the file in memory can be written");
}

}  // namespace nestrix::fuzz
