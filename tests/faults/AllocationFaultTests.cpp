#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <new>
#include <ostream>

#include "formats/PolygonFile.h"
#include "ga/CContainer.h"
#include "ga/CDecoder.h"
#include "tests/faults/CAllocationFault.h"
#include "tests/faults/ProcessState.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/Pieces.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

// No memory at the first allocation of an operation, then at the second, and so on: the operation either does
// without or throws, and leaves nothing behind.

namespace faults {

void PrintTo(EExhaustion exhaustion, std::ostream* pStream) {
    *pStream << (exhaustion == EExhaustion::Passing ? "passing" : "lasting");
}

}  // namespace faults

namespace {

using namespace support;
using faults::EExhaustion;

bool SameGenes(const CChromosome& a, const CChromosome& b) {
    return std::ranges::equal(a.Genes(), b.Genes()) && a.m_fFitness == b.m_fFitness;
}

class AllocationFault : public testing::TestWithParam<EExhaustion> {
protected:
    void SetUp() override {
        m_Path = m_Folder.Write("comb.pol", PolygonFileText(m_Comb));
        for (const EPiece piece : {EPiece::Comb, EPiece::Star, EPiece::AlignedRectangle, EPiece::Convex}) {
            CSeededRandom random(8);
            m_Pieces.push_back(MakeSizedPiece(random, piece, 12));
        }
    }

    /// Makes every allocation of `action` fail in turn. Each time: the exception arrives if there was one to
    /// throw; then `check` looks at what is left.
    /// @return the number of allocations.
    size_t Sweep(const std::function<void()>& action, const std::function<void(bool bThrown)>& check) {
        size_t nCall = 1;
        while (Strike(nCall, action, check)) {
            ++nCall;
        }
        return nCall - 1;
    }

    CTemporaryFolder m_Folder;
    const CPolygon m_Comb = [] {
        CSeededRandom random(7);
        return MakeSizedPiece(random, EPiece::Comb, 40);
    }();
    std::string m_Path;
    std::vector<CPolygon> m_Pieces;

private:
    bool Strike(size_t nCall, const std::function<void()>& action, const std::function<void(bool)>& check) {
        const faults::SProcessState before = faults::CurrentState();
        bool bCaught = false;
        bool bStruck = false;
        bool bThrown = false;
        {
            const faults::CAllocationFault fault(nCall, GetParam());
            try {
                action();
            } catch (const std::bad_alloc&) {
                bCaught = true;
            }
            bStruck = fault.HasStruck();
            bThrown = fault.HasThrown();
        }
        EXPECT_EQ(bCaught, bThrown) << "allocation " << nCall;
        if (bStruck) {
            check(bCaught);
        }
        EXPECT_EQ(faults::CurrentState(), before) << "allocation " << nCall;
        return bStruck && !HasFailure();
    }
};

TEST_P(AllocationFault, WhileReadingAFileLeavesNothingOpenAndNothingLeaked) {
    const size_t nAllocations =
        Sweep([this] { CPolygon().ReadPolygon(m_Path.c_str()); }, [](bool bThrown) { EXPECT_TRUE(bThrown); });
    EXPECT_GT(nAllocations, 10U);
    CPolygon again;
    ASSERT_TRUE(again.ReadPolygon(m_Path.c_str()));
    EXPECT_EQ(again, m_Comb);
}

TEST_P(AllocationFault, WhileJudgingAFileLeavesNothingOpenAndNothingLeaked) {
    const std::string broken = m_Folder.Write("broken.pol", "4 1,2 3,4 5;6");
    for (const std::string& path :
         {m_Path, broken, m_Folder.PathOf("missing.pol"), std::string("/dev/zero")}) {
        const std::string fault = ReadPolygonFile(path.c_str()).m_Fault;
        Sweep([&path] { (void)ReadPolygonFile(path.c_str()).m_Fault; },
              [](bool bThrown) { EXPECT_TRUE(bThrown); });
        EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Fault, fault);
    }
}

TEST_P(AllocationFault, WhileLoadingLeavesNoHalfLoadedPolygonInTheSet) {
    const std::vector<CPolygon> before = {m_Pieces[0], m_Pieces[1]};
    std::vector<CPolygon> loaded = before;
    loaded.push_back(m_Comb);
    CContainer container;
    // No spare room, so that the set itself has to grow.
    const auto restore = [&] { std::vector<CPolygon>(before).swap(container.m_Polygons); };
    restore();
    const size_t nAllocations = Sweep(
        [&] {
            if (container.AddPolygon(m_Path.c_str())) {
                container.m_Polygons.pop_back();
            }
        },
        [&](bool bThrown) {
            EXPECT_TRUE(bThrown);
            EXPECT_EQ(container.m_Polygons, before);
            ASSERT_TRUE(container.AddPolygon(m_Path.c_str()));
            EXPECT_EQ(container.m_Polygons, loaded);
            restore();
        });
    EXPECT_GT(nAllocations, 10U);
}

TEST_P(AllocationFault, WhileAChromosomeGrowsLeavesItAsItWas) {
    const CChromosome source = MakeChromosome({{0, 2, 1.5F}, {1, 1, 2.5F}, {2, 0, 3.5F}});
    const CChromosome before = MakeChromosome({{0, 7, 9.5F}});
    CChromosome target = before;
    Sweep([&] { CChromosome(target).SetGeneCount(5); }, [](bool bThrown) { EXPECT_TRUE(bThrown); });
    const faults::CAllocationFault fault(1, GetParam());
    EXPECT_THROW(target = source, std::bad_alloc);
    EXPECT_TRUE(SameGenes(target, before));
}

