#include "batch/CSilence.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace nestrix {

CSilence::CSilence(bool bWanted) {
    const int nNowhere = bWanted ? open("/dev/null", O_WRONLY | O_CLOEXEC) : -1;
    if (nNowhere == -1) {
        return;
    }
    (void)std::fflush(stdout);
    m_nOutput = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (m_nOutput != -1) {
        (void)dup2(nNowhere, STDOUT_FILENO);
    }
    (void)close(nNowhere);
}

CSilence::~CSilence() {
    if (m_nOutput != -1) {
        (void)std::fflush(stdout);
        (void)dup2(m_nOutput, STDOUT_FILENO);
        (void)close(m_nOutput);
    }
}

}  // namespace nestrix
