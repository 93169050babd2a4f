#include "tests/support/BenchmarkSets.h"

#include <array>

namespace nestrix::support {
namespace {

using enum EPiece;

constexpr std::array MIXED = {Convex, Star, Convex, Comb};
constexpr std::array RECTANGLES = {AlignedRectangle};
constexpr std::array CONVEX = {Convex};
constexpr std::array CONCAVE = {Star, Lobed};
constexpr std::array COMBS = {Comb};
constexpr std::array SOME_UPRIGHT = [] {
    std::array<EPiece, 40> pieces{};
    for (size_t i = 0; i < pieces.size(); ++i) {
        pieces[i] = CONCAVE[i % CONCAVE.size()];
    }
    pieces[3] = Comb;
    return pieces;
}();

constexpr std::array SETS = {
    SBenchmarkSet{{"mixed", MIXED, 16}, 25},       SBenchmarkSet{{"rectangles", RECTANGLES, 4}, 100},
    SBenchmarkSet{{"convex", CONVEX, 16}, 100},    SBenchmarkSet{{"concave", CONCAVE, 64}, 100},
    SBenchmarkSet{{"concave", CONCAVE, 16}, 1000}, SBenchmarkSet{{"combs", COMBS, 16}, 100},
};

constexpr SBenchmarkSet HANGING_SET = {{"some-upright", SOME_UPRIGHT, 16}, 1000};

constexpr std::array SEARCHES = {
    SBenchmarkSearch{SETS[4], 4, 3},   SBenchmarkSearch{HANGING_SET, 4, 3}, SBenchmarkSearch{SETS[1], 40, 20},
    SBenchmarkSearch{SETS[0], 50, 40}, SBenchmarkSearch{SETS[2], 20, 10},   SBenchmarkSearch{SETS[3], 20, 10},
};

}  // namespace

std::span<const SBenchmarkSet> BenchmarkSets() {
    return SETS;
}

const SBenchmarkSet& HangingSet() {
    return HANGING_SET;
}

std::span<const SBenchmarkSearch> BenchmarkSearches() {
    return SEARCHES;
}

std::vector<CPolygon> MakeBenchmarkPieces(const SBenchmarkKind& kind, int nPieces) {
    constexpr uint64_t SEED = 20;
    CSeededRandom random(SEED);
    std::vector<CPolygon> pieces;
    for (size_t i = 0; i < static_cast<size_t>(nPieces); ++i) {
        pieces.push_back(MakeSizedPiece(random, kind.m_Pieces[i % kind.m_Pieces.size()], kind.m_nVertices));
    }
    return pieces;
}

}  // namespace nestrix::support
