#pragma once

#include <string>
#include <vector>

namespace nestrix {

/// A point of a piece as it was drawn, in the units of the strip; x to the right, y up.
struct SPoint {
    double m_X = 0.0;
    double m_Y = 0.0;

    friend bool operator==(const SPoint&, const SPoint&) = default;
};

/// A closed line through its points, in either winding. The last point is joined to the first.
using CRing = std::vector<SPoint>;

/// What a piece is made of: the inside of its outline without the insides of its holes.
struct SShape {
    CRing m_Outline;
    std::vector<CRing> m_Holes;

    friend bool operator==(const SShape&, const SShape&) = default;
};

/// By how much a piece may be turned, in degrees counter-clockwise.
struct STurns {
    bool m_bAny = false;  ///< by any angle; the list is of no meaning then
    std::vector<double> m_Degrees{0.0};

    friend bool operator==(const STurns&, const STurns&) = default;
};

/// A piece to be packed freely, with all that is demanded of it.
struct SPiece {
    std::string m_Name;
    SShape m_Shape;
    int m_nQuantity = 1;
    STurns m_Turns;
    bool m_bMirrored = false;  ///< it may also be laid with its back up: mirrored, then turned

    friend bool operator==(const SPiece&, const SPiece&) = default;
};

}  // namespace nestrix
