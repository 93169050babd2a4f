#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "geom/CPolygon.h"

namespace nestrix {

/// What the polygon files that some paths stand for give. Each is read once.
struct SPolygonInput {
    std::vector<std::string> m_Files;  ///< all of them
    std::vector<CPolygon> m_Polygons;  ///< of the sound ones, in their order
    /// "path: reason" for every folder at fault, "path:line: reason" for every file that is not sound.
    std::vector<std::string> m_Faults;
    std::vector<std::string> m_Warnings;  ///< "path:line: reason" for what is odd about sound files
};

/// Finds and reads polygon files. Odd is whatever follows the box; and for pieces that are to be dropped, an
/// outline that runs clockwise, a bounding box that does not enclose it or is wider than the strip.
/// @param paths files, and folders of them: see FindPolygonFiles.
/// @param dropWidth of the strip that they are to be dropped into; nothing where only outlines count.
[[nodiscard]] SPolygonInput ReadPolygonInput(std::span<const std::string> paths,
                                             std::optional<float> dropWidth);

}  // namespace nestrix
