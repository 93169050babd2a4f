#include "mpi/CMessenger.h"

#include <bit>
#include <utility>

namespace nestrix {

namespace {

constexpr int PACKING_TAG = 1;
constexpr int FAREWELL_TAG = 2;

/// A search finds better packings in bursts: the last one of a burst is enough for the others.
constexpr std::chrono::milliseconds LEAST_PAUSE{200};

constexpr int64_t NO_REASON = -1;

CWords WordsOf(const SFarewell& farewell, bool bPacking) {
    CWords words{farewell.m_bAllEnd ? 1 : 0,
                 farewell.m_Reason ? static_cast<int64_t>(*farewell.m_Reason) : NO_REASON,
                 std::bit_cast<int64_t>(farewell.m_nSteps)};
    if (bPacking && farewell.m_Packing) {
        AddPacking(*farewell.m_Packing, words);
    }
    return words;
}

SFarewell ReadFarewell(CWordReader& reader, const SFreeStrip& strip) {
    SFarewell farewell;
    farewell.m_bAllEnd = reader.Whole() != 0;
    const int64_t nReason = reader.Whole();
    if (nReason != NO_REASON) {
        farewell.m_Reason = static_cast<EPackEnd>(nReason);
    }
    farewell.m_nSteps = std::bit_cast<uint64_t>(reader.Whole());
    if (!reader.IsAtEnd()) {
        farewell.m_Packing = ReadPacking(reader, strip);
    }
    return farewell;
}

}  // namespace

void CMessenger::Exchange(CMailbox& mailbox) {
    Receive(mailbox);
    ForgetArrived();
    const auto now = std::chrono::steady_clock::now();
    // What is still on its way to a slow rank need not be followed by more.
    if (m_bLeft || !m_Sent.empty() || now - m_LastTold < LEAST_PAUSE) {
        return;
    }
    if (const std::optional<SFreePacking> best = mailbox.BestBelow(m_nKnown)) {
        m_nKnown = best->m_nHeight;
        m_LastTold = now;
        CWords words;
        AddPacking(*best, words);
        Send(std::move(words), PACKING_TAG, 0, m_Ranks.Count());
    }
}

void CMessenger::Leave(const SFarewell& farewell) {
    m_bLeft = true;
    Send(WordsOf(farewell, true), FAREWELL_TAG, 0, 1);
    Send(WordsOf(farewell, false), FAREWELL_TAG, 1, m_Ranks.Count());
}

bool CMessenger::HaveAllLeft() {
    ForgetArrived();
    return m_Sent.empty() && m_Farewells.size() + 1 >= static_cast<size_t>(m_Ranks.Count());
}

/// Takes all that has come.
void CMessenger::Receive(CMailbox& mailbox) {
    while (true) {
        int nThere = 0;
        MPI_Status status;
        if (MPI_Iprobe(MPI_ANY_SOURCE, MPI_ANY_TAG, MPI_COMM_WORLD, &nThere, &status) != MPI_SUCCESS ||
            nThere == 0) {
            return;
        }
        int nWords = 0;
        MPI_Get_count(&status, MPI_INT64_T, &nWords);
        CWords words(static_cast<size_t>(nWords));
        MPI_Recv(words.data(), nWords, MPI_INT64_T, status.MPI_SOURCE, status.MPI_TAG, MPI_COMM_WORLD,
                 MPI_STATUS_IGNORE);
        Take(words, status.MPI_TAG, mailbox);
    }
}

void CMessenger::Take(const CWords& words, int nTag, CMailbox& mailbox) {
    CWordReader reader(words);
    if (nTag == FAREWELL_TAG) {
        m_Farewells.push_back(ReadFarewell(reader, m_Strip));
        if (m_Farewells.back().m_bAllEnd) {
            mailbox.Stop();
        }
        return;
    }
    SFreePacking packing = ReadPacking(reader, m_Strip);
    if (packing.m_nHeight < m_nKnown) {
        m_nKnown = packing.m_nHeight;
        mailbox.Put(std::move(packing));
    }
}

/// Sends to the ranks from nFirst to before nEnd, but not to this one.
void CMessenger::Send(CWords words, int nTag, int nFirst, int nEnd) {
    SSent& sent = m_Sent.emplace_back(SSent{std::move(words), {}});
    for (int nRank = nFirst; nRank < nEnd; ++nRank) {
        if (nRank != m_Ranks.Rank()) {
            MPI_Request request = MPI_REQUEST_NULL;
            MPI_Isend(sent.m_Words.data(), static_cast<int>(sent.m_Words.size()), MPI_INT64_T, nRank, nTag,
                      MPI_COMM_WORLD, &request);
            sent.m_Requests.push_back(request);
        }
    }
}

void CMessenger::ForgetArrived() {
    m_Sent.remove_if([](SSent& sent) {
        int nArrived = 0;
        const int nResult = MPI_Testall(static_cast<int>(sent.m_Requests.size()), sent.m_Requests.data(),
                                        &nArrived, MPI_STATUSES_IGNORE);
        return nResult != MPI_SUCCESS || nArrived != 0;
    });
}

}  // namespace nestrix
