#pragma once

#include <span>
#include <string>
#include <vector>

namespace nestrix {

/// What the names of polygon files end in.
inline constexpr char POLYGON_FILE_EXTENSION[] = ".pol";

/// The polygon files that some paths stand for, and what is wrong with the paths.
struct SPolygonPaths {
    std::vector<std::string> m_Files;   ///< in the order of the paths, within a folder by name
    std::vector<std::string> m_Faults;  ///< "path: reason", for every folder at fault
};

/// Finds the polygon files. A path is a file, or a folder that stands for the *.pol files directly in it
/// (hidden ones excepted); a folder without any is at fault.
[[nodiscard]] SPolygonPaths FindPolygonFiles(std::span<const std::string> paths);

}  // namespace nestrix
