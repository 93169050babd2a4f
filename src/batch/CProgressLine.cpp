#include "batch/CProgressLine.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"

namespace nestrix {

namespace {

/// Often enough for the seconds to go by evenly.
constexpr std::chrono::milliseconds REDRAWING{200};

std::string TwoDigits(int nNumber) {
    return std::to_string(100 + nNumber).substr(1);
}

/// As clocks write it: 0:07, 12:34, 1:02:03.
std::string ClockTime(double seconds) {
    const int nSeconds = static_cast<int>(std::clamp(seconds, 0.0, 1e9));
    const int nHours = nSeconds / 3600;
    const int nMinutes = nSeconds / 60 % 60;
    return (nHours > 0 ? std::to_string(nHours) + ":" + TwoDigits(nMinutes) : std::to_string(nMinutes)) +
           ":" + TwoDigits(nSeconds % 60);
}

/// How many characters fit into a line of the terminal; all, if that is unknown.
size_t RoomIn(std::FILE* pStream) {
    winsize size = {};
    const bool bKnown = ioctl(fileno(pStream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    // The last column is left free: some terminals go on to the next line when it is written to.
    return bKnown ? size.ws_col - 1U : std::string::npos;
}

}  // namespace

std::string ProgressText(double seconds, const std::optional<SImprovement>& best) {
    if (!best) {
        return ClockTime(seconds) + "  no packing yet";
    }
    return ClockTime(seconds) + "  height " + ShortestDigits(best->m_Height) + "  density " +
           Decimals(100.0 * best->m_Density, 2) + " %  unchanged for " + ClockTime(seconds - best->m_Seconds);
}

CProgressLine::CProgressLine(const CFreeProgress& progress, std::FILE* pStream,
                             std::chrono::milliseconds between)
    : m_Progress(progress),
      m_pStream(pStream),
      m_Between(between),
      m_bTerminal(isatty(fileno(pStream)) != 0),
      m_Thread([this] { m_bTerminal ? Redraw() : Print(); }) {}

CProgressLine::~CProgressLine() {
    {
        const std::lock_guard lock(m_Mutex);
        m_bOver = true;
    }
    m_Wake.notify_one();
    m_Thread.join();
    if (m_bTerminal) {
        Show("");
        std::fputc('\r', m_pStream);
        std::fflush(m_pStream);
    }
}

void CProgressLine::Redraw() {
    std::unique_lock lock(m_Mutex);
    do {
        Show(Text());
    } while (!m_Wake.wait_for(lock, REDRAWING, [this] { return m_bOver; }));
}

void CProgressLine::Print() {
    std::unique_lock lock(m_Mutex);
    while (!m_Wake.wait_for(lock, m_Between, [this] { return m_bOver; })) {
        std::fprintf(m_pStream, "%s\n", Text().c_str());
        std::fflush(m_pStream);
    }
}

std::string CProgressLine::Text() const {
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - m_Begin;
    return ProgressText(elapsed.count(), m_Progress.Best());
}

void CProgressLine::Show(std::string text) {
    text.resize(std::min(text.size(), RoomIn(m_pStream)));
    const size_t nLength = text.size();
    // Blanks cover what is left of a longer line; every terminal knows them.
    text.resize(std::max(nLength, std::min(m_nShown, RoomIn(m_pStream))), ' ');
    m_nShown = nLength;
    std::fprintf(m_pStream, "\r%s", text.c_str());
    std::fflush(m_pStream);
}

}  // namespace nestrix
