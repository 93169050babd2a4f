#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "nest/CPackProblem.h"

namespace nestrix {

/// Where an item's reference point lies, in units of the grid but not on it, and in which version it is laid.
struct SPlace {
    SPoint m_At;
    size_t m_nVersion = 0;
};

/// A packing as a search knows it: nothing overlaps, all places are points of the grid.
struct SSolution {
    double m_Height = 0.0;
    std::vector<SPlace> m_Places;  ///< one for each item
};

/// The top of the highest item.
[[nodiscard]] double HeightOf(const CPackProblem& problem, std::span<const SPlace> places);

/// @param placed a placement for each item, in versions of the problem.
[[nodiscard]] SSolution SolutionOf(const CPackProblem& problem, std::span<const SFreePlacement> placed);

[[nodiscard]] std::vector<SFreePlacement> PlacementsOf(const CPackProblem& problem,
                                                       const SSolution& solution);

[[nodiscard]] SFreePacking PackingOf(const CPackProblem& problem, const SSolution& solution);

}  // namespace nestrix
