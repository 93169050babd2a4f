#include "tests/faults/ProcessState.h"

#include <dirent.h>
#include <locale.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <stdexcept>

#include "tests/faults/CAllocationFault.h"

namespace nestrix::faults {
namespace {

/// One too many, that of the listing itself, each time.
size_t CountOpenFiles() {
    const std::unique_ptr<DIR, int (*)(DIR*)> pFolder(opendir("/proc/self/fd"), closedir);
    if (pFolder == nullptr) {
        throw std::runtime_error("the open files cannot be counted");
    }
    size_t nFiles = 0;
    while (readdir(pFolder.get()) != nullptr) {
        ++nFiles;
    }
    return nFiles;
}

}  // namespace

void PrintTo(const SProcessState& state, std::ostream* pStream) {
    *pStream << state.m_nLiveBlocks << " live blocks, " << state.m_nOpenFiles << " open files, locale "
             << state.m_pLocale;
}

SProcessState CurrentState() {
    const size_t nOpenFiles = CountOpenFiles();
    return {LiveBlocks(), nOpenFiles, uselocale(nullptr)};
}

size_t ResidentBytes() {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pFile(std::fopen("/proc/self/statm", "r"),
                                                                std::fclose);
    size_t nAllPages = 0;
    size_t nResidentPages = 0;
    if (pFile == nullptr || std::fscanf(pFile.get(), "%zu %zu", &nAllPages, &nResidentPages) != 2) {
        throw std::runtime_error("the resident size cannot be read");
    }
    return nResidentPages * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace nestrix::faults
