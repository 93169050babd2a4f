#pragma once

#include <string>

#include "geom/CPolygon.h"

namespace nestrix {

/// What the names of polygon files end in.
inline constexpr char POLYGON_FILE_EXTENSION[] = ".pol";

/// What one polygon file gives, read once. Lines are those of the text, counted from 1.
struct SPolygonFile {
    /// Why the file is not a sound polygon file, in words for a user; empty for a sound one. Sound means: a
    /// regular file that can be opened, a count of at least three, as many vertices, a bounding box whose
    /// first corner is the upper-right one, and finite numbers throughout. A box that does not enclose the
    /// vertices is accepted, as it is by the format, and so is whatever follows the box.
    std::string m_Fault;
    int m_nFaultLine = 0;    ///< 0 if the file could not be opened
    bool m_bIsOpen = false;  ///< it could be opened

    CPolygon m_Polygon;  ///< as CPolygon::ReadPolygon leaves a fresh one; of an unsound file not analysed yet

    // Of a sound file:
    int m_nOutlineLine = 0;  ///< where the first vertex is
    int m_nBoxLine = 0;      ///< where the bounding box begins
    int m_nRestLine = 0;     ///< where something follows the box; 0 if nothing does
};

/// Reads a polygon file for a program that would rather refuse what CPolygon::ReadPolygon takes as far as it
/// goes. Prints nothing.
[[nodiscard]] SPolygonFile ReadPolygonFile(char const* path);

}  // namespace nestrix
