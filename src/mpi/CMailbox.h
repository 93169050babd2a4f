#pragma once

#include <mutex>
#include <optional>

#include "base/CRelaxed.h"
#include "nest/PackFreely.h"

namespace nestrix {

/// Between the threads of a search and the one that talks to the other ranks: neither waits for the other.
class CMailbox final : public CPackSink {
public:
    /// @param sink hears of the search, too.
    explicit CMailbox(CPackSink& sink) : m_Sink(sink) {}

    // On the search's threads.
    void BetterPacking(const SFreePacking& packing, const SPackProgress& progress) override;
    [[nodiscard]] bool IsToStop() const override { return m_bStop || m_Sink.IsToStop(); }
    [[nodiscard]] std::optional<SFreePacking> PackingOfOthers() override;

    // On that of the messages.

    /// The best packing of the search, if it is lower than this, in units of the grid.
    [[nodiscard]] std::optional<SFreePacking> BestBelow(int64_t nHeight) const;

    /// Leaves a packing for the search, which hears of it if it is lower than its own. It takes the place of
    /// one that was not fetched yet.
    void Put(SFreePacking packing);

    /// Asks the search to end, since another rank has found that all should.
    void Stop() { m_bStop = true; }

    /// Whether this rank was asked to end, other than by another rank.
    [[nodiscard]] bool IsStopAsked() const { return m_Sink.IsToStop(); }

private:
    CPackSink& m_Sink;
    CRelaxed<bool> m_bStop = false;
    mutable std::mutex m_Mutex;  ///< guards all that follows
    std::optional<SFreePacking> m_Best;
    std::optional<SFreePacking> m_OfOthers;
};

}  // namespace nestrix
