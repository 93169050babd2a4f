#pragma once

#include "batch/PackOptions.h"
#include "formats/json/Job.h"

namespace nestrix {

/// What a job says of the packing, as options; its pieces are for CInputReader. Lengths become those of the
/// strip: millimetres where the job has a unit.
/// @param bLimits whether its limits count: not where others were given.
void ApplyJob(const SJob& job, bool bLimits, SPackOptions& options);

}  // namespace nestrix
