#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace nestrix {

/// Asks for the manual page instead of work. Not in the help, since it is the build that asks: it makes the
/// page from the words of the help, so that the two cannot tell different things.
inline constexpr std::string_view MANUAL_WORD = "--man";

/// As a manual page takes it: nothing in it is an instruction of roff.
[[nodiscard]] std::string InRoff(std::string_view text);

/// Prints a command's section of the manual page: what the command is for, its usage, its options by their
/// groups, and the footer of its help.
void PrintManualSection(const CLI::App& app);

}  // namespace nestrix
