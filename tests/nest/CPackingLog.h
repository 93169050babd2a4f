#pragma once

#include <vector>

#include "nest/PackFreely.h"
#include "tests/nest/FreeSets.h"

namespace nestrix::support {

/// Keeps every packing that a search reports, and may stop the search after so many.
class CPackingLog final : public CPackSink {
public:
    explicit CPackingLog(size_t nStopAfter = SIZE_MAX) : m_nStopAfter(nStopAfter) {}

    void BetterPacking(const SFreePacking& packing, const SPackProgress& progress) override {
        m_Packings.push_back(packing);
        m_Progress.push_back(progress);
        m_bStop = m_Packings.size() >= m_nStopAfter;
    }
    [[nodiscard]] bool IsToStop() const override { return m_bStop; }

    [[nodiscard]] const std::vector<SFreePacking>& Packings() const { return m_Packings; }
    [[nodiscard]] const std::vector<SPackProgress>& Progress() const { return m_Progress; }

private:
    size_t m_nStopAfter;
    std::vector<SFreePacking> m_Packings;
    std::vector<SPackProgress> m_Progress;
    bool m_bStop = false;  ///< under the search's lock, as the reports are
};

[[nodiscard]] inline SPackSettings StepSettings(uint64_t nSteps, int nThreads = 1) {
    SPackSettings settings;
    settings.m_nThreads = nThreads;
    settings.m_Limits.m_nSteps = nSteps;
    return settings;
}

/// Searches, expects every packing heard of and the last one to be valid, each lower than the one before, and
/// gives the result.
[[nodiscard]] SPackResult PackAndExamine(std::span<const SPiece> pieces, const SFreeStrip& strip,
                                         const SPackSettings& settings);

[[nodiscard]] double HeightOf(const SPackResult& result);

}  // namespace nestrix::support
