#include "tests/app/CProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>

#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix::support {

namespace {

void Redirect(const std::filesystem::path& path, int nDescriptor) {
    const int nFile = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(nFile, nDescriptor);
    close(nFile);
}

std::chrono::milliseconds InMilliseconds(const timeval& time) {
    return std::chrono::milliseconds(time.tv_sec * 1000 + time.tv_usec / 1000);
}

[[noreturn]] void Execute(const std::vector<std::string>& command, const CProcess::SSettings& settings) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const auto& [name, value] : settings.m_Environment) {
        if (value.empty()) {
            unsetenv(name.c_str());
        } else {
            setenv(name.c_str(), value.c_str(), 1);
        }
    }
    Redirect(settings.m_Output, 1);
    Redirect(settings.m_Errors, 2);
    if (chdir(settings.m_Folder.c_str()) != 0) {
        _exit(126);
    }
    std::vector<char*> arguments;
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    for (const int nDescriptor : settings.m_Closed) {
        close(nDescriptor);
    }
    execvp(arguments[0], arguments.data());
    _exit(127);
}

}  // namespace

CProcess::CProcess(std::vector<std::string> command, const SSettings& settings) : m_nProcess(fork()) {
    if (m_nProcess == 0) {
        Execute(command, settings);
    }
}

CProcess::~CProcess() {
    if (!Poll()) {
        kill(m_nProcess, SIGKILL);
        waitpid(m_nProcess, nullptr, 0);
    }
}

std::optional<int> CProcess::Poll() {
    int nStatus = 0;
    rusage usage{};
    if (!m_Status && wait4(m_nProcess, &nStatus, WNOHANG, &usage) == m_nProcess) {
        m_Status = WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -WTERMSIG(nStatus);
        m_TimeAtEnd = InMilliseconds(usage.ru_utime) + InMilliseconds(usage.ru_stime);
    }
    return m_Status;
}

std::chrono::milliseconds CProcess::ProcessorTime() const {
    if (m_Status) {
        return m_TimeAtEnd;
    }
    // Behind the name, which is in brackets, the 12th and 13th word: ticks in the program and in the system.
    std::string line = ReadIfThere("/proc/" + std::to_string(m_nProcess) + "/stat");
    std::istringstream words(line.substr(line.rfind(')') + 1));
    std::string skipped;
    for (int i = 0; i < 11; ++i) {
        words >> skipped;
    }
    long nInProgram = 0;
    long nInSystem = 0;
    words >> nInProgram >> nInSystem;
    return std::chrono::milliseconds((nInProgram + nInSystem) * 1000 / sysconf(_SC_CLK_TCK));
}

std::optional<int> CProcess::AwaitEnd(std::chrono::milliseconds patience) {
    (void)Await([this] { return Poll().has_value(); }, patience);
    return m_Status;
}

std::string OutputOf(const std::vector<std::string>& command) {
    const CTemporaryFolder folder;
    CProcess::SSettings settings;
    settings.m_Output = folder.PathOf("output");
    CProcess process(command, settings);
    (void)process.AwaitEnd(std::chrono::seconds(90));
    return ReadIfThere(settings.m_Output);
}

}  // namespace nestrix::support
