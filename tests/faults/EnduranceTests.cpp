#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "ga/CContainer.h"
#include "tests/faults/CAllocationFault.h"
#include "tests/faults/ProcessState.h"
#include "tests/support/BenchmarkSets.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// Searches as long as an afternoon's, with an eye on the memory. The ordinary run takes a few seconds.

namespace {

constexpr size_t MEGABYTE = 1 << 20;
constexpr size_t LARGEST_GROWTH = 5 * MEGABYTE;
constexpr int POPULATION = 20;

struct SMemory {
    size_t m_nResident = faults::ResidentBytes();
    size_t m_nLive = faults::LiveBytes();
};

void ExpectFlat(const SMemory& early, const char* pWhat, long nHowMany) {
    const SMemory late;
    std::fprintf(stderr, "%ld %s: %.1f MB resident early on, %.1f MB at the end\n", nHowMany, pWhat,
                 static_cast<double>(early.m_nResident) / MEGABYTE,
                 static_cast<double>(late.m_nResident) / MEGABYTE);
    EXPECT_LE(late.m_nLive, early.m_nLive);
    // The sanitizers keep what was freed, and shadows of it.
    if (!faults::UNDER_SANITIZER) {
        EXPECT_LT(late.m_nResident, early.m_nResident + LARGEST_GROWTH);
    }
}

/// Counts the layouts of a search, takes the early measure and ends the search when there were enough.
class CLayoutCounter final : public support::CContainerSink {
public:
    CLayoutCounter(CContainer& container, long nEarly, long nEnough)
        : CContainerSink(container), m_nEarly(nEarly), m_nEnough(nEnough) {}

    void GenerationDone(int /*nGeneration*/) override {
        const long nBefore = m_nLayouts;
        m_nLayouts += std::ranges::count_if(m_Container.m_Population,
                                            [this](const CChromosome& child) { return IsNew(child); });
        m_Parents = m_Container.m_Population;
        if (nBefore < m_nEarly && m_nLayouts >= m_nEarly) {
            m_Early = SMemory();
        }
        m_Container.m_bStop = m_nLayouts >= m_nEnough;
    }

    [[nodiscard]] long Layouts() const { return m_nLayouts; }
    [[nodiscard]] const SMemory& Early() const { return m_Early; }

private:
    /// A child that equals a parent takes its fitness over and is not laid out.
    [[nodiscard]] bool IsNew(const CChromosome& child) const {
        return std::ranges::none_of(m_Parents, [&child](const CChromosome& parent) {
            return std::ranges::equal(child.Genes(), parent.Genes());
        });
    }

    long m_nEarly;
    long m_nEnough;
    long m_nLayouts = 0;
    std::vector<CChromosome> m_Parents;
    SMemory m_Early;
};

class Endurance : public testing::Test {
protected:
    void SetUp() override { g_MutationProbability = 1.0F; }
    void TearDown() override { g_MutationProbability = 0.01F; }

    const std::vector<CPolygon> m_Pieces = support::MakeBenchmarkPieces(support::BenchmarkSets()[0]);
};

TEST_F(Endurance, OfOneLongSearchTakesNoMemory) {
    const long nEnough = support::RandomCases(200'000);
    CContainer container;
    container.m_Polygons = m_Pieces;
    CLayoutCounter counter(container, nEnough / 10, nEnough);
    {
        const support::CStdoutCapture silence;
        container.RunSearch(POPULATION, 1'000'000'000, 9, counter);
    }
    EXPECT_GE(counter.Layouts(), nEnough);
    ExpectFlat(counter.Early(), "layouts of one search", counter.Layouts());
}

TEST_F(Endurance, OfManySearchesInOneContainerTakesNoMemory) {
    const int nRuns = support::RandomCases(400);
    CContainer container;
    SMemory early;
    for (int nRun = 0; nRun < nRuns; ++nRun) {
        const support::CStdoutCapture silence;
        container.Clear();
        container.m_Polygons = m_Pieces;
        CLayoutCounter counter(container, 0, 100);
        container.RunSearch(POPULATION, 1'000, static_cast<unsigned int>(nRun), counter);
        std::vector<CPolygon> placed;
        (void)support::PlaceChromosome(container, container.CopyBestChromosome(), placed, nullptr);
        ASSERT_EQ(placed.size(), m_Pieces.size());
        if (nRun == nRuns / 10) {
            early = SMemory();
        }
    }
    ExpectFlat(early, "searches in one container", nRuns);
}

}  // namespace

}  // namespace nestrix
