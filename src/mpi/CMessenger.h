#pragma once

#include <mpi.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <list>
#include <optional>
#include <vector>

#include "mpi/CMailbox.h"
#include "mpi/CRanks.h"

namespace nestrix {

/// The last word of a rank: its search has come to its end.
struct SFarewell {
    bool m_bAllEnd = false;            ///< the others are to end, too
    std::optional<EPackEnd> m_Reason;  ///< absent where another rank's farewell was the reason
    uint64_t m_nSteps = 0;
    std::optional<SFreePacking> m_Packing;  ///< its best; told to the first rank only
};

/// Brings packings from rank to rank. Nothing waits for an answer: each rank tells all others what it has,
/// when it is better than all it has heard of, and takes what came.
///
/// Order of use: Exchange now and then while the search runs, Leave when it has ended, then Exchange until
/// all have left. One rank's words arrive in the order in which they were sent, so that none follow its
/// farewell.
class CMessenger {
public:
    CMessenger(const CRanks& ranks, const SFreeStrip& strip) : m_Ranks(ranks), m_Strip(strip) {}
    CMessenger(const CMessenger&) = delete;
    CMessenger& operator=(const CMessenger&) = delete;

    /// Puts the best that came into the mailbox, and sends what is there to be told.
    void Exchange(CMailbox& mailbox);

    /// Says farewell to all others.
    void Leave(const SFarewell& farewell);

    /// Whether all others have said farewell, and all that was sent has arrived.
    [[nodiscard]] bool HaveAllLeft();

    [[nodiscard]] const std::vector<SFarewell>& Farewells() const { return m_Farewells; }

private:
    struct SSent {
        CWords m_Words;  ///< stay where they are until they have arrived
        std::vector<MPI_Request> m_Requests;
    };

    void Receive(CMailbox& mailbox);
    void Take(const CWords& words, int nTag, CMailbox& mailbox);
    void Send(CWords words, int nTag, int nFirst, int nEnd);
    void ForgetArrived();

    const CRanks& m_Ranks;
    SFreeStrip m_Strip;
    int64_t m_nKnown = std::numeric_limits<int64_t>::max();  ///< the least height told or heard of
    std::list<SSent> m_Sent;
    std::chrono::steady_clock::time_point m_LastTold;
    std::vector<SFarewell> m_Farewells;
    bool m_bLeft = false;
};

}  // namespace nestrix
