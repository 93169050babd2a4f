#pragma once

#include <optional>
#include <span>
#include <vector>

#include "nest/CCompactor.h"
#include "nest/CFailures.h"
#include "nest/CLayout.h"
#include "nest/CSeparator.h"

namespace nestrix {

/// Less than this share of a height is no gain.
inline constexpr double LEAST_GAIN = 1e-5;

/// What is done to find a packing.
struct SEffort {
    SPatience m_Patience;
    /// Layouts that overlap more than so much of the items' size on an average are not compacted; many items
    /// wait for less.
    double m_MostOverlap = 0.025;
};

/// Where a search has only begun, layouts of much overlap come near the best, too.
inline constexpr SEffort BEGINNING{{40, 1}, 0.1};

/// Turns layouts that overlap into packings: separates them piece by piece in a strip of a given height, and
/// on the way compacts those that overlap little. What comes out may be lower than all before, though not as
/// low as was asked for.
class CPackingFinder {
public:
    CPackingFinder(const CPackProblem& problem, CFieldTable& fields, std::span<const SPlace> places,
                   CRandom& random, CStepCounter& steps);

    /// From now on items are tried in all their versions, or in the main ones only.
    void TryAllVersions(bool bAll) { m_Layout.TryAllVersions(bAll); }

    /// @param places where to begin; what sticks out of the strip is put back.
    /// @param height of the strip to separate in.
    /// @param lowEnough the height below which the first packing found is taken.
    /// @return the lowest packing found; nothing if there was none. Takes a step by itself: where nothing
    /// overlaps, there are no others.
    [[nodiscard]] std::optional<SSolution> Find(std::span<const SPlace> places, double height,
                                                const SEffort& effort, double lowEnough);

    /// What the last search left if it found nothing low enough: of all layouts that it came through, the
    /// one that overlapped least.
    [[nodiscard]] SFailure Failure() { return {m_Separator.MeasureOverlap(), m_Layout.Places()}; }

private:
    void Compact();
    [[nodiscard]] bool Keep(const std::vector<SPlace>& places);

    CStepCounter& m_Steps;
    CLayout m_Layout;
    CSeparator m_Separator;
    CCompactor m_Compactor;
    double m_WholeOverlap;  ///< if each item overlapped as much as it is large
    double m_Reach;         ///< of the items in one compaction
    std::optional<SSolution> m_Found;
};

}  // namespace nestrix
