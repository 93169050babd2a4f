#include <cstdint>

#include "certify/Certify.h"
#include "fuzz/OverlapInput.h"
#include "fuzz/Require.h"
#include "tests/reference/COverlapComparison.h"

using namespace nestrix;

// Two shapes, one anywhere beside the other: how deep they overlap, quickly and plainly.

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t nBytes) {
    using reference::COverlapComparison;
    const fuzz::SOverlapInput input = fuzz::DecodeOverlapInput(fuzz::CByteSource({pBytes, nBytes}));
    if (!IsSound(input.m_Stays) || !IsSound(input.m_Moves)) {
        return 0;
    }
    COverlapComparison comparison(input.m_Stays, input.m_Moves);
    fuzz::RequireNone(comparison.FindDifference(input.m_At.m_nX, input.m_At.m_nY));
    const SPoint at{static_cast<double>(input.m_At.m_nX), static_cast<double>(input.m_At.m_nY)};
    const SDepth depth = comparison.Field().FindWayOut(at);
    const SPoint out = at + depth.m_Out * depth.m_Depth;
    fuzz::Require(comparison.Field().DepthAt(out) <= COverlapComparison::TOLERANCE,
                  "nothing overlaps after the way out");
    return 0;
}
