#pragma once

#include <string>

#include "batch/InputFile.h"

namespace nestrix {

/// Reads a DXF drawing and finds its pieces.
[[nodiscard]] SInputFile ReadDxfInput(const std::string& path, const SReadOptions& options);

/// Reads an SVG drawing and finds its pieces.
[[nodiscard]] SInputFile ReadSvgInput(const std::string& path, const SReadOptions& options);

}  // namespace nestrix
