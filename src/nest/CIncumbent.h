#pragma once

#include <chrono>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "nest/CLayout.h"
#include "nest/CPackProblem.h"
#include "nest/PackFreely.h"

namespace nestrix {

/// The best packing of a search: certified, reported, and shared by all its workers.
class CIncumbent {
public:
    CIncumbent(const CPackProblem& problem, const SPackLimits& limits, CPackSink& sink);

    /// Certifies a packing and reports it if it is the best so far.
    /// @param nSteps taken so far by all workers.
    /// @return whether it is valid.
    bool Offer(const SFreePacking& packing, uint64_t nSteps);

    /// Whether a packing is as low as it was to become, or can be at all. No clock has a say in it.
    [[nodiscard]] bool IsLowEnough(const SFreePacking& packing) const { return EndWith(packing).has_value(); }

    /// Whether there is another reason to end: a stop, the time, the patience.
    [[nodiscard]] bool IsToEnd() const;

    [[nodiscard]] EPackEnd Reason() const;
    [[nodiscard]] double Seconds() const;
    [[nodiscard]] std::optional<SFreePacking> Best() const;

private:
    [[nodiscard]] std::optional<EPackEnd> EndWith(const SFreePacking& packing) const;
    [[nodiscard]] std::optional<EPackEnd> FindReason() const;

    const CPackProblem& m_Problem;
    const SPackLimits& m_Limits;
    CPackSink& m_Sink;
    int64_t m_nLeastHeight;
    std::chrono::steady_clock::time_point m_Begin = std::chrono::steady_clock::now();
    mutable std::mutex m_Mutex;  ///< guards all that follows, and the sink's reports
    std::optional<SFreePacking> m_Best;
    double m_LastGain = 0.0;  ///< seconds, when the best was found
    mutable std::optional<EPackEnd> m_Reason;
};

}  // namespace nestrix
