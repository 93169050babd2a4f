#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <thread>

#include "ga/CContainer.h"
#include "tests/support/BenchmarkSets.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

// A search on one thread while another does all that a window may do meanwhile. The thread sanitizer watches.

namespace {

using namespace std::chrono_literals;

/// Counts the generations where another thread can see it.
class CCounter final : public support::CContainerSink {
public:
    using CContainerSink::CContainerSink;

    void GenerationDone(int nGeneration) override {
        m_nDone = nGeneration + 1;
        m_nDone.notify_all();
    }

    std::atomic<int> m_nDone = 0;
};

class SearchOnAThread : public testing::Test {
protected:
    static constexpr int POPULATION = 8;
    static constexpr int PIECES = 12;
    static constexpr int ENDLESS = 1'000'000'000;

    void SetUp() override {
        m_Container.m_Polygons = support::MakeBenchmarkPieces(support::BenchmarkSets()[0].m_Kind, PIECES);
    }

    void TearDown() override {
        m_Container.m_bStop = true;
        if (m_Thread.joinable()) {
            m_Thread.join();
        }
        g_MutationProbability = 0.01F;
        if (HasFailure()) {
            const std::string text = m_Silence.Text();  // the failures' own words are in it
            std::fputs(text.c_str() + (text.size() > 4000 ? text.size() - 4000 : 0), stderr);
        }
    }

    void Start(int nGenerations) {
        m_Thread = std::thread([this, nGenerations] {
            m_Container.RunSearch(POPULATION, nGenerations, 1, m_Counter);
            m_bReturned = true;
        });
    }

    void WaitForGeneration(int nGeneration) {
        for (int nDone = m_Counter.m_nDone; nDone <= nGeneration; nDone = m_Counter.m_nDone) {
            m_Counter.m_nDone.wait(nDone);
        }
    }

    const support::CStdoutCapture m_Silence;  ///< before the thread that prints, so that it outlives it
    CContainer m_Container;
    CCounter m_Counter{m_Container};
    std::thread m_Thread;
    std::atomic<bool> m_bReturned = false;
};

TEST_F(SearchOnAThread, ReturnsSoonAfterAnotherThreadAsksItToStop) {
    Start(ENDLESS);
    WaitForGeneration(3);
    m_Container.m_bStop = true;
    m_Thread.join();
    EXPECT_TRUE(m_bReturned);
    EXPECT_GE(m_Counter.m_nDone, 4);
    EXPECT_EQ(m_Container.m_Population.size(), static_cast<size_t>(POPULATION));
}

TEST_F(SearchOnAThread, StopsWhateverTheMomentOfTheRequest) {
    for (int nRound = 0; nRound < 50; ++nRound) {
        m_Container.m_Population.clear();
        m_Counter.m_nDone = 0;
        m_Container.m_bStop = false;
        Start(ENDLESS);
        WaitForGeneration(nRound % 5);
        std::this_thread::sleep_for(nRound * 7us);
        m_Container.m_bStop = true;
        m_Thread.join();
        ASSERT_EQ(m_Container.m_Population.size(), static_cast<size_t>(POPULATION));
    }
}

TEST_F(SearchOnAThread, HandsOutWholeBestChromosomesAllTheTime) {
    Start(ENDLESS);
    WaitForGeneration(0);
    std::vector<CPolygon> placed;
    float fBefore = m_Container.CopyBestChromosome().m_fFitness;
    for (int i = 0; i < 2000 || m_Counter.m_nDone < 50; ++i) {
        const CChromosome best = m_Container.CopyBestChromosome();
        ASSERT_EQ(best.m_nGenes, PIECES);
        // The fitness belongs to these genes and to no others.
        ASSERT_EQ(support::PlaceChromosome(m_Container, best, placed, nullptr), best.m_fFitness);
        ASSERT_GE(best.m_fFitness, fBefore);
        fBefore = best.m_fFitness;
    }
}

TEST_F(SearchOnAThread, BearsEveryReadAndWriteThatAWindowMakes) {
    Start(ENDLESS);
    WaitForGeneration(0);
    for (int i = 0; i < 20'000 || m_Counter.m_nDone < 50; ++i) {
        g_MutationProbability = static_cast<float>(i % 100) / 100.0F;
        ASSERT_EQ(m_Container.PopulationSize(), POPULATION);
        ASSERT_LE(m_Container.m_fWorstFitness, m_Container.m_fBestFitness);
        ASSERT_GT(m_Container.m_fTotalHeight, 0.0F);
        ASSERT_LT(m_Container.m_fAverageFitness, m_Container.m_fTotalHeight);
        ASSERT_EQ(m_Container.m_Polygons.size(), static_cast<size_t>(PIECES));
    }
    EXPECT_FALSE(m_bReturned);
}

TEST_F(SearchOnAThread, RunsToItsEndUnderRequestsThatComeToNothing) {
    // Another thread reads the request all the time and never makes it.
    Start(300);
    while (!m_bReturned) {
        ASSERT_FALSE(m_Container.m_bStop);
        std::this_thread::yield();
    }
    EXPECT_EQ(m_Counter.m_nDone, 301);
}

TEST_F(SearchOnAThread, HasTheSameHistoryAsOnTheMainThread) {
    Start(50);
    m_Thread.join();
    const CChromosome best = m_Container.m_BestChromosome;
    CContainer again;
    again.m_Polygons = m_Container.m_Polygons;
    CCounter counter(again);
    again.RunSearch(POPULATION, 50, 1, counter);
    EXPECT_EQ(again.m_BestChromosome.m_fFitness, best.m_fFitness);
    EXPECT_TRUE(std::equal(best.Genes().begin(), best.Genes().end(), again.m_BestChromosome.Genes().begin()));
}

/// Very many pieces of which only the first and the last count: how good a chromosome is can be told from two
/// of its genes, and a chromosome copied while it was replaced gives itself away.
class BestOfManyGenes : public SearchOnAThread {
protected:
    void SetUp() override {
        m_Two.m_Polygons = {support::MakePolygon({{0, 0, 0}, {300, 0, 0}, {300, 70, 0}}),
                            support::MakePolygon({{0, 0, 0}, {300, 90, 0}, {0, 90, 0}})};
        m_Two.PrepareEverything(0);
        m_Container.m_Polygons.assign(12'000, CPolygon());
        m_Container.m_Polygons.front() = m_Two.m_Polygons.front();
        m_Container.m_Polygons.back() = m_Two.m_Polygons.back();
    }

    [[nodiscard]] bool IsWhole(const CChromosome& chromosome) const {
        CChromosome two;
        two.SetGeneCount(2);
        two.m_pGenes[0] = chromosome.Genes().front();
        two.m_pGenes[1] = chromosome.Genes().back();
        two.m_pGenes[1].m_nPolygon = 1;
        std::vector<CPolygon> placed;
        return support::PlaceChromosome(m_Two, two, placed, nullptr) == chromosome.m_fFitness;
    }

    CContainer m_Two;
};

TEST_F(BestOfManyGenes, IsNeverCopiedWhileItIsReplaced) {
    m_Thread = std::thread([this] {
        m_Container.RunSearch(100, 0, 1, m_Counter);
        m_bReturned = true;
    });
    while (!m_bReturned) {
        m_Container.m_fBestFitness =
            -std::numeric_limits<float>::infinity();  // so that the next one is better
        const CChromosome best = m_Container.CopyBestChromosome();
        ASSERT_TRUE(best.m_nGenes == 0 || IsWhole(best));
    }
}

}  // namespace

}  // namespace nestrix
