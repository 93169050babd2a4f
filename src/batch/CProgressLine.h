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
[[nodiscard]] std::string ProgressText(double seconds, const std::optional<SImprovement>& best);

/// Tells how the search gets on, on a thread of its own, while this object lives. On a terminal it is one
/// line that is redrawn in place and leaves nothing behind; elsewhere a line every few seconds.
class CProgressLine {
public:
    /// @param progress of a search that begins now; it outlives this object, as does the stream.
    /// @param between two lines where the stream is no terminal.
    CProgressLine(const CFreeProgress& progress, std::FILE* pStream,
                  std::chrono::milliseconds between = std::chrono::seconds(5));
    ~CProgressLine();
    CProgressLine(const CProgressLine&) = delete;
    CProgressLine& operator=(const CProgressLine&) = delete;

private:
    void Redraw();
    void Print();
    void Show(std::string text);
    [[nodiscard]] std::string Text() const;

    const CFreeProgress& m_Progress;
    std::FILE* m_pStream;
    std::chrono::steady_clock::time_point m_Begin = std::chrono::steady_clock::now();
    std::chrono::milliseconds m_Between;
    bool m_bTerminal;
    size_t m_nShown = 0;  ///< how much of the line is written on; of the thread alone while it runs
    std::mutex m_Mutex;   ///< guards m_bOver
    std::condition_variable m_Wake;
    bool m_bOver = false;
    std::thread m_Thread;
};

}  // namespace nestrix
