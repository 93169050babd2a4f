#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/SDrawnPiece.h"
#include "drawing/SFinding.h"
#include "drawing/Unit.h"
#include "geom/CPolygon.h"
#include "packing/SPiece.h"

namespace nestrix {

/// How inputs are to be read.
struct SReadOptions {
    std::optional<EUnit> m_Unit;    ///< of inputs that name none
    double m_Scale = 1.0;           ///< every length is taken so many times
    double m_FlatTolerance = 0.05;  ///< see SAssembly
    double m_JoinTolerance = 0.1;   ///< see SAssembly
    bool m_bLenient = false;        ///< what is at fault is taken as far as it goes
};

/// By what lengths of an input are multiplied to be those of the strip: millimetres where a unit is known.
/// @param own the unit that the input names.
[[nodiscard]] inline double ScaleOf(const SReadOptions& options, std::optional<EUnit> own) {
    const std::optional<EUnit> unit = own ? own : options.m_Unit;
    return options.m_Scale * (unit ? MillimetresIn(*unit) : 1.0);
}

/// A piece as an input gives it.
struct SInputPiece {
    SPiece m_Piece;
    SDrawnPiece m_Drawn;
    std::optional<CPolygon> m_Polygon;  ///< where it comes from a polygon file
    int m_nBoxLine = 0;                 ///< of the polygon file
};

/// What is asked of a strip, as far as anything is.
struct SStripDemand {
    std::optional<double> m_Width;
    std::optional<double> m_Spacing;
    std::optional<double> m_Margin;
};

/// What one file gives. Lengths in the units of the strip.
struct SInputFile {
    std::vector<SInputPiece> m_Pieces;
    std::vector<SFinding> m_Findings;  ///< of the reading; see SDrawing
    std::optional<EUnit> m_Unit;       ///< that the file names
    bool m_bHasUnits = true;           ///< its format has units at all
    SStripDemand m_Strip;              ///< what the file asks for
};

}  // namespace nestrix
