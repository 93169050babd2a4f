#pragma once

#include <optional>
#include <span>
#include <vector>

#include "drawing/SPath.h"

namespace nestrix {

/// Where an open line might have been meant to go on.
struct SGap {
    SPoint m_At;           ///< an end of the line
    double m_Width = 0.0;  ///< from there to the nearest other end
};

/// For each open line the narrowest gap between one of its ends and another end of any of them. The other end
/// of the line itself counts, too, unless it is a single straight one.
[[nodiscard]] std::vector<std::optional<SGap>> FindGaps(std::span<const SPath> lines);

}  // namespace nestrix
