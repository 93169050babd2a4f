#include "drawing/SDrawnPiece.h"

#include "drawing/Flattening.h"
#include "drawing/PathArea.h"

namespace nestrix {

namespace {

CRing FlattenedAway(const SPath& path, bool bHole, double tolerance) {
    const bool bInsideLeft = SignedArea(path) >= 0.0;
    return FlattenedAway(path, bInsideLeft != bHole ? ESide::LEFT : ESide::RIGHT, tolerance);
}

}  // namespace

SShape Flattened(const SDrawnPiece& piece, double tolerance) {
    SShape shape{FlattenedAway(piece.m_Outline, false, tolerance), {}};
    for (const SPath& hole : piece.m_Holes) {
        shape.m_Holes.push_back(FlattenedAway(hole, true, tolerance));
    }
    return shape;
}

}  // namespace nestrix
