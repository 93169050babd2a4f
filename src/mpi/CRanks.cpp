#include "mpi/CRanks.h"

#include <mpi.h>

namespace nestrix {

CRanks::CRanks(int& argc, char**& argv) {
    int nProvided = 0;
    MPI_Init_thread(&argc, &argv, MPI_THREAD_FUNNELED, &nProvided);
    // Where a rank is lost, the others are still to write what they have.
    MPI_Comm_set_errhandler(MPI_COMM_WORLD, MPI_ERRORS_RETURN);
    MPI_Comm_rank(MPI_COMM_WORLD, &m_nRank);
    MPI_Comm_size(MPI_COMM_WORLD, &m_nCount);
}

CRanks::~CRanks() {
    MPI_Finalize();
}

void CRanks::Broadcast(CWords& words) const {
    auto nWords = static_cast<int64_t>(words.size());
    MPI_Bcast(&nWords, 1, MPI_INT64_T, 0, MPI_COMM_WORLD);
    words.resize(static_cast<size_t>(nWords));
    MPI_Bcast(words.data(), static_cast<int>(nWords), MPI_INT64_T, 0, MPI_COMM_WORLD);
}

void CRanks::Abort() {
    MPI_Abort(MPI_COMM_WORLD, 1);
}

}  // namespace nestrix
