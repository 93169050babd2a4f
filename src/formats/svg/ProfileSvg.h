#pragma once

#include <span>
#include <string>
#include <vector>

#include "geom/CPolygon.h"
#include "packing/SPiece.h"

namespace nestrix {

/// A piece as it is dropped, and what the polygon leaves out.
struct SProfiledPiece {
    std::string m_Name;
    CPolygon m_Polygon;  ///< analysed
    std::vector<CRing> m_Holes;
};

/// Draws pieces side by side as an SVG document, each with its name and its size: the outline in grey, the
/// lower profile (front) in red, the upper one (back) in blue, the bounding box in thin red, the reference
/// point in black if it is in the box; the colours of the window's overlays. The same pieces give the same
/// bytes.
/// @return empty when some number is not finite: no viewer could show it.
[[nodiscard]] std::string DrawProfilesSvg(std::span<const SProfiledPiece> pieces);

}  // namespace nestrix
