#pragma once

#include <vector>

#include "drawing/CLineNet.h"

namespace nestrix {

using CLineWalk = std::vector<SDirectedLine>;

/// Ways along lines, by whether their ends meet.
struct SLineWalks {
    std::vector<CLineWalk> m_Closed;
    std::vector<CLineWalk> m_Open;
};

/// Walks along the lines of a net, each of which is part of one walk.
///
/// First come the contours, from the outside to the inside, each counter-clockwise and from the lowest of its
/// leftmost nodes. What is left is walked through all nodes at which just two such lines meet.
[[nodiscard]] SLineWalks FindWalks(CLineNet net);

}  // namespace nestrix
