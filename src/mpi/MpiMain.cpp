#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "base/CRelaxed.h"
#include "base/ProgramVersion.h"
#include "batch/CStopSignals.h"
#include "batch/Complaints.h"
#include "batch/ExitStatus.h"
#include "batch/PackCommand.h"
#include "batch/RunProgram.h"
#include "mpi/SearchTogether.h"

using namespace nestrix;

namespace {

constexpr SPackHelp HELP{
    "mpirun nestrix-mpi", "Packs pieces into a strip, as low as it can, with all processes that MPI starts.",
    "Each rank searches on its own, and now and then they tell each other their best packings, so that no\n"
    "command repeats a search. Files are read and written by the first rank only. SIGTERM ends all, and the\n"
    "best packing so far is the result. Lengths are millimetres as soon as one input has a unit.",
    true};

/// Only asks for an end.
class CFollowerSink final : public CPackSink {
public:
    explicit CFollowerSink(const CRelaxed<bool>& stop) : m_Stop(stop) {}

    void BetterPacking(const SFreePacking&, const SPackProgress&) override {}
    [[nodiscard]] bool IsToStop() const override { return m_Stop; }

private:
    const CRelaxed<bool>& m_Stop;
};

/// The first rank: packs as nestrix-batch does, and has the others search with it.
class CLeader {
public:
    explicit CLeader(const CRanks& ranks) : m_Ranks(ranks) {}

    int Run(int argc, char** argv) {
        if (argc > 1 && std::string_view(argv[1]) == "--version") {
            std::printf("nestrix-mpi %s\n", ProgramVersion());
            return BATCH_DONE;
        }
        const SPacker packer{
            HELP, m_Ranks.Count(),
            [this](std::span<const SPiece> pieces, const SFreeStrip& strip, const SPackSettings& settings,
                   CPackSink& sink) { return Search(pieces, strip, settings, sink); }};
        return RunPackCommand({argv[0], {argv + 1, argv + argc}}, packer);
    }

    /// Lets the others go: those that are still waiting for something to do, or for their last words to be
    /// taken.
    void Dismiss() {
        if (m_Messenger) {
            WaitForOthers(*m_Messenger);
        } else {
            CWords nothing;
            m_Ranks.Broadcast(nothing);
        }
    }

private:
    SPackResult Search(std::span<const SPiece> pieces, const SFreeStrip& strip, const SPackSettings& settings,
                       CPackSink& sink) {
        SSearchOrder order{{pieces.begin(), pieces.end()}, strip, settings, std::nullopt};
        if (settings.m_pStart != nullptr) {
            order.m_Start = *settings.m_pStart;
        }
        CWords words = WordsOf(order);
        m_Messenger.emplace(m_Ranks, strip);
        m_Ranks.Broadcast(words);
        return SearchTogether(m_Ranks, order, *m_Messenger, sink);
    }

    const CRanks& m_Ranks;
    std::optional<CMessenger> m_Messenger;  ///< once the others have been told to search
};

int Follow(const CRanks& ranks) {
    CRelaxed<bool> bStop = false;
    const CStopSignals signals(bStop);
    CWords words;
    ranks.Broadcast(words);
    if (!words.empty()) {
        const SSearchOrder order = ReadOrder(words);
        CMessenger messenger(ranks, order.m_Strip);
        CFollowerSink sink(bStop);
        const SPackResult result = SearchTogether(ranks, order, messenger, sink);
        if (!result.m_Packing && result.m_Unfit.empty()) {
            Complain("rank " + std::to_string(ranks.Rank()) +
                     " ran out of memory; the others go on without it");
        }
        WaitForOthers(messenger);
    }
    return BATCH_DONE;
}

}  // namespace

int main(int argc, char** argv) {
    const CRanks ranks(argc, argv);
    if (ranks.Rank() > 0) {
        const int nStatus = RunProgram([&] { return Follow(ranks); });
        if (nStatus != BATCH_DONE) {
            CRanks::Abort();
        }
        return nStatus;
    }
    CLeader leader(ranks);
    const int nStatus = RunProgram([&] { return leader.Run(argc, argv); });
    leader.Dismiss();
    return nStatus;
}
