#pragma once

#include <string>
#include <string_view>

/// Why a file could not be written at `path`, as far as that shows before there is anything to write: so that
/// nobody waits for a long search first. Empty when nothing speaks against it.
[[nodiscard]] std::string FindOutputFault(const std::string& path);

/// Writes the file completely or not at all: readers see the old content or the new, never a part, and after
/// a failure the old file is as it was. A path that names something other than a regular file (a pipe, a
/// device) is written to directly, since it must not be replaced.
/// @return why it failed; empty on success.
[[nodiscard]] std::string WriteWholeFile(const std::string& path, std::string_view content);
