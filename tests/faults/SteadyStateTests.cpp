#include <gtest/gtest.h>

#include <ostream>

#include "ga/CContainer.h"
#include "tests/faults/CAllocationFault.h"
#include "tests/support/BenchmarkSets.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"

namespace nestrix {

// Once a search has its working storage, it breeds, drops and reports without a single call of operator new.
// What the C library takes for itself is not counted: its qsort borrows a buffer from 64 genes on.

namespace support {

void PrintTo(const SBenchmarkSet& set, std::ostream* pStream) {
    *pStream << set.m_Kind.m_Name << ' ' << set.m_nPieces;
}

}  // namespace support

namespace {

/// Notes how many blocks there have been by each generation.
class CBlockLog final : public support::CSilentSink {
public:
    explicit CBlockLog(int nGenerations) { m_Blocks.reserve(static_cast<size_t>(nGenerations) + 1); }

    void GenerationDone(int /*nGeneration*/) override { m_Blocks.push_back(faults::BlocksSoFar()); }

    std::vector<size_t> m_Blocks;
};

class SteadyState : public testing::TestWithParam<support::SBenchmarkSet> {
protected:
    void TearDown() override { g_MutationProbability = 0.01F; }
};

TEST_P(SteadyState, AllocatesNothing) {
    const int nGenerations = GetParam().m_nPieces > 100 ? 6 : 40;
    CContainer container;
    container.m_Polygons = support::MakeBenchmarkPieces(GetParam());
    g_MutationProbability = 0.5F;
    CBlockLog log(nGenerations);
    {
        const support::CStdoutCapture silence;
        container.RunSearch(6, nGenerations, 5, log);
    }
    ASSERT_EQ(log.m_Blocks.size(), static_cast<size_t>(nGenerations) + 1);
    EXPECT_EQ(log.m_Blocks.back(), log.m_Blocks[0]);
}

INSTANTIATE_TEST_SUITE_P(All, SteadyState,
                         testing::ValuesIn(support::BenchmarkSets().begin(), support::BenchmarkSets().end()),
                         [](const auto& test) {
                             return std::string(test.param.m_Kind.m_Name) +
                                    std::to_string(test.param.m_nPieces);
                         });

}  // namespace

}  // namespace nestrix
