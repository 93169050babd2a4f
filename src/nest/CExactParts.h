#pragma once

#include <optional>
#include <vector>

#include "nest/CPackProblem.h"
#include "nest/ForbiddenRegion.h"

namespace nestrix {

/// The convex parts of all versions' exact outlines, which are made when they are first asked for.
class CExactParts {
public:
    /// A convex part of a version, with its bounding box.
    struct SPart {
        CConvexPart m_Part;
        SPlaneBox m_Box;
    };

    explicit CExactParts(const CPackProblem& problem);

    [[nodiscard]] const std::vector<SPart>& Of(size_t nVersion);

private:
    const CPackProblem& m_Problem;
    std::vector<std::optional<std::vector<SPart>>> m_Parts;  ///< of each version
};

}  // namespace nestrix
