#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "nest/Places.h"

namespace nestrix {

/// Where the workers of a search show each other their best packings: all of them after the same numbers of
/// steps, so that what each learns does not depend on which is faster.
class CExchange {
public:
    /// Steps of each worker between two meetings. A multiple of the steps between two looks at the end.
    static constexpr uint64_t STEPS = 16'384;

    /// What comes from outside of the search, if anything does: asked at each meeting, with its number
    /// from 1.
    using COutside = std::function<std::shared_ptr<const SSolution>(uint64_t nMeeting)>;

    explicit CExchange(
        size_t nWorkers, COutside outside = [](uint64_t) { return nullptr; })
        : m_Outside(std::move(outside)), m_Shown(nWorkers) {}

    /// Shows the worker's best to the others, and waits for theirs.
    /// @return the best of all; of equal ones that of the first worker, and not the one from outside.
    std::shared_ptr<const SSolution> Meet(size_t nWorker, std::shared_ptr<const SSolution> best);

    /// A worker that failed comes to no further meeting, and from now on nobody waits at one.
    void Leave();

private:
    COutside m_Outside;
    std::mutex m_Mutex;  ///< guards all that follows
    std::condition_variable m_Met;
    std::vector<std::shared_ptr<const SSolution>> m_Shown;
    size_t m_nArrived = 0;
    uint64_t m_nMeetings = 0;
    std::shared_ptr<const SSolution> m_Best;
    bool m_bLeft = false;
};

}  // namespace nestrix
