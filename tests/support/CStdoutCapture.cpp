#include "tests/support/CStdoutCapture.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

namespace nestrix::support {

CStdoutCapture::CStdoutCapture() : m_nCaptured(memfd_create("stdout", MFD_CLOEXEC)), m_nOutput(dup(1)) {
    std::fflush(stdout);
    if (m_nCaptured < 0 || m_nOutput < 0 || dup2(m_nCaptured, 1) < 0) {
        throw std::runtime_error("standard output cannot be captured");
    }
}

CStdoutCapture::~CStdoutCapture() {
    std::fflush(stdout);
    dup2(m_nOutput, 1);
    close(m_nOutput);
    close(m_nCaptured);
}

std::string CStdoutCapture::Text() const {
    std::fflush(stdout);
    const off_t nSize = lseek(m_nCaptured, 0, SEEK_END);
    std::string text(static_cast<size_t>(nSize), '\0');
    if (pread(m_nCaptured, text.data(), text.size(), 0) != nSize) {
        throw std::runtime_error("captured output cannot be read");
    }
    return text;
}

}  // namespace nestrix::support
