#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "ga/CContainer.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

// The engine's only output is standard output. Where nothing can be written there, a search still finds what
// it would have found. Each test ends in a process of its own, since a stream never forgets an error.

namespace {

class CLastHeard final : public support::CSilentSink {
public:
    void GenerationDone(int nGeneration) override { m_nLast = nGeneration; }

    int m_nLast = -1;
};

constexpr int GENERATIONS = 200;  // more lines than fit into a stream's buffer

CChromosome BestOfASearch() {
    CContainer container;
    container.m_Polygons.assign(6, support::MakeRectangle(120, 40));
    CLastHeard heard;
    container.RunSearch(6, GENERATIONS, 3, heard);
    return heard.m_nLast == GENERATIONS ? container.CopyBestChromosome() : CChromosome();
}

CChromosome ExpectedBest() {
    const support::CStdoutCapture silence;
    return BestOfASearch();
}

/// Leaves with 0 if the search found the same and standard output did fail.
[[noreturn]] void SearchAndLeave(const CChromosome& expected) {
    const CChromosome best = BestOfASearch();
    const bool bFailed = std::fflush(stdout) != 0 || std::ferror(stdout) != 0;
    const bool bSame = best.m_nGenes > 0 && std::ranges::equal(best.Genes(), expected.Genes());
    std::_Exit(bFailed && bSame ? 0 : 1);
}

TEST(SearchWithAFullDisk, FindsTheSame) {
    const CChromosome expected = ExpectedBest();
    EXPECT_EXIT(
        {
            dup2(open("/dev/full", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
            SearchAndLeave(expected);
        },
        testing::ExitedWithCode(0), "");
}

TEST(SearchWithoutStandardOutput, FindsTheSame) {
    const CChromosome expected = ExpectedBest();
    EXPECT_EXIT(
        {
            close(STDOUT_FILENO);
            SearchAndLeave(expected);
        },
        testing::ExitedWithCode(0), "");
}

TEST(MissingPolygonFileWithAFullDisk, IsStillRefused) {
    EXPECT_EXIT(
        {
            dup2(open("/dev/full", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
            std::setvbuf(stdout, nullptr, _IONBF, 0);
            CContainer container;
            const bool bRefused = !container.AddPolygon("missing.pol") && container.m_Polygons.empty();
            std::_Exit(bRefused && std::ferror(stdout) != 0 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace

}  // namespace nestrix
