#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "tests/support/Pieces.h"

namespace nestrix::support {

/// A kind of generated set, for any number of pieces. Pieces measure 20 to 60 units whatever their number, so
/// that a larger set grows taller in its strip, not wider or finer.
struct SBenchmarkKind {
    std::string_view m_Name;
    std::span<const EPiece> m_Pieces;  ///< taken in turn
    int m_nVertices;
};

/// A benchmark set: a kind with its usual number of pieces.
struct SBenchmarkSet {
    SBenchmarkKind m_Kind;
    int m_nPieces;
};

/// Mixed 25 × 16, rectangles 100 × 4, convex 100 × 16, concave 100 × 64, concave 1000 × 16; and
/// combs 100 × 16, whose many vertical sides are the hardest case for a quick drop.
[[nodiscard]] std::span<const SBenchmarkSet> BenchmarkSets();

/// 1,000 concave pieces of 16 vertices, one in forty of them a comb: some of its layouts have a piece that
/// hangs where it started, and then hundreds that it holds up; others have none.
[[nodiscard]] const SBenchmarkSet& HangingSet();

/// A whole search over a benchmark set.
struct SBenchmarkSearch {
    SBenchmarkSet m_Set;
    int m_nPopulation;
    int m_nGenerations;
};

/// Searches whose cost lies in their first generations: of the benchmark sets but the combs, and of the
/// hanging set.
[[nodiscard]] std::span<const SBenchmarkSearch> BenchmarkSearches();

/// The same pieces for the same kind and number, on every machine.
[[nodiscard]] std::vector<CPolygon> MakeBenchmarkPieces(const SBenchmarkKind& kind, int nPieces);

/// The benchmark set's own pieces.
[[nodiscard]] inline std::vector<CPolygon> MakeBenchmarkPieces(const SBenchmarkSet& set) {
    return MakeBenchmarkPieces(set.m_Kind, set.m_nPieces);
}

}  // namespace nestrix::support
