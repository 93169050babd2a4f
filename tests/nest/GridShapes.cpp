#include "tests/nest/GridShapes.h"

#include <algorithm>
#include <sstream>

#include "certify/Inside.h"
#include "nest/ConvexParts.h"
#include "nest/GridGeometry.h"
#include "tests/support/FreePieces.h"

namespace nestrix::support {

namespace {

template <class TChange>
void ChangePoints(SGridShape& shape, TChange&& change) {
    std::for_each(shape.m_Outline.begin(), shape.m_Outline.end(), change);
    for (CGridRing& hole : shape.m_Holes) {
        std::for_each(hole.begin(), hole.end(), change);
    }
}

}  // namespace

std::string Text(const SGridShape& shape) {
    std::ostringstream text;
    const auto print = [&text](const CGridRing& ring) {
        for (const SGridPoint point : ring) {
            text << " " << point.m_nX << "," << point.m_nY;
        }
    };
    print(shape.m_Outline);
    for (const CGridRing& hole : shape.m_Holes) {
        text << " less";
        print(hole);
    }
    return text.str();
}

SGridShape Moved(SGridShape shape, SGridPoint by) {
    ChangePoints(shape, [by](SGridPoint& point) { point = point + by; });
    return shape;
}

SGridShape Scaled(SGridShape shape, int64_t nFactor) {
    ChangePoints(shape, [nFactor](SGridPoint& point) {
        point = {point.m_nX * nFactor, point.m_nY * nFactor};
    });
    return shape;
}

CGridRing GridRectangle(SGridPoint at, int64_t nWidth, int64_t nHeight) {
    return {at, at + SGridPoint{nWidth, 0}, at + SGridPoint{nWidth, nHeight}, at + SGridPoint{0, nHeight}};
}

SGridShape RandomSoundShape(CSeededRandom& random, int nVerticesMost) {
    // Those with many vertices and holes are seldom sound: tried more often before another make-up is.
    constexpr int TRIALS = 400;
    while (true) {
        const int nSide = random.Range(4, 12);
        const int nVertices = random.Range(3, nVerticesMost);
        const int nHoles = random.Pick({0, 0, 1, 1, 2});
        for (int i = 0; i < TRIALS; ++i) {
            SGridShape shape{RandomRing(random, nVertices, nSide), {}};
            for (int k = 0; k < nHoles; ++k) {
                shape.m_Holes.push_back(RandomRing(random, random.Range(3, 4), nSide));
            }
            if (certify::IsSound(shape)) {
                return shape;
            }
        }
    }
}

std::vector<CConvexPart> PartsOf(const SGridShape& shape) {
    return ConvexPartsOf(Cleaned(shape));
}

}  // namespace nestrix::support
