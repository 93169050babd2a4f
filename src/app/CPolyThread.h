#pragma once

#include <wx/thread.h>

#include <atomic>

class CNestrixFrame;

/// The worker that runs one search on a frame's container.
///
/// Looks after itself, in the manner of std::jthread: destroyed while it runs, it abandons the search and
/// joins first. The toolkit's own thread would crash.
///
/// Order of use: construct, SetPopulation, SetGenerations, Create, Run; at the end StopAndJoin or just
/// delete. All of it on the window's thread; only Entry runs on the new one.
class CPolyThread : public wxThread {
public:
    explicit CPolyThread(CNestrixFrame* pFrame);
    ~CPolyThread() override;

    /// Refused with a line on standard output while the thread is running.
    void SetPopulation(int nPopulation);
    void SetGenerations(int nGenerations);

    /// The search. Whatever goes wrong in it ends the search and not the program.
    ExitCode Entry() override;

    /// Asks the search to stop, and returns once Entry has returned. That is soon, but the first generation
    /// is completed before. May be repeated; does nothing for a thread that could not be created.
    void StopAndJoin();

    CNestrixFrame* m_pFrame;  ///< observed; outlives the thread
    int m_nPopulation = 0;
    int m_nGenerations = 0;

private:
    [[nodiscard]] bool IsToBeJoined();

    std::atomic<bool> m_bEntered = false;         ///< Entry has begun
    std::atomic<bool> m_bOnlyToBeJoined = false;  ///< started only for that
};
