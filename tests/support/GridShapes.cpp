#include "tests/support/GridShapes.h"

#include <algorithm>
#include <sstream>

#include "certify/Certify.h"

namespace nestrix::support {

namespace {

template <class TChange>
void ChangePoints(SGridShape& shape, TChange&& change) {
    std::for_each(shape.m_Outline.begin(), shape.m_Outline.end(), change);
    for (CGridRing& hole : shape.m_Holes) {
        std::for_each(hole.begin(), hole.end(), change);
    }
}

/// What a random shape is to be made of.
struct SMakeUp {
    int m_nSide = 0;
    int m_nVertices = 0;
    int m_nHoles = 0;
};

SMakeUp RandomMakeUp(CSeededRandom& random, int nVerticesMost) {
    return {random.Range(4, 12), random.Range(3, nVerticesMost), random.Pick({0, 0, 1, 1, 2})};
}

SGridShape RandomShape(CSeededRandom& random, const SMakeUp& makeUp) {
    SGridShape shape{RandomRing(random, makeUp.m_nVertices, makeUp.m_nSide), {}};
    for (int i = 0; i < makeUp.m_nHoles; ++i) {
        shape.m_Holes.push_back(RandomRing(random, random.Range(3, 4), makeUp.m_nSide));
    }
    return shape;
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

CGridRing RandomRing(CSeededRandom& random, int nVertices, int nSide) {
    CGridRing ring;
    for (int i = 0; i < nVertices; ++i) {
        const int nX = random.Range(0, nSide);
        ring.push_back({nX, random.Range(0, nSide)});
    }
    return ring;
}

SGridShape RandomShape(CSeededRandom& random, int nVerticesMost) {
    return RandomShape(random, RandomMakeUp(random, nVerticesMost));
}

SGridShape RandomSoundShape(CSeededRandom& random, int nVerticesMost) {
    // Those with many vertices and holes are seldom sound: tried more often before another make-up is.
    constexpr int TRIALS = 400;
    while (true) {
        const SMakeUp makeUp = RandomMakeUp(random, nVerticesMost);
        for (int i = 0; i < TRIALS; ++i) {
            SGridShape shape = RandomShape(random, makeUp);
            if (IsSound(shape)) {
                return shape;
            }
        }
    }
}

}  // namespace nestrix::support
