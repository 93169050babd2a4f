#pragma once

#include <cstddef>
#include <vector>

#include "nest/CPackProblem.h"
#include "nest/CRandom.h"
#include "nest/Places.h"

namespace nestrix {

/// Makes one layout of two packings: both are cut along the same line, in any direction, and what lies before
/// it is taken from one, what lies beyond it from the other. Pieces differ in number then: those that are
/// lacking come to where there are too many of others. What comes out overlaps.
class CCrossover {
public:
    CCrossover(const CPackProblem& problem, CRandom& random) : m_Problem(problem), m_Random(random) {}

    /// @return a place for each item. The second packing may be turned by a half before.
    [[nodiscard]] std::vector<SPlace> Cross(const SSolution& first, const SSolution& second);

private:
    [[nodiscard]] double Along(SPoint at) const { return at.m_X * m_Way.m_Cosine + at.m_Y * m_Way.m_Sine; }
    [[nodiscard]] std::vector<size_t> SortAlong(const std::vector<SPlace>& places) const;
    void SortByArea(std::vector<size_t>& items) const;
    [[nodiscard]] std::vector<SPlace> TurnedByHalf(const SSolution& packing) const;

    const CPackProblem& m_Problem;
    CRandom& m_Random;
    SDirection m_Way;  ///< across the line
};

}  // namespace nestrix
