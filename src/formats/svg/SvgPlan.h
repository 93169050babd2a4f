#pragma once

#include <string>

#include "drawing/SCutPlan.h"

namespace nestrix {

/// Writes a packing as an SVG document for a cutter: in real units, with the curves of the drawings as
/// curves.
///
/// The page is the strip up to the packing's height, in millimetres where the plan has a unit; its user units
/// are those of the strip. It has four layers, as Inkscape has them: "strip" with the strip's outline, "cut"
/// with outlines and holes, "marks" with the lines and texts on the pieces, "labels" with each piece's number
/// and name, sized by its room. In "cut" and "marks" a piece is a group with its name for a label, and with
/// its number in the order of placing, its turn and its mirroring; a title says the same in words.
///
/// Numbers are rounded to a thousandth of the grid's unit, ten digits below the strip's width. The same plan
/// gives the same bytes.
[[nodiscard]] std::string WriteSvgPlan(const SCutPlan& plan);

/// What stands on a group that a plan adds to the pieces, and that ReadSvg leaves out for that reason.
inline constexpr char const* ADDED_BY_PLAN = "data-nestrix-added";

}  // namespace nestrix
