#include "tests/drawing/PathSamples.h"

#include <variant>

#include "drawing/CCurve.h"
#include "packing/PointVectors.h"

namespace nestrix::support {

std::vector<SPoint> SamplesOf(const SPath& path, int nPerStretch) {
    std::vector<SPoint> samples{path.m_Start};
    SPoint from = path.m_Start;
    for (const CStretch& stretch : path.m_Stretches) {
        for (int i = 1; i <= nPerStretch; ++i) {
            const double share = static_cast<double>(i) / nPerStretch;
            if (const auto* pCurve = std::get_if<SCurveTo>(&stretch)) {
                samples.push_back(CCurve(from, *pCurve).At(share));
            } else if (const auto* pArc = std::get_if<SArcTo>(&stretch)) {
                samples.push_back(PointAt(*pArc, pArc->m_From + pArc->m_Sweep * share));
            } else {
                samples.push_back(from + (EndOf(stretch) - from) * share);
            }
        }
        from = EndOf(stretch);
    }
    return samples;
}

}  // namespace nestrix::support
