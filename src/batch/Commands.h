#pragma once

namespace nestrix {

/// Runs the command that the first word names; words that begin with no command mean to pack. What goes wrong
/// is said on standard error.
/// @return the status to exit with.
[[nodiscard]] int RunCommand(int argc, char const* const* argv);

}  // namespace nestrix
