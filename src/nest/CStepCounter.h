#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <limits>
#include <mutex>
#include <utility>
#include <vector>

namespace nestrix {

/// How many steps the workers of one search take. All take the same number, whatever ends the search and
/// whenever that is: when a worker hears that the search is to end, the end is set a little ahead of where
/// any of them can be by then. So the number of steps says all about how far the search went.
class CStepLimit {
public:
    static constexpr uint64_t NEVER = std::numeric_limits<uint64_t>::max();
    static constexpr uint64_t QUANTUM = 4;  ///< steps between two looks at whether the search is to end

    /// Nobody goes further ahead of the slowest than this: when the search is to end, the others follow up.
    static constexpr uint64_t LEAD = 128;

    /// @param nMost steps of each worker.
    /// @param isToEnd asked by one worker at a time, until it says so.
    CStepLimit(size_t nWorkers, uint64_t nMost, std::function<bool()> isToEnd);

    /// A worker begins its next quantum, and waits for others that are far behind.
    /// @return how many steps it is to take in all, as far as is known.
    uint64_t BeginQuantum(size_t nWorker, uint64_t nSteps);

    [[nodiscard]] size_t Workers() const { return m_Begun.size(); }

    /// A worker has found all there is to find. The end is set as far ahead as the others can be by then:
    /// what the number of steps was when it was found decides alone where all end.
    /// @return how many steps each is to take in all.
    uint64_t EndAfter(uint64_t nSteps);

    /// A worker has failed: the others end as soon as they look.
    void Abort();

    /// How many steps each worker takes in all; known when one of them has come to its end.
    [[nodiscard]] uint64_t Steps() const;

private:
    std::function<bool()> m_IsToEnd;
    mutable std::mutex m_Mutex;  ///< guards all that follows
    uint64_t m_nLimit;
    bool m_bEnding = false;
    std::condition_variable m_Followed;  ///< a worker has begun another quantum, or the end is known
    std::vector<uint64_t> m_Begun;       ///< where each worker's present quantum begins
};

/// Counts the steps of one worker.
class CStepCounter {
public:
    /// @param meet called by Take each time so many steps have been taken.
    CStepCounter(CStepLimit& limit, size_t nWorker, uint64_t nStepsToMeeting, std::function<void()> meet)
        : m_Limit(limit), m_nWorker(nWorker), m_nStepsToMeeting(nStepsToMeeting), m_Meet(std::move(meet)) {}

    /// @return false if there is no further step to take.
    bool Take() {
        if (m_nSteps % CStepLimit::QUANTUM == 0) {
            m_nEnd = m_Limit.BeginQuantum(m_nWorker, m_nSteps);
        }
        if (IsOver()) {
            return false;
        }
        if (m_nSteps % m_nStepsToMeeting == 0 && m_nSteps > 0) {
            m_Meet();
        }
        ++m_nSteps;
        return true;
    }

    /// Nothing is left to be found.
    void Finish() { m_nEnd = m_Limit.EndAfter(m_nSteps); }

    [[nodiscard]] bool IsOver() const { return m_nSteps >= m_nEnd; }
    [[nodiscard]] uint64_t Steps() const { return m_nSteps; }

private:
    CStepLimit& m_Limit;
    size_t m_nWorker;
    uint64_t m_nStepsToMeeting;
    std::function<void()> m_Meet;
    uint64_t m_nSteps = 0;
    uint64_t m_nEnd = CStepLimit::NEVER;
};

}  // namespace nestrix
