#include "geom/HitTest.h"

#include <algorithm>

namespace {

bool IsBesideSegment(const mgVector3& point, const mgVector3& start, const mgVector3& end) {
    return (start.x > point.x && end.x > point.x) || (start.x < point.x && end.x < point.x);
}

bool Report(double height, float* pHitY) {
    if (pHitY != nullptr) {
        *pHitY = static_cast<float>(height);
    }
    return true;
}

}  // namespace

double nestrix::HeightOnLine(float x, const mgVector3& start, const mgVector3& direction) {
    const double slope = static_cast<double>(direction.y) / static_cast<double>(direction.x);
    return static_cast<double>(start.y) + slope * (static_cast<double>(x) - static_cast<double>(start.x));
}

bool DoesPointHitDownward(const mgVector3& point, const mgVector3& start, const mgVector3& end,
                          const mgVector3& direction, float* pHitY) {
    if (IsBesideSegment(point, start, end)) {
        return false;
    }
    if (direction.x == 0.0F) {
        if (std::min(start.y, end.y) > point.y) {
            return false;
        }
        return Report(std::min(std::max(start.y, end.y), point.y), pHitY);
    }
    const double height = nestrix::HeightOnLine(point.x, start, direction);
    return point.y >= height && Report(height, pHitY);
}

bool DoesPointHitUpward(const mgVector3& point, const mgVector3& start, const mgVector3& end,
                        const mgVector3& direction, float* pHitY) {
    if (IsBesideSegment(point, start, end)) {
        return false;
    }
    if (direction.x == 0.0F) {
        if (std::max(start.y, end.y) < point.y) {
            return false;
        }
        // Deliberately min, not the mirrored max: see the header.
        return Report(std::min(std::min(start.y, end.y), point.y), pHitY);
    }
    const double height = nestrix::HeightOnLine(point.x, start, direction);
    return point.y <= height && Report(height, pHitY);
}
