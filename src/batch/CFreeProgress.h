#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "base/CRelaxed.h"
#include "batch/Improvements.h"
#include "nest/PackFreely.h"

namespace nestrix {

/// Hears of better packings on the search's threads and tells them on any other; hands on the request to
/// stop.
class CFreeProgress final : public CPackSink {
public:
    /// @param stop becomes true when the program is asked to end.
    /// @param better hears of every packing, too, on a thread of the search.
    explicit CFreeProgress(
        const CRelaxed<bool>& stop, std::function<void(const SFreePacking&, const SPackProgress&)> better =
                                        [](const SFreePacking&, const SPackProgress&) {})
        : m_Stop(stop), m_Better(std::move(better)) {}

    void BetterPacking(const SFreePacking& packing, const SPackProgress& progress) override {
        m_Better(packing, progress);
        const std::lock_guard lock(m_Mutex);
        m_Improvements.push_back({progress.m_Seconds, progress.m_nSteps,
                                  packing.m_Grid.Length(packing.m_nHeight), progress.m_Density});
    }
    [[nodiscard]] bool IsToStop() const override { return m_Stop; }

    /// Nothing before the first packing.
    [[nodiscard]] std::optional<SImprovement> Best() const {
        const std::lock_guard lock(m_Mutex);
        return m_Improvements.empty() ? std::nullopt : std::optional(m_Improvements.back());
    }

    /// All so far.
    [[nodiscard]] std::vector<SImprovement> Improvements() const {
        const std::lock_guard lock(m_Mutex);
        return m_Improvements;
    }

private:
    const CRelaxed<bool>& m_Stop;
    std::function<void(const SFreePacking&, const SPackProgress&)> m_Better;
    mutable std::mutex m_Mutex;  ///< guards m_Improvements
    std::vector<SImprovement> m_Improvements;
};

}  // namespace nestrix
