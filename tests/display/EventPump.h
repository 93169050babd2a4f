#pragma once

#include <chrono>
#include <functional>

namespace nestrix::support {

inline constexpr std::chrono::seconds PATIENCE{90};

/// Lets the toolkit handle events until the condition holds.
/// @return whether it came to hold before the patience ran out.
[[nodiscard]] bool PumpUntil(const std::function<bool()>& condition,
                             std::chrono::milliseconds patience = PATIENCE);

/// Lets the toolkit handle all that has happened so far.
void PumpPending();

}  // namespace nestrix::support
