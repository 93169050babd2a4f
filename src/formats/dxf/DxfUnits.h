#pragma once

#include <optional>

#include "drawing/Unit.h"

namespace nestrix {

/// What $INSUNITS says.
struct SDxfUnit {
    std::optional<EUnit> m_Unit;
    double m_Factor = 1.0;     ///< a length of the file times this is one in that unit
    char const* m_pName = "";  ///< of the file's own unit; empty for none
};

/// The unit of a file with this $INSUNITS: the nearest one that is known here, and how to come to it. Nothing
/// for 0 and for codes that are not defined.
[[nodiscard]] SDxfUnit UnitOfCode(int nCode);

/// How lengths in a unit are written: $INSUNITS, and what to multiply them by, since points and pixels have
/// no code.
struct SDxfUnitCode {
    int m_nCode = 0;
    double m_Factor = 1.0;
    bool m_bMetric = true;
};
[[nodiscard]] SDxfUnitCode CodeOf(std::optional<EUnit> unit);

}  // namespace nestrix
