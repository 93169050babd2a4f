#include "tests/batch/BatchProgram.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <thread>
#include <vector>

#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CTemporaryFolder;
using support::ReadFile;

namespace {

int ExitStatusOf(int nWaitStatus) {
    return WIFEXITED(nWaitStatus) ? WEXITSTATUS(nWaitStatus) : -1;
}

/// How a new program gets the signals that end programs: ignored, as this process ignores it while this
/// object lives, or at their defaults.
class CInheritedSignals {
public:
    explicit CInheritedSignals(int nIgnored) : m_nIgnored(nIgnored) {
        posix_spawnattr_init(&m_Attributes);
        posix_spawnattr_setflags(&m_Attributes, POSIX_SPAWN_SETSIGDEF);
        sigset_t defaults;
        sigemptyset(&defaults);
        for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
            if (nSignal == nIgnored) {
                m_Previous = signal(nSignal, SIG_IGN);
            } else {
                sigaddset(&defaults, nSignal);
            }
        }
        posix_spawnattr_setsigdefault(&m_Attributes, &defaults);
    }
    ~CInheritedSignals() {
        if (m_nIgnored != 0) {
            signal(m_nIgnored, m_Previous);
        }
        posix_spawnattr_destroy(&m_Attributes);
    }
    CInheritedSignals(const CInheritedSignals&) = delete;
    CInheritedSignals& operator=(const CInheritedSignals&) = delete;

    [[nodiscard]] const posix_spawnattr_t* Attributes() const { return &m_Attributes; }

private:
    posix_spawnattr_t m_Attributes{};
    int m_nIgnored;
    sighandler_t m_Previous = SIG_DFL;
};

}  // namespace

std::string SBatchResult::ValueOf(const std::string& label) const {
    std::istringstream lines(m_Output);
    std::string value;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(label)) {
            value = line.substr(label.size());
        }
    }
    return value;
}

namespace {

/// @param program with redirections that come later in the line, and win.
SBatchResult RunInShell(const std::string& before, const std::string& program, const std::string& arguments) {
    const CTemporaryFolder scratch;
    const std::string command = before + "\n" + program + " >" + scratch.PathOf("out") + " 2>" +
                                scratch.PathOf("err") + " " + arguments;
    SBatchResult result;
    result.m_nStatus = ExitStatusOf(std::system(command.c_str()));
    result.m_Output = ReadFile(scratch.PathOf("out"));
    result.m_Errors = ReadFile(scratch.PathOf("err"));
    return result;
}

}  // namespace

SBatchResult RunBatchProgram(const std::string& arguments, const std::string& before) {
    return RunInShell(before, NESTRIX_BATCH, arguments);
}

SBatchResult RunAgain(const SBatchResult& first, const std::string& more) {
    return RunInShell("", first.ValueOf("Repeat with: "), more);
}

CRunningBatch::CRunningBatch(const std::string& arguments, int nIgnoredSignal) {
    std::vector<std::string> words{NESTRIX_BATCH};
    std::istringstream stream(arguments);
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    std::vector<char*> argv;
    for (std::string& word : words) {
        argv.push_back(word.data());
    }
    argv.push_back(nullptr);

    int pipeEnds[2] = {-1, -1};
    EXPECT_EQ(pipe2(pipeEnds, O_CLOEXEC), 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDOUT_FILENO);
    const CInheritedSignals signals(nIgnoredSignal);
    EXPECT_EQ(posix_spawn(&m_nProcess, NESTRIX_BATCH, &actions, signals.Attributes(), argv.data(), environ),
              0);
    posix_spawn_file_actions_destroy(&actions);
    close(pipeEnds[1]);
    m_pPipe = fdopen(pipeEnds[0], "r");
}

CRunningBatch::~CRunningBatch() {
    if (m_nProcess > 0) {
        kill(m_nProcess, SIGKILL);
        WaitForEnd();
    }
    CloseOutput();
}

bool CRunningBatch::ReadLine(std::string& line) {
    line.clear();
    for (int c = std::fgetc(m_pPipe); c != EOF; c = std::fgetc(m_pPipe)) {
        line.push_back(static_cast<char>(c));
        if (c == '\n') {
            break;
        }
    }
    m_Output += line;
    return !line.empty();
}

bool CRunningBatch::ReadUntil(const std::string& start) {
    std::string line;
    while (ReadLine(line)) {
        if (line.starts_with(start)) {
            return true;
        }
    }
    return false;
}

void CRunningBatch::Signal(int nSignal) const {
    EXPECT_EQ(kill(m_nProcess, nSignal), 0);
}

void CRunningBatch::WaitUntilItHandles(int nSignal) const {
    const std::string path = "/proc/" + std::to_string(m_nProcess) + "/status";
    for (uint64_t nHandled = 0; (nHandled >> (nSignal - 1) & 1U) == 0;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        std::ifstream status(path);
        std::string word;
        while (status >> word && word != "SigCgt:") {
        }
        ASSERT_TRUE(status >> std::hex >> nHandled) << "the program has ended";
    }
}

void CRunningBatch::WaitUntilItHasWorkedFor(double seconds) const {
    clockid_t clock = 0;
    ASSERT_EQ(clock_getcpuclockid(m_nProcess, &clock), 0);
    for (timespec worked = {};
         static_cast<double>(worked.tv_sec) + 1e-9 * static_cast<double>(worked.tv_nsec) < seconds;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        ASSERT_EQ(clock_gettime(clock, &worked), 0) << "the program has ended";
    }
}

void CRunningBatch::CloseOutput() {
    if (m_pPipe != nullptr) {
        std::fclose(m_pPipe);
        m_pPipe = nullptr;
    }
}

int CRunningBatch::WaitForEnd() {
    std::string line;
    while (m_pPipe != nullptr && ReadLine(line)) {
    }
    int nWaitStatus = 0;
    EXPECT_EQ(waitpid(m_nProcess, &nWaitStatus, 0), m_nProcess);
    m_nProcess = -1;
    return ExitStatusOf(nWaitStatus);
}

}  // namespace nestrix
