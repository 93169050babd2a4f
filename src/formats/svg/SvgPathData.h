#pragma once

#include <string_view>
#include <vector>

#include "drawing/SPath.h"

namespace nestrix {

/// What the text of a "d" attribute draws, in its own coordinates, y down.
struct SSvgPathData {
    std::vector<SPath> m_Paths;  ///< one for each subpath that draws anything
    size_t m_nUnderstood = 0;    ///< so many characters; all of them in sound data
    bool m_bTooMany = false;     ///< there are more stretches than allowed, and the others are missing
};

/// Reads path data, with all its commands. Quadratic curves come as the same curves in cubic form, arcs as
/// arcs.
/// @param nMostStretches more of them are not kept.
[[nodiscard]] SSvgPathData ParsePathData(std::string_view text, size_t nMostStretches);

}  // namespace nestrix
