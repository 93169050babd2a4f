#include "drawing/SDrawnPiece.h"

#include <algorithm>

#include "drawing/Crossings.h"
#include "drawing/Flattening.h"
#include "drawing/PathArea.h"

namespace nestrix {

namespace {

CRing FlattenedAway(const SPath& path, bool bHole, double tolerance) {
    const bool bInsideLeft = SignedArea(path) >= 0.0;
    return FlattenedAway(path, bInsideLeft != bHole ? ESide::LEFT : ESide::RIGHT, tolerance);
}

SShape FlattenedOnce(const SDrawnPiece& piece, double tolerance) {
    SShape shape{FlattenedAway(piece.m_Outline, false, tolerance), {}};
    for (const SPath& hole : piece.m_Holes) {
        shape.m_Holes.push_back(FlattenedAway(hole, true, tolerance));
    }
    return shape;
}

bool HasCurves(const SPath& path) {
    return std::any_of(path.m_Stretches.begin(), path.m_Stretches.end(),
                       [](const CStretch& stretch) { return !std::holds_alternative<SLineTo>(stretch); });
}

bool HasCurves(const SDrawnPiece& piece) {
    return HasCurves(piece.m_Outline) || std::any_of(piece.m_Holes.begin(), piece.m_Holes.end(),
                                                     [](const SPath& hole) { return HasCurves(hole); });
}

}  // namespace

SShape Flattened(const SDrawnPiece& piece, double tolerance) {
    constexpr int TRIED_MOST = 5;
    const SShape shape = FlattenedOnce(piece, tolerance);
    if (!HasCurves(piece) || FindCrossings(shape).empty()) {
        return shape;
    }
    // Both sides of a slot that is narrower than the tolerance may have met.
    for (int i = 1; i < TRIED_MOST; ++i) {
        tolerance /= 4.0;
        SShape finer = FlattenedOnce(piece, tolerance);
        if (FindCrossings(finer).empty()) {
            return finer;
        }
    }
    return shape;
}

}  // namespace nestrix
