// Each rank tells the others of packings, and hears of the best of all. Started by MPI; 0 if all went well.

#include <cstdio>
#include <thread>

#include "mpi/CMessenger.h"

using namespace nestrix;

namespace {

constexpr SFreeStrip STRIP{30.0, 1.0, 2.0};

class CSilentSink final : public CPackSink {
public:
    void BetterPacking(const SFreePacking&, const SPackProgress&) override {}
    [[nodiscard]] bool IsToStop() const override { return false; }
};

/// So large that it does not fit into one of MPI's own buffers, which could be sent without being fetched.
SFreePacking PackingOf(int nRank, int64_t nHeight) {
    SFreePacking packing{STRIP, GridFor(STRIP.m_Width), {}, nHeight};
    for (int i = 0; i < 5000; ++i) {
        packing.m_Placed.push_back({nRank, i % 2 == 0, 0.1 * i, {-i, int64_t{i} << 40}});
    }
    return packing;
}

bool Expect(bool bTrue, int nRank, char const* pWhat) {
    if (!bTrue) {
        std::fprintf(stderr, "rank %d: %s\n", nRank, pWhat);
    }
    return bTrue;
}

bool TellAround(const CRanks& ranks) {
    const int nBest = ranks.Count() - 1;
    CSilentSink sink;
    CMailbox mailbox(sink);
    CMessenger messenger(ranks, STRIP);
    // The later the lower: only the last one has nothing to hear.
    const SFreePacking own = PackingOf(ranks.Rank(), 1000 - ranks.Rank());
    mailbox.BetterPacking(own, {});
    std::optional<SFreePacking> heard;
    const auto pause = [&] {
        messenger.Exchange(mailbox);
        if (std::optional<SFreePacking> packing = mailbox.PackingOfOthers()) {
            heard = std::move(packing);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    };
    // Half of the others' farewells end all; nobody says it before it has heard of the best.
    pause();
    while (ranks.Rank() != nBest && heard != PackingOf(nBest, 1000 - nBest)) {
        pause();
    }
    messenger.Leave({ranks.Rank() % 2 == 1, EPackEnd::TARGET, 7, own});
    while (!messenger.HaveAllLeft()) {
        pause();
    }
    bool bGood = Expect(ranks.Rank() != nBest || !heard, ranks.Rank(), "was told of what is no better") &&
                 Expect(mailbox.IsToStop(), ranks.Rank(), "was not told to end");
    int64_t nLowest = own.m_nHeight;
    for (const SFarewell& farewell : messenger.Farewells()) {
        bGood = Expect(farewell.m_nSteps == 7 && farewell.m_Reason == EPackEnd::TARGET, ranks.Rank(),
                       "was told another farewell") &&
                Expect(farewell.m_Packing.has_value() == (ranks.Rank() == 0), ranks.Rank(),
                       "only the first rank gathers packings") &&
                bGood;
        nLowest = farewell.m_Packing ? std::min(nLowest, farewell.m_Packing->m_nHeight) : nLowest;
    }
    return Expect(ranks.Rank() > 0 || nLowest == 1000 - nBest, ranks.Rank(), "does not gather the best") &&
           bGood;
}

}  // namespace

int main(int argc, char** argv) {
    const CRanks ranks(argc, argv);
    return Expect(ranks.Count() == 4, ranks.Rank(), "started with another number of ranks") &&
                   TellAround(ranks)
               ? 0
               : 1;
}
