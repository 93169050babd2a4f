#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "batch/CFreeProgress.h"

namespace nestrix {

/// How a search gets on, in one line.
/// @param seconds since it began.
[[nodiscard]] std::string ProgressText(double seconds, const std::optional<SBestSoFar>& best);

/// One line on a terminal that tells how the search gets on. It is redrawn in place, on a thread of its own,
/// while this object lives, and leaves nothing behind. Where the stream is no terminal, it writes nothing.
class CProgressLine {
public:
    /// @param progress of a search that begins now; it outlives this object, as does the stream.
    CProgressLine(const CFreeProgress& progress, std::FILE* pStream);
    ~CProgressLine();
    CProgressLine(const CProgressLine&) = delete;
    CProgressLine& operator=(const CProgressLine&) = delete;

private:
    void Run();
    void Show(std::string text);

    const CFreeProgress& m_Progress;
    std::FILE* m_pStream;
    std::chrono::steady_clock::time_point m_Begin = std::chrono::steady_clock::now();
    size_t m_nShown = 0;  ///< how much of the line is written on; of the thread alone while it runs
    std::mutex m_Mutex;   ///< guards m_bOver
    std::condition_variable m_Wake;
    bool m_bOver = false;
    std::thread m_Thread;
};

}  // namespace nestrix
