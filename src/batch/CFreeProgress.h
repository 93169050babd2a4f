#pragma once

#include <mutex>
#include <optional>

#include "base/CRelaxed.h"
#include "nest/PackFreely.h"

namespace nestrix {

/// What is known of the best packing while the search goes on.
struct SBestSoFar {
    double m_Height = 0.0;
    double m_Density = 0.0;  ///< 0 to 1
    double m_Seconds = 0.0;  ///< when it was found, since the search began
};

/// Hears of better packings on the search's threads and tells them on any other; hands on the request to
/// stop.
class CFreeProgress final : public CPackSink {
public:
    /// @param stop becomes true when the program is asked to end.
    explicit CFreeProgress(const CRelaxed<bool>& stop) : m_Stop(stop) {}

    void BetterPacking(const SFreePacking& packing, const SPackProgress& progress) override {
        const std::lock_guard lock(m_Mutex);
        m_Best = {packing.m_Grid.Length(packing.m_nHeight), progress.m_Density, progress.m_Seconds};
    }
    [[nodiscard]] bool IsToStop() const override { return m_Stop; }

    /// Nothing before the first packing.
    [[nodiscard]] std::optional<SBestSoFar> Best() const {
        const std::lock_guard lock(m_Mutex);
        return m_Best;
    }

private:
    const CRelaxed<bool>& m_Stop;
    mutable std::mutex m_Mutex;  ///< guards m_Best
    std::optional<SBestSoFar> m_Best;
};

}  // namespace nestrix
