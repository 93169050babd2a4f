#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <ostream>

#include "base/NumberText.h"
#include "tests/nest/CPackingLog.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

// Packings kept in golden/, which every compiler gives at every level. Where a search is meant to find others
// than before, write the files anew by running these tests with NESTRIX_WRITE_GOLDEN in the environment, and
// say in the commit why.

namespace {

using support::Copies;

struct SGoldenPacking {
    std::string m_Name;
    std::vector<SPiece> m_Pieces;
    SFreeStrip m_Strip;
    uint64_t m_nSteps;
    int m_nThreads = 1;
};

void PrintTo(const SGoldenPacking& golden, std::ostream* pStream) {
    *pStream << golden.m_Name;
}

std::vector<SPiece> AtAnyAngle(std::vector<SPiece> pieces) {
    for (SPiece& piece : pieces) {
        piece.m_Turns.m_bAny = true;
        piece.m_bMirrored = true;
    }
    return pieces;
}

/// More items than one corner fitting or one linear program for few looks at.
std::vector<SPiece> ManyPieces() {
    return {Copies(support::RightTriangle(9, 14), 60, {0.0, 180.0}), Copies(support::Comb(3), 10),
            Copies(support::Flower(5), 50, {0.0, 90.0, 180.0, 270.0}),
            Copies(support::LetterL(12), 120, {0.0, 90.0})};
}

std::vector<SGoldenPacking> GoldenPackings() {
    return {{"mixed", support::MixedSet(), {90.0, 0.5, 1.0}, 4000},
            {"touching", support::MixedSet(), {80.0, 0.0, 0.0}, 4000},
            {"puzzle", support::Puzzle(), {60.0, 0.0, 0.0}, 100},
            {"any-angle", AtAnyAngle(support::MixedSet()), {90.0, 0.25, 0.0}, 2000},
            {"turned", support::TurnedSet(), {70.0, 0.0, 0.5}, 2000},
            {"many", ManyPieces(), {200.0, 0.0, 0.0}, 2000},
            {"three-threads", support::MixedSet(), {90.0, 0.0, 0.0}, 9000, 3}};
}

std::string TextOf(const SPackResult& result) {
    const SFreePacking& packing = *result.m_Packing;
    std::string text = "grid 10^" + std::to_string(packing.m_Grid.m_nExponent) + ", height " +
                       std::to_string(packing.m_nHeight) + ", steps " + std::to_string(result.m_nSteps) +
                       "\n";
    for (const SFreePlacement& placement : packing.m_Placed) {
        text += std::to_string(placement.m_nPiece) + (placement.m_bMirrored ? " mirrored" : "") + " turned " +
                ShortestDigits(placement.m_Degrees) + " at " + std::to_string(placement.m_At.m_nX) + " " +
                std::to_string(placement.m_At.m_nY) + "\n";
    }
    return text;
}

}  // namespace

class GoldenPacking : public testing::TestWithParam<SGoldenPacking> {};

TEST_P(GoldenPacking, IsFoundToTheLastUnit) {
    const SGoldenPacking& golden = GetParam();
    const std::string found = TextOf(support::PackAndExamine(
        golden.m_Pieces, golden.m_Strip, support::StepSettings(golden.m_nSteps, golden.m_nThreads)));
    const std::string path = "golden/" + golden.m_Name + ".txt";
    if (std::getenv("NESTRIX_WRITE_GOLDEN") != nullptr) {
        std::ofstream(path) << found;
    }
    EXPECT_EQ(found, support::ReadFile(path));
}

INSTANTIATE_TEST_SUITE_P(All, GoldenPacking, testing::ValuesIn(GoldenPackings()), [](const auto& test) {
    std::string name = test.param.m_Name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

}  // namespace nestrix