TEST_P(AllocationFault, WhilePlacingLeavesThePackingToBeMadeAgain) {
    CContainer container;
    container.m_Polygons = m_Pieces;
    container.PrepareEverything(1);
    const CChromosome chromosome = MakeChromosome({{0, 2, 10}, {1, 3, 20}, {2, 0, 30}, {3, 1, 15}});
    std::vector<CPolygon> expected;
    const float fExpected = support::PlaceChromosome(container, chromosome, expected, nullptr);
    const size_t nAllocations = Sweep(
        [&] {
            std::vector<CPolygon> placed(1);
            (void)support::PlaceChromosome(container, chromosome, placed, nullptr);
        },
        [&](bool) {
            EXPECT_EQ(container.m_Polygons, m_Pieces);
            std::vector<CPolygon> placed;
            EXPECT_EQ(support::PlaceChromosome(container, chromosome, placed, nullptr), fExpected);
            EXPECT_EQ(placed, expected);
        });
    EXPECT_GT(nAllocations, 30U);
}

TEST_P(AllocationFault, WhileAPlacementGrowsLeavesItAsUsableAsItWas) {
    const CChromosome few = MakeChromosome({{0, 2, 10}, {1, 3, 20}});
    CChromosome many;
    many.SetGeneCount(200);
    for (int i = 0; i < many.m_nGenes; ++i) {
        many.m_pGenes[i] = {i % 4, i, static_cast<float>(7 * i % 300)};
    }
    constexpr float TOTAL_HEIGHT = 3000.0F;
    constexpr float STRIP_WIDTH = 400.0F;
    const float fFew = CDecoder(m_Pieces, SStrip{STRIP_WIDTH}, TOTAL_HEIGHT).Evaluate(few.Genes());
    const float fMany = CDecoder(m_Pieces, SStrip{STRIP_WIDTH}, TOTAL_HEIGHT).Evaluate(many.Genes());
    const size_t nAllocations = Sweep(
        [&] {
            CDecoder decoder(m_Pieces, SStrip{STRIP_WIDTH}, TOTAL_HEIGHT);
            EXPECT_EQ(decoder.Evaluate(few.Genes()), fFew);
            try {
                EXPECT_EQ(decoder.Evaluate(many.Genes()), fMany);
            } catch (const std::bad_alloc&) {
                // The few need no more than they had.
                EXPECT_EQ(decoder.Evaluate(few.Genes()), fFew);
                throw;
            }
        },
        [](bool) {});
    EXPECT_GT(nAllocations, 20U);
}

/// A search small enough to be run a few hundred times.
class AllocationFaultInASearch : public AllocationFault {
protected:
    /// As the window does it, whatever the run before has left.
    static void Run(CContainer& container, const std::vector<CPolygon>& polygons) {
        support::CNobody nobody;
        container.Clear();
        container.m_Polygons = polygons;
        container.RunSearch(4, 3, 11, nobody);
    }

    [[nodiscard]] std::string HistoryOf(CContainer& container) const {
        return PrintedBy([&] { Run(container, m_Pieces); });
    }
};

TEST_P(AllocationFaultInASearch, LetsTheSameContainerSearchAgain) {
    CContainer container;
    const std::string history = HistoryOf(container);
    const CChromosome best = container.CopyBestChromosome();
    const auto search = [&] {
        const CStdoutCapture silence;
        Run(container, m_Pieces);
    };
    size_t nThrown = 0;
    Sweep(search, [&](bool bThrown) {
        nThrown += bThrown ? 1 : 0;
        // Waits for ever if the failed search has kept the lock.
        const CChromosome left = container.CopyBestChromosome();
        EXPECT_TRUE(bThrown || SameGenes(left, best)) << "a search that went on found something else";
        EXPECT_EQ(HistoryOf(container), history);
        EXPECT_TRUE(SameGenes(container.CopyBestChromosome(), best));
        EXPECT_EQ(container.PopulationSize(), 4);
    });
    EXPECT_GT(nThrown, 100U);
}

TEST_P(AllocationFaultInASearch, WhileItsBestIsCopiedDoesNotKeepTheLock) {
    CContainer container;
    (void)HistoryOf(container);
    const CChromosome best = container.m_BestChromosome;
    const size_t nAllocations = Sweep([&] { (void)container.CopyBestChromosome(); },
                                      [&](bool bThrown) {
                                          EXPECT_TRUE(bThrown);
                                          EXPECT_TRUE(SameGenes(container.CopyBestChromosome(), best));
                                      });
    EXPECT_EQ(nAllocations, 1U);
}

const auto EXHAUSTIONS = testing::Values(EExhaustion::Passing, EExhaustion::Lasting);

std::string ExhaustionName(const testing::TestParamInfo<EExhaustion>& info) {
    return info.param == EExhaustion::Passing ? "Passing" : "Lasting";
}

INSTANTIATE_TEST_SUITE_P(All, AllocationFault, EXHAUSTIONS, ExhaustionName);
INSTANTIATE_TEST_SUITE_P(All, AllocationFaultInASearch, EXHAUSTIONS, ExhaustionName);

}  // namespace

}  // namespace nestrix
