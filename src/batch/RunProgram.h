#pragma once

#include <functional>

namespace nestrix {

/// What every program without a window does around its work: outlives failed writes, prints line by line, and
/// notices what could not be printed.
/// @return the status to exit with: that of the work, unless something is wrong with the output.
[[nodiscard]] int RunProgram(const std::function<int()>& work);

}  // namespace nestrix
