#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "tests/support/PolygonMaking.h"

namespace nestrix::support {

/// What a generated piece is like. Pieces measure about 20 to 60 units unless the kind says otherwise.
enum class EPiece {
    AlignedRectangle,  ///< few distinct whole or quarter-unit sizes: clamped to a wall, sides line up exactly
    Rectangle,         ///< any size
    Convex,
    Star,       ///< concave, radial, ragged
    Lobed,      ///< concave, radial, smooth
    Comb,       ///< concave, with many vertical sides
    Letter,     ///< L, T, U, Z of whole sizes
    Lattice,    ///< a star whose vertices lie on a coarse lattice: vertical sides, repeated vertices, ties
    Clockwise,  ///< any of the above the wrong way round
    Degenerate,
    LooseBox,  ///< a box smaller than, larger than, beside or inverse to its outline
    SelfCrossing,
    NotFinite,      ///< some coordinates or box edges infinite or not a number
    NegativeLocal,  ///< the local origin is anywhere but in the lower-left corner
    Huge,           ///< magnitudes up to the end of the float range
    NearlyLevel,    ///< a rectangle whose height leaves stacks that differ in the last bit only
    Distant,        ///< a local origin so far away that coordinates have lost their last bits
    Intricate,      ///< hundreds of vertices
    Needle,         ///< sides so steep that a rounding of x is a visible rise
    Endless  ///< an aligned rectangle with an infinitely tall box: fitness may be infinite or no number
};

/// One analysed piece with a random number of vertices.
[[nodiscard]] CPolygon MakePiece(CSeededRandom& random, EPiece piece);

/// One analysed piece with a given number of vertices: Rectangle (always 4), Convex, Star, Lobed or
/// Comb.
[[nodiscard]] CPolygon MakeSizedPiece(CSeededRandom& random, EPiece piece, int nVertices);

/// A named mixture of pieces.
struct SFamily {
    std::string_view m_Name;
    std::span<const EPiece> m_Pieces;
    int m_nDistinct = 0;  ///< how many different pieces a set has; 0: all differ
};

/// Every mixture worth trying: each kind alone, sound mixtures, everything at once, sets of equal pieces.
[[nodiscard]] std::span<const SFamily> AllFamilies();

/// One of them. Throws std::out_of_range where there is none of that name, so that no test runs on nothing.
[[nodiscard]] const SFamily& FamilyNamed(std::string_view name);

[[nodiscard]] std::vector<CPolygon> MakeSet(CSeededRandom& random, const SFamily& family, int nPieces);

}  // namespace nestrix::support
