#pragma once

#include "batch/SInputSet.h"

namespace nestrix {

/// Says on standard error what there is to say about the inputs.
/// @param bQuiet only what is wrong or was taken for granted, and no summaries.
void ReportInputs(const SInputSet& set, bool bQuiet);

/// One line for each input.
void ReportSummaries(const SInputSet& set);

}  // namespace nestrix
