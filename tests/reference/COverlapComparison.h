#pragma once

#include <string>

#include "nest/CPairField.h"
#include "tests/reference/CReferenceOverlap.h"

namespace nestrix::reference {

/// Compares the overlap measure of a search with the plain one, for tests and fuzz targets: the field's
/// shapes are the plain measure's, OVERLAP_DENOMINATOR_MOST times as large.
class COverlapComparison {
public:
    /// So deep an overlap goes unnoticed, in units of the field, as in a search: places in a slit, and a
    /// place at which something fits exactly, have no room otherwise.
    static constexpr double UNNOTICED = 5.0;

    /// What that, the border's rounding and the preference of edges may take or add, in units of the field.
    /// Two sides that are moved by UNNOTICED meet farther off by up to 2 · UNNOTICED / sin of the angle
    /// between them. Their directions are differences of coordinates, up to 18, so that the sine is at least
    /// 1 / (2 · 18²): 6,480 units. The preference takes half a millionth of depths up to 40 million: 20
    /// units.
    static constexpr double TOLERANCE = 6500.0;

    /// @param stays, moves sound shapes, no wider or higher than 18.
    COverlapComparison(const SGridShape& stays, const SGridShape& moves);

    [[nodiscard]] const CPairField& Field() const { return m_Field; }

    /// The difference at a place in words, or nothing.
    /// @param x, y in units of the field.
    [[nodiscard]] std::string FindDifference(int64_t x, int64_t y);

private:
    CPairField m_Field;
    CReferenceOverlap m_Plain;
};

}  // namespace nestrix::reference
