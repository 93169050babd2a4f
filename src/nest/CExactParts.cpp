#include "nest/CExactParts.h"

#include <utility>

#include "nest/ConvexParts.h"

namespace nestrix {

CExactParts::CExactParts(const CPackProblem& problem)
    : m_Problem(problem), m_Parts(problem.Versions().size()) {}

const std::vector<CExactParts::SPart>& CExactParts::Of(size_t nVersion) {
    std::optional<std::vector<SPart>>& parts = m_Parts[nVersion];
    if (!parts) {
        parts.emplace();
        for (CConvexPart& part : ConvexPartsOf(m_Problem.Versions()[nVersion].m_Shape)) {
            SPlaneBox box;
            for (const SPoint point : part) {
                box.Include(point);
            }
            parts->push_back({std::move(part), box});
        }
    }
    return *parts;
}

}  // namespace nestrix
