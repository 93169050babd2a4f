#pragma once

#include <string>
#include <vector>

#include "tests/formats/json/TextReading.h"

namespace nestrix::support {

/// A job that says all there is to say of free packing.
extern const std::string WHOLE_JOB;

/// A job for the window's search.
extern const std::string DROP_JOB;

/// Faults to be planted into WHOLE_JOB.
[[nodiscard]] std::vector<STextFault> JobFaults();

}  // namespace nestrix::support
