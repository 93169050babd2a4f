#include "mpi/SearchTogether.h"

#include <atomic>
#include <exception>
#include <thread>

#include "certify/Certify.h"

namespace nestrix {

namespace {

constexpr std::chrono::milliseconds POLLING{5};
constexpr std::chrono::milliseconds GRACE{500};

/// Hears nothing and asks for nothing.
class CDeafSink final : public CPackSink {
public:
    void BetterPacking(const SFreePacking&, const SPackProgress&) override {}
    [[nodiscard]] bool IsToStop() const override { return false; }
};

/// What came of this rank's own search.
struct SOwn {
    SPackResult m_Result;
    std::exception_ptr m_Fault;  ///< then there is no result
};

SPackSettings SettingsOf(const CRanks& ranks, const SSearchOrder& order) {
    SPackSettings settings = order.m_Settings;
    const auto nRanks = static_cast<uint64_t>(ranks.Count());
    settings.m_nSeed = settings.m_nSeed * nRanks + static_cast<uint64_t>(ranks.Rank());
    if (std::optional<uint64_t>& nSteps = settings.m_Limits.m_nSteps) {
        nSteps = *nSteps / nRanks + (*nSteps % nRanks > 0 ? 1 : 0);
    }
    settings.m_pStart = order.m_Start ? &*order.m_Start : nullptr;
    return settings;
}

/// Searches on other threads, while this one brings the messages.
SOwn SearchWithMessages(const CRanks& ranks, const SSearchOrder& order, CMessenger& messenger,
                        CMailbox& mailbox) {
    SOwn own;
    std::atomic<bool> bEnded = false;
    const std::jthread search([&] {
        try {
            own.m_Result = PackFreely(order.m_Pieces, order.m_Strip, SettingsOf(ranks, order), mailbox);
        } catch (...) {  // memory that is not there; the others go on
            own.m_Fault = std::current_exception();
        }
        bEnded = true;
    });
    while (!bEnded) {
        messenger.Exchange(mailbox);
        std::this_thread::sleep_for(POLLING);
    }
    return own;
}

SFarewell FarewellOf(const SOwn& own, const CMailbox& mailbox) {
    SFarewell farewell;
    if (own.m_Fault) {
        return farewell;
    }
    const EPackEnd eEnd = own.m_Result.m_eEnd;
    if (eEnd != EPackEnd::STOPPED || mailbox.IsStopAsked()) {
        farewell.m_Reason = eEnd;
    }
    // Others still have their shares of the steps.
    farewell.m_bAllEnd = eEnd != EPackEnd::STEPS;
    farewell.m_nSteps = own.m_Result.m_nSteps;
    farewell.m_Packing = own.m_Result.m_Packing;
    return farewell;
}

void WaitForFarewells(CMessenger& messenger, CMailbox& mailbox) {
    std::optional<std::chrono::steady_clock::time_point> end;
    while (!messenger.HaveAllLeft() && (!end || std::chrono::steady_clock::now() < *end)) {
        if (!end && mailbox.IsStopAsked()) {
            end = std::chrono::steady_clock::now() + GRACE;
        }
        messenger.Exchange(mailbox);
        std::this_thread::sleep_for(POLLING);
    }
}

bool IsBetter(const std::optional<SFreePacking>& packing, const SPackResult& result) {
    return packing && (!result.m_Packing || packing->m_nHeight < result.m_Packing->m_nHeight);
}

/// The best of all, and what ended the first that did not end because of another.
SPackResult Gather(const SSearchOrder& order, SPackResult result, std::optional<EPackEnd> reason,
                   const std::vector<SFarewell>& farewells, CPackSink& sink) {
    bool bOfOthers = false;
    for (const SFarewell& farewell : farewells) {
        result.m_nSteps += farewell.m_nSteps;
        if (farewell.m_Reason && (!reason || *reason == EPackEnd::STEPS)) {
            reason = farewell.m_Reason;
        }
        if (IsBetter(farewell.m_Packing, result) && Certify(order.m_Pieces, *farewell.m_Packing).IsValid()) {
            result.m_Packing = farewell.m_Packing;
            bOfOthers = true;
        }
    }
    result.m_eEnd = reason.value_or(result.m_eEnd);
    if (bOfOthers) {
        sink.BetterPacking(*result.m_Packing,
                           {result.m_Seconds, result.m_nSteps, DensityOf(order.m_Pieces, *result.m_Packing)});
    }
    return result;
}

}  // namespace

SPackResult SearchTogether(const CRanks& ranks, const SSearchOrder& order, CMessenger& messenger,
                           CPackSink& sink) {
    CMailbox mailbox(sink);
    SOwn own = SearchWithMessages(ranks, order, messenger, mailbox);
    const SFarewell farewell = FarewellOf(own, mailbox);
    messenger.Leave(farewell);
    WaitForFarewells(messenger, mailbox);
    if (ranks.Rank() > 0) {
        return own.m_Result;
    }
    SPackResult result =
        Gather(order, std::move(own.m_Result), farewell.m_Reason, messenger.Farewells(), sink);
    if (own.m_Fault && !result.m_Packing) {
        std::rethrow_exception(own.m_Fault);
    }
    return result;
}

void WaitForOthers(CMessenger& messenger) {
    CDeafSink sink;
    CMailbox mailbox(sink);
    while (!messenger.HaveAllLeft()) {
        messenger.Exchange(mailbox);
        std::this_thread::sleep_for(POLLING);
    }
}

}  // namespace nestrix
