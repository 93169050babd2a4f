#include "tests/display/CVirtualDisplay.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace nestrix::support {

namespace {

[[noreturn]] void RunServer(const char* pScreen, const char* pWithout, int nReport) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // A test that crashes leaves no server behind.
    const std::string report = std::to_string(nReport);
    if (std::freopen("/dev/null", "w", stderr) == nullptr) {
        _exit(126);
    }
    // An argument that is null ends the list.
    execl(NESTRIX_XVFB, NESTRIX_XVFB, "-displayfd", report.c_str(), "-screen", "0", pScreen, "-nolisten",
          "tcp", "-noreset", pWithout != nullptr ? "-extension" : nullptr, pWithout,
          static_cast<char*>(nullptr));
    _exit(127);
}

/// The display number, which the server writes once it accepts clients.
std::string ReadLine(int nReport) {
    std::string line;
    char c = 0;
    while (read(nReport, &c, 1) == 1 && c != '\n') {
        line.push_back(c);
    }
    return line;
}

}  // namespace

CVirtualDisplay::CVirtualDisplay(const char* pScreen, const char* pWithout) {
    if (const char* pPrevious = std::getenv("DISPLAY")) {
        m_Previous = pPrevious;
    }
    std::array<int, 2> report{};
    if (pipe(report.data()) != 0) {
        std::perror("pipe");
        std::exit(1);
    }
    m_nServer = fork();
    if (m_nServer == 0) {
        close(report[0]);
        RunServer(pScreen, pWithout, report[1]);
    }
    close(report[1]);
    const std::string number = ReadLine(report[0]);
    close(report[0]);
    if (number.empty()) {
        std::fprintf(stderr, "The display server %s did not start\n", NESTRIX_XVFB);
        std::exit(1);
    }
    setenv("DISPLAY", (":" + number).c_str(), 1);
    setenv("GDK_BACKEND", "x11", 1);
    // The user's settings and the desktop's services are no part of a test.
    setenv("GSETTINGS_BACKEND", "memory", 1);
    setenv("NO_AT_BRIDGE", "1", 1);
    unsetenv("WAYLAND_DISPLAY");
}

CVirtualDisplay::~CVirtualDisplay() {
    kill(m_nServer, SIGTERM);
    waitpid(m_nServer, nullptr, 0);
    setenv("DISPLAY", m_Previous.c_str(), 1);
}

}  // namespace nestrix::support
