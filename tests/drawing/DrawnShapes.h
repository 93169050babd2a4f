#pragma once

#include <ostream>
#include <vector>

#include "drawing/SDrawing.h"
#include "drawing/SDrawnPiece.h"
#include "drawing/SMap.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix::support {

[[nodiscard]] SPath DrawnLine(SPoint from, SPoint to);
[[nodiscard]] SPath DrawnRectangle(double left, double bottom, double width, double height);
[[nodiscard]] SPath DrawnCircle(SPoint centre, double radius);

/// A quarter of an ellipse from one point to another, which lies within the triangle of both and a corner: it
/// runs along its sides there.
[[nodiscard]] SArcTo QuarterArc(SPoint from, SPoint corner, SPoint to);

/// A closed line round a centre, of lines, arcs and curves, some with an inflection. It neither crosses
/// itself nor comes nearer to itself than a twentieth of the radius, but at its corners.
[[nodiscard]] SPath RandomContour(CSeededRandom& random, SPoint centre, double radius);

/// Each stretch as a line of its own, any of them backwards, in any order.
[[nodiscard]] std::vector<SPath> Chopped(CSeededRandom& random, const SPath& contour);

/// The lines as a drawing of which each is written on a line of its own, from 1.
[[nodiscard]] SDrawing DrawingOf(const std::vector<SPath>& paths);

/// The pieces of such a drawing, read from folder/plate.dxf.
[[nodiscard]] SDrawnPieces Found(const std::vector<SPath>& paths);

}  // namespace nestrix::support

namespace nestrix {

/// For the messages of a test that fails.
void PrintTo(const SPath& path, std::ostream* pStream);

}  // namespace nestrix
