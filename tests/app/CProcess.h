#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace nestrix::support {

/// A program that a test starts, and that ends with the test at the latest.
class CProcess {
public:
    struct SSettings {
        std::filesystem::path m_Folder = ".";              ///< it works in
        std::map<std::string, std::string> m_Environment;  ///< on top of the test's own; empty means unset
        std::filesystem::path m_Output = "/dev/null";      ///< of its standard output
        std::filesystem::path m_Errors = "/dev/null";
        std::vector<int> m_Closed;  ///< descriptors that it starts without
    };

    CProcess(std::vector<std::string> command, const SSettings& settings);
    ~CProcess();
    CProcess(const CProcess&) = delete;
    CProcess& operator=(const CProcess&) = delete;

    /// Its exit status once it has ended, negative for a signal; nothing while it runs.
    [[nodiscard]] std::optional<int> Poll();

    /// As Poll, but waits.
    [[nodiscard]] std::optional<int> AwaitEnd(std::chrono::milliseconds patience);

    /// The processor time that it has taken so far, or had taken when it ended. Unlike the clock's, it does
    /// not depend on what else the machine has to do.
    [[nodiscard]] std::chrono::milliseconds ProcessorTime() const;

    [[nodiscard]] pid_t Id() const { return m_nProcess; }

private:
    pid_t m_nProcess;
    std::optional<int> m_Status;
    std::chrono::milliseconds m_TimeAtEnd{0};
};

/// Runs a program to its end and returns what it prints.
std::string OutputOf(const std::vector<std::string>& command);

/// Polls until the condition holds. @return whether it came to hold in time.
template <class TCondition>
[[nodiscard]] bool Await(TCondition&& condition,
                         std::chrono::milliseconds patience = std::chrono::seconds(90)) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

}  // namespace nestrix::support
