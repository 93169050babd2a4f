#include <benchmark/benchmark.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "certify/Certify.h"
#include "tests/support/FreePieces.h"

namespace nestrix {

namespace {

struct SCertifyCase {
    std::vector<SPiece> m_Pieces;
    SFreePacking m_Packing;
};

/// Copies of a round piece in a honeycomb, each turned otherwise: about as close as pieces can lie, and the
/// box of each meets those of six others, whose borders have to be compared.
SCertifyCase Honeycomb(int nCopies, int nVertices) {
    constexpr double RADIUS = 5.0;
    constexpr double PITCH = 2.0 * RADIUS + 0.01;  // the vertices are rounded to 1/1000
    const int nColumns = static_cast<int>(std::sqrt(static_cast<double>(nCopies)));
    SPiece piece = support::RegularPiece(nVertices, RADIUS);
    piece.m_nQuantity = nCopies;
    piece.m_Turns.m_bAny = true;
    SFreePacking packing;
    packing.m_Strip.m_Width = PITCH * (nColumns + 0.5);
    packing.m_Grid = GridFor(packing.m_Strip.m_Width);
    const auto units = [unit = packing.m_Grid.Length(1)](double length) {
        return std::llround(length / unit);
    };
    for (int i = 0; i < nCopies; ++i) {
        const int nRow = i / nColumns;
        const double x = PITCH * (i % nColumns + (nRow % 2 == 0 ? 0.5 : 1.0));
        const double y = PITCH * (0.5 + nRow * 0.5 * std::numbers::sqrt3);
        // A piece is turned about the lower left corner of its box as it was drawn.
        const double degrees = 7.0 * i;
        const double sine = std::sin(degrees * std::numbers::pi / 180.0);
        const double cosine = std::cos(degrees * std::numbers::pi / 180.0);
        packing.m_Placed.push_back(
            {0, false, degrees, {units(x - RADIUS * (cosine - sine)), units(y - RADIUS * (sine + cosine))}});
    }
    SCertifyCase result{{piece}, packing};
    result.m_Packing.m_nHeight = HeightOf(PlacedShapes(result.m_Pieces, result.m_Packing));
    return result;
}

/// The time per packing.
void CertifyHoneycomb(benchmark::State& state) {
    const SCertifyCase packed = Honeycomb(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    if (!Certify(packed.m_Pieces, packed.m_Packing).IsValid()) {
        state.SkipWithError("the packing is not valid");
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(Certify(packed.m_Pieces, packed.m_Packing).IsValid());
    }
}

BENCHMARK(CertifyHoneycomb)
    ->Name("certify")
    ->ArgNames({"pieces", "vertices"})
    ->Args({100, 16})
    ->Args({1000, 16})
    ->Args({1000, 64})
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace nestrix
