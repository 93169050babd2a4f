#include "nest/ConvexParts.h"

#include <utility>

#include "nest/GridGeometry.h"
#include "nest/HoleJoining.h"
#include "nest/PartJoining.h"
#include "nest/SeparateAtTouches.h"

namespace nestrix {

std::vector<CGridRing> CutIntoConvexParts(const SGridShape& shape) {
    std::vector<CGridRing> parts;
    for (const SGridShape& piece : SeparateAtTouches(shape)) {
        const CGridRing ring = JoinedToOneRing(piece);
        for (const CCorners& corners : JoinParts(ring, ClipEars(ring))) {
            CGridRing part;
            for (const size_t nCorner : corners) {
                part.push_back(ring[nCorner]);
            }
            if (CGridRing clean = Cleaned(part, true); !clean.empty()) {
                parts.push_back(std::move(clean));
            }
        }
    }
    return parts;
}

std::vector<CConvexPart> ConvexPartsOf(const SGridShape& shape) {
    std::vector<CConvexPart> parts;
    for (const CGridRing& ring : CutIntoConvexParts(shape)) {
        CConvexPart& part = parts.emplace_back();
        for (const SGridPoint point : ring) {
            part.push_back(AsPoint(point));
        }
    }
    return parts;
}

}  // namespace nestrix
