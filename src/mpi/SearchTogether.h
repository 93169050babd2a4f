#pragma once

#include "mpi/CMessenger.h"
#include "mpi/CRanks.h"
#include "mpi/SSearchOrder.h"

namespace nestrix {

/// Searches on every rank, each with a seed of its own, until one has a reason to end that holds for all: a
/// target, a stop, the time. Where steps are limited, each rank takes its share of them. Each rank calls it.
/// @param order the same on all ranks.
/// @param messenger of this rank; the first one's stays behind until HaveAllLeft: see WaitForOthers.
/// @param sink hears of this rank's search, and of what it is given by others.
/// @return on the first rank the best of all, certified, with the steps of all; on the others their own. A
/// stop
///         that is asked of the first rank waits half a second for the others at most: then who started them
///         may be about to end all by force.
[[nodiscard]] SPackResult SearchTogether(const CRanks& ranks, const SSearchOrder& order,
                                         CMessenger& messenger, CPackSink& sink);

/// Takes what is still on its way, so that the others can end.
void WaitForOthers(CMessenger& messenger);

}  // namespace nestrix
