#pragma once

#include "mpi/Words.h"

namespace nestrix {

/// The processes that MPI started together, from the first line of the program to its last. One object; only
/// the thread that made it calls MPI.
class CRanks {
public:
    CRanks(int& argc, char**& argv);

    /// Waits for all others to come to their ends, too.
    ~CRanks();
    CRanks(const CRanks&) = delete;
    CRanks& operator=(const CRanks&) = delete;

    [[nodiscard]] int Rank() const { return m_nRank; }  ///< of this process, from 0
    [[nodiscard]] int Count() const { return m_nCount; }

    /// Tells what the first rank has to all others; each of them calls it, too.
    void Broadcast(CWords& words) const;

    /// Ends all, since this one failed and nobody is to wait for it. They are told by SIGTERM first.
    static void Abort();

private:
    int m_nRank = 0;
    int m_nCount = 1;
};

}  // namespace nestrix
