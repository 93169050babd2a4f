#pragma once

#include <string>

#include "batch/InputFile.h"

namespace nestrix {

/// Whether the name ends in the extension of a format that can be read, in capitals or not.
[[nodiscard]] bool HasKnownExtension(const std::string& name);

/// All those extensions, for a message.
[[nodiscard]] std::string KnownExtensions();

/// Reads a file as its extension says; one without a known extension as a polygon file. Never throws on bad
/// input.
[[nodiscard]] SInputFile ReadInput(const std::string& path, const SReadOptions& reading);

}  // namespace nestrix
