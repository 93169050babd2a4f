#pragma once

#include <string>
#include <vector>

#include "batch/FreeOptions.h"
#include "batch/PolygonInput.h"

namespace nestrix {

/// Polygon files as pieces to be packed freely.
struct SFreePieces {
    std::vector<SPiece> m_Pieces;      ///< in the order of their files
    std::vector<std::string> m_Files;  ///< the path of each one's file
};

/// Each file becomes a piece whose outline is the file's to the last bit; one that is listed again becomes
/// another copy of it.
/// @param input all files sound.
[[nodiscard]] SFreePieces FreePiecesOf(const SPolygonInput& input, const SFreeOptions& options);

}  // namespace nestrix
