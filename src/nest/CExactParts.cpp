#include "nest/CExactParts.h"

#include <utility>

#include "nest/ConvexParts.h"

namespace nestrix {

CExactParts::CExactParts(const CPackProblem& problem)
    : m_Problem(problem), m_Parts(problem.Versions().size()) {}

const CExactParts::SParts& CExactParts::Of(size_t nVersion) {
    std::optional<SParts>& parts = m_Parts[nVersion];
    if (!parts) {
        parts.emplace();
        for (CConvexPart& part : ConvexPartsOf(m_Problem.Versions()[nVersion].m_Shape)) {
            SPlaneBox box;
            for (const SPoint point : part) {
                box.Include(point);
                parts->m_Box.Include(point);
            }
            parts->m_Parts.push_back({std::move(part), box});
        }
    }
    return *parts;
}

}  // namespace nestrix
