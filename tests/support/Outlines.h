#pragma once

#include <vector>

#include "geom/Vector.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix::support {

/// Vertices in order; counter-clockwise unless said otherwise.
using Outline = std::vector<mgVector3>;

[[nodiscard]] Outline RectangleOutline(float fWidth, float fHeight);

/// nVertices on an ellipse whose box is about fWidth × fHeight, at random angles.
[[nodiscard]] Outline ConvexOutline(CSeededRandom& random, int nVertices, float fWidth, float fHeight);

/// As ConvexOutline, each vertex drawn towards the centre by a random factor: concave, never self-crossing.
[[nodiscard]] Outline StarOutline(CSeededRandom& random, int nVertices, float fWidth, float fHeight);

/// As ConvexOutline, with three to six smooth lobes: concave, never self-crossing.
[[nodiscard]] Outline LobedOutline(CSeededRandom& random, int nVertices, float fWidth, float fHeight);

/// A bar with teeth of random heights that point up or down; nVertices is rounded down to a multiple of four.
[[nodiscard]] Outline CombOutline(CSeededRandom& random, int nVertices, float fWidth, float fHeight);

/// A letter L, T, U or Z of random whole sizes.
[[nodiscard]] Outline LetterOutline(CSeededRandom& random);

/// An upper and a lower side that go up and down steeply between vertices at few distinct x, the peaks of all
/// needles at few distinct heights: needles on needles meet in their tips or beside them. About nVertices.
[[nodiscard]] Outline NeedleOutline(CSeededRandom& random, int nVertices);

/// Random points joined in random order, so the outline crosses itself.
[[nodiscard]] Outline ScribbleOutline(CSeededRandom& random, int nVertices);

/// The lower half a convex chain that hugs the lower left corner, the upper half a zigzag of diagonals right
/// across, each over the whole chain: no bounds of an edge tell that it hides nothing.
[[nodiscard]] Outline SlantOutline(int nVertices, float fWidth, float fHeight);

/// Long edges along one line, each computed with rounding errors of its own, and tips that touch the line
/// from above in between: whether an edge hides a tip is decided by the last bit.
[[nodiscard]] Outline TouchingOutline(CSeededRandom& random, int nVertices);

/// No area, too few vertices, vertices on one line, or repeated ones.
[[nodiscard]] Outline DegenerateOutline(CSeededRandom& random);

/// Rounds every coordinate to a multiple of fStep.
[[nodiscard]] Outline Snapped(Outline outline, float fStep);

[[nodiscard]] Outline Moved(Outline outline, float fX, float fY);

[[nodiscard]] Outline Scaled(Outline outline, float fFactor);

/// The same outline walked the other way round.
[[nodiscard]] Outline Reversed(Outline outline);

}  // namespace nestrix::support
