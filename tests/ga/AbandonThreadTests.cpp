#include <gtest/gtest.h>
#include <pthread.h>
#include <time.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <ostream>
#include <string_view>
#include <thread>

#include "ga/CContainer.h"
#include "ga/CDecoder.h"
#include "ga/Genes.h"
#include "packing/drop/CProfileSet.h"
#include "tests/support/Outlines.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/UnderSanitizer.h"

namespace nestrix {

// Steps of a search that take seconds each, abandoned in the middle.

namespace {

using namespace support;
using namespace std::chrono_literals;

/// Something that takes seconds with these pieces, over and over until the search is abandoned.
struct SLongStep {
    std::string_view m_Name;
    std::function<std::vector<CPolygon>()> m_MakePieces;
    std::function<void(CContainer&)> m_Run;
};

void PrintTo(const SLongStep& step, std::ostream* pStream) {
    *pStream << step.m_Name;
}

void MakeChromosomes(CContainer& container) {
    container.PrepareEverything(1);
    while (!container.m_bAbandoned) {
        RandomiseGenes(container.m_Population, container.m_Polygons.size(), 400.0F, &container.m_bAbandoned);
    }
}

void PrepareProfiles(CContainer& container) {
    while (CProfileSet(container.m_Polygons, 400.0F, &container.m_bAbandoned).IsComplete()) {
    }
}

/// One piece after the other, in two offsets by turns.
void PlacePieces(CContainer& container) {
    CChromosome chromosome;
    chromosome.SetGeneCount(static_cast<int>(container.m_Polygons.size()));
    for (SGene& gene : chromosome.Genes()) {
        gene.m_nOrder = gene.m_nPolygon;
        gene.m_fX = gene.m_nPolygon % 2 == 0 ? 0.0F : 0.3F;
    }
    CDecoder decoder(container.m_Polygons, SStrip{400.0F}, 1e6F, &container.m_bAbandoned);
    while (!container.m_bAbandoned) {
        (void)decoder.Evaluate(chromosome.Genes());
    }
}

/// A round piece of very many vertices.
CPolygon MakeDisc(int nVertices) {
    CSeededRandom random(1);
    return MakePolygon(ConvexOutline(random, nVertices, 300, 300));
}

/// Takes every drop the long way: nothing is known about sets with numbers as large as its.
CPolygon MakeBeyond() {
    return MakePolygon({{0, 0, 0}, {1, 0, 0}, {1, 1e19F, 0}}, {0, 0, 0}, {1, 1, 0});
}

/// A flat bottom of very many vertices.
CPolygon MakeBrush(int nVertices) {
    Outline outline;
    for (int i = 0; i < nVertices; ++i) {
        outline.push_back({250.0F * static_cast<float>(i) / static_cast<float>(nVertices), 0, 0});
    }
    outline.push_back({125, 50, 0});
    return MakePolygon(outline);
}

/// Under a lid very many long edges whose ends look out at the sides: each belongs to the upper profile, and
/// each lies under every vertex that comes to rest on the lid.
CPolygon MakeStack(int nEdges) {
    Outline outline = {{340, 100, 0}, {40, 100, 0}};
    for (int i = 1; i <= nEdges; ++i) {
        const float fOut = 39.0F * static_cast<float>(i) / static_cast<float>(nEdges);
        const float fUp = 80.0F - fOut;
        outline.push_back({340 + fOut, fUp, 0});
        outline.push_back({40 - fOut, fUp, 0});
    }
    return MakePolygon(outline, {0, 0, 0}, {380, 100, 0});
}

/// An arch: all of its lower edges are of its lower profile, but only its feet are of the profile's vertices,
/// since it rises less and less. In whole numbers, which are not rounded.
CPolygon MakeArch(int nVertices) {
    Outline outline;
    float fTop = 0.0F;
    for (int i = 0; i < nVertices; ++i) {
        outline.push_back({static_cast<float>(i) * 0x1p-5F, fTop, 0});
        fTop += static_cast<float>(nVertices / 2 - i);
    }
    outline.push_back({outline.back().x, 1e7F, 0});
    outline.push_back({0, 1e7F, 0});
    return MakePolygon(outline);
}

const std::vector<SLongStep> LONG_STEPS = {
    {"MakingAChromosome", [] { return std::vector(400'000, MakeSquare(10)); }, MakeChromosomes},
    {"PreparingProfiles", [] { return std::vector(1500, MakeDisc(1500)); }, PrepareProfiles},
    {"DroppingManyPieces", [] { return std::vector(200'000, MakeRectangle(20, 30)); }, PlacePieces},
    {"WalkingOntoManyVertices",
     [] {
         return std::vector{MakeBeyond(), MakeDisc(100'000), MakeDisc(100'000)};
     },
     PlacePieces},
    {"WalkingOntoManyEdges",
     [] {
         return std::vector{MakeBeyond(), MakeDisc(400'000), MakeArch(8'000)};
     },
     PlacePieces},
    {"SweepingManyEdges",
     [] {
         return std::vector{MakeStack(30'000), MakeBrush(60'000), MakeStack(30'000), MakeBrush(60'000)};
     },
     PlacePieces},
};

class LongStep : public testing::TestWithParam<SLongStep> {
protected:
    /// The processor's time that the search has taken, since the machine may have other things to do.
    [[nodiscard]] double SecondsSpent() {
        clockid_t clock = 0;
        timespec time = {};
        pthread_getcpuclockid(m_Thread.native_handle(), &clock);
        clock_gettime(clock, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    void TearDown() override {
        m_bLeave = true;
        m_Container.m_bAbandoned = true;
        if (m_Thread.joinable()) {
            m_Thread.join();
        }
    }

    void Start() {
        m_Thread = std::thread([this] {
            GetParam().m_Run(m_Container);
            m_bReturned = true;
            while (!m_bLeave) {
                std::this_thread::sleep_for(1ms);  // so that there is still a thread to ask
            }
        });
    }

    CContainer m_Container;
    std::thread m_Thread;
    std::atomic<bool> m_bReturned = false;
    std::atomic<bool> m_bLeave = false;
};

TEST_P(LongStep, IsLeftAtOnceWhenTheSearchIsAbandoned) {
    m_Container.m_Polygons = GetParam().m_MakePieces();
    Start();
    while (SecondsSpent() < 0.3) {
        std::this_thread::sleep_for(1ms);
    }
    ASSERT_FALSE(m_bReturned);
    const double before = SecondsSpent();
    m_Container.m_bAbandoned = true;
    while (!m_bReturned) {
        std::this_thread::sleep_for(1ms);
    }
    EXPECT_LT(SecondsSpent() - before, AT_FULL_SPEED ? 0.2 : 2.0);
}

INSTANTIATE_TEST_SUITE_P(All, LongStep, testing::ValuesIn(LONG_STEPS),
                         [](const auto& test) { return std::string(test.param.m_Name); });

}  // namespace

}  // namespace nestrix
