#pragma once

#include <optional>
#include <vector>

#include "nest/CPackProblem.h"
#include "nest/ForbiddenRegion.h"

namespace nestrix {

/// The convex parts of all versions' exact outlines, which are made when they are first asked for. Outlines
/// of thousands of dents have fewer here, and more inside.
class CExactParts {
public:
    /// A convex part of a version, with its bounding box.
    struct SPart {
        CConvexPart m_Part;
        SPlaneBox m_Box;
    };

    /// Those of a version.
    struct SParts {
        std::vector<SPart> m_Parts;
        SPlaneBox m_Box;  ///< of them all
    };

    explicit CExactParts(const CPackProblem& problem);

    [[nodiscard]] const SParts& Of(size_t nVersion);

private:
    const CPackProblem& m_Problem;
    std::vector<std::optional<SParts>> m_Parts;  ///< of each version
};

}  // namespace nestrix
