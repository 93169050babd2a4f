#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "packing/SFreePacking.h"

namespace nestrix {

/// When a search ends, whichever comes first; without any limit, only the sink ends it.
struct SPackLimits {
    std::optional<double> m_Seconds;        ///< since the search began
    std::optional<uint64_t> m_nSteps;       ///< moves of pieces, those of all threads together
    std::optional<double> m_TargetHeight;   ///< in the units of the strip
    std::optional<double> m_TargetDensity;  ///< 0 to 1
    std::optional<double> m_Patience;       ///< seconds without a better packing
};

/// How to search, and for how long.
struct SPackSettings {
    uint64_t m_nSeed = 1;
    int m_nThreads = 1;
    bool m_bUseHoles = true;  ///< pieces may lie in holes of others
    SPackLimits m_Limits;
    const SFreePacking* m_pStart = nullptr;  ///< an earlier packing to begin with, valid or not, of any
                                             ///< subset of the pieces; null for none
};

/// A search in numbers.
struct SPackProgress {
    double m_Seconds = 0.0;  ///< since it began
    uint64_t m_nSteps = 0;
    double m_Density = 0.0;  ///< of the best packing, 0 to 1
};

/// Hears of a free search and tells it when to end.
class CPackSink {
public:
    /// There is a better packing, certified. On a thread of the search, never on two at once.
    virtual void BetterPacking(const SFreePacking& packing, const SPackProgress& progress) = 0;

    /// Whether the search is to end with what it has. Asked often, on any thread of the search.
    [[nodiscard]] virtual bool IsToStop() const = 0;

    /// A packing of the same pieces in the same strip that another search has found, if there is a new one:
    /// it is gone on from if it is valid and better. Asked when the threads of the search meet, on one of
    /// them. What a search is given cannot be repeated; one that is given nothing finds what it finds by
    /// itself.
    [[nodiscard]] virtual std::optional<SFreePacking> PackingOfOthers() { return std::nullopt; }

protected:
    ~CPackSink() = default;
};

/// A piece that cannot be packed, and why, in words for a user.
struct SUnfitPiece {
    int m_nPiece = 0;
    std::string m_Reason;
};

enum class EPackEnd { STEPS, SECONDS, TARGET, PATIENCE, STOPPED, NOTHING_TO_GAIN, UNFIT };

/// What a search ended with, and how.
struct SPackResult {
    std::vector<SUnfitPiece> m_Unfit;       ///< if there are any, nothing was searched
    std::optional<SFreePacking> m_Packing;  ///< the best, certified; absent only where pieces are unfit
    uint64_t m_nSteps =
        0;  ///< as a limit of steps, with the same seed and threads, it gives the same packing
    double m_Seconds = 0.0;
    EPackEnd m_eEnd = EPackEnd::STEPS;
};

/// Names what can never lie in the strip, in any turn allowed, or has no sound outline: too few points, no
/// inside, an outline that crosses itself, holes that cross or lie outside, numbers that are not finite.
[[nodiscard]] std::vector<SUnfitPiece> FindUnfitPieces(std::span<const SPiece> pieces,
                                                       const SFreeStrip& strip);

/// Packs all copies of all pieces into the strip, as low as it can. The first packing is there at once;
/// better ones are reported as they are found. Pieces with quantity 0 are left out.
///
/// The same pieces, strip, seed, threads and number of steps give the same packing, bit for bit, on every
/// machine. Several searches can run at once.
[[nodiscard]] SPackResult PackFreely(std::span<const SPiece> pieces, const SFreeStrip& strip,
                                     const SPackSettings& settings, CPackSink& sink);

}  // namespace nestrix
