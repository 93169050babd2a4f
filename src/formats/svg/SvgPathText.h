#pragma once

#include <string>

#include "drawing/SPath.h"

namespace nestrix {

/// Writes lengths without the digits that only a double's rounding gave them.
class CLengthText {
public:
    /// @param nDecimals so many are kept; of lengths too large to have them, all are.
    explicit CLengthText(int nDecimals);

    [[nodiscard]] std::string operator()(double length) const;

private:
    double m_UnitsInOne;
};

/// Path data of a path in the coordinates of the file, y down. Arcs are written as arcs of at most a quarter
/// each, and curves as curves.
[[nodiscard]] std::string PathDataOf(const SPath& path, const CLengthText& lengthText);

}  // namespace nestrix
