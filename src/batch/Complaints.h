#pragma once

#include <string>

namespace nestrix {

/// Says on standard error what is wrong, behind the program's name.
void Complain(const std::string& complaint);

/// Complains, if there is anything to complain about.
/// @return whether there is.
[[nodiscard]] bool IsFaulty(const std::string& fault);

}  // namespace nestrix
