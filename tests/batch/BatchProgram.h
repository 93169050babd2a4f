#pragma once

#include <sys/types.h>

#include <string>

namespace nestrix {

/// What one run of the program left behind.
struct SBatchResult {
    int m_nStatus = -1;    ///< exit status; −1 when it did not exit by itself
    std::string m_Output;  ///< standard output
    std::string m_Errors;  ///< standard error

    /// The last line of the output that begins with `label`, without it; empty if there is none.
    [[nodiscard]] std::string ValueOf(const std::string& label) const;
};

/// Runs the real program to its end through the shell. `arguments` may redirect standard output, which then
/// is missing from the result; `before` are shell commands for the run's surroundings.
[[nodiscard]] SBatchResult RunBatchProgram(const std::string& arguments, const std::string& before = "");

/// Runs the command by which a run told to repeat it, through the shell, with more words behind it.
[[nodiscard]] SBatchResult RunAgain(const SBatchResult& first, const std::string& more);

/// The real program while it runs, its standard output on a pipe.
class CRunningBatch {
public:
    /// `arguments` are separated by blanks and reach the program as they are. Whatever this process does with
    /// the signals that end programs, the new one has them at their defaults, but for nIgnoredSignal.
    explicit CRunningBatch(const std::string& arguments, int nIgnoredSignal = 0);
    ~CRunningBatch();
    CRunningBatch(const CRunningBatch&) = delete;
    CRunningBatch& operator=(const CRunningBatch&) = delete;

    /// Reads until a line begins with `start`. False when the output ends first.
    bool ReadUntil(const std::string& start);
    void Signal(int nSignal) const;

    /// Waits until the program handles the signal itself, as it does from the beginning of the search on.
    void WaitUntilItHandles(int nSignal) const;

    /// Waits until the program has had so much of a processor's time, however busy the machine is.
    void WaitUntilItHasWorkedFor(double seconds) const;

    /// Reads no more: the program's next line meets a closed pipe.
    void CloseOutput();

    /// Reads what is left and waits for the end. Returns the exit status, −1 when a signal killed it.
    int WaitForEnd();

    [[nodiscard]] const std::string& Output() const { return m_Output; }

private:
    bool ReadLine(std::string& line);

    pid_t m_nProcess = -1;
    std::FILE* m_pPipe = nullptr;
    std::string m_Output;
};

}  // namespace nestrix
