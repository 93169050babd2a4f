#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/InputFile.h"

namespace nestrix {

/// Reads a polygon file, once. At fault is what is not sound, and reported besides is whatever follows the
/// box. A lenient reading takes what is not sound as CPolygon::ReadPolygon does, as far as it goes.
[[nodiscard]] SInputFile ReadPolygonInput(const std::string& path, const SReadOptions& reading);

/// A piece that nobody has drawn: its shape stands for the drawing.
[[nodiscard]] SInputPiece InputPieceOf(SPiece piece, const std::string& file, int nLine);

/// What goes wrong when the piece of a polygon file is dropped: an outline that runs clockwise, a bounding
/// box that does not enclose it or that is wider than the strip.
[[nodiscard]] std::vector<SFinding> HarmOfDropping(const SInputPiece& piece, float fStripWidth);

/// Whether the bounding box of a polygon file does not enclose the outline, or leaves room around it.
[[nodiscard]] std::optional<SFinding> FindBadBox(const SInputPiece& piece);

/// The piece as a polygon to be dropped: that of its file; of a drawing the outline without its holes, in
/// single precision and counter-clockwise.
[[nodiscard]] CPolygon PolygonOf(const SInputPiece& piece);

}  // namespace nestrix
