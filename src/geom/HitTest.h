#pragma once

#include "geom/Vector.h"

namespace nestrix {

/// The height at x of the line through `start` along `direction`, which is not vertical: computed in double,
/// and the same bit for bit as in the tests below.
[[nodiscard]] double HeightOnLine(float x, const mgVector3& start, const mgVector3& direction);

}  // namespace nestrix

/// Does `point`, moved straight down, meet the segment from `start` to `end`?
///
/// The span test is inclusive at both ends, a point on the segment hits it, and no comparison has a
/// tolerance. The arithmetic is carried out in double; the meeting height is rounded to float once.
///
/// @param direction the segment's stored direction, end − start. It is trusted: the slope and the vertical
///        test are taken from it, the intercept from `start`.
/// @param pHitY receives the height of the meeting; may be null, and is left untouched without a hit.
/// @return whether the segment lies at or below the point.
bool DoesPointHitDownward(const mgVector3& point, const mgVector3& start, const mgVector3& end,
                          const mgVector3& direction, float* pHitY);

/// Does `point`, moved straight up, meet the segment from `start` to `end`? As DoesPointHitDownward, for a
/// segment at or above the point.
///
/// A vertical segment is deliberately not the mirror image of the downward rule: the meeting height is
/// min(lower end, point.y), so a point below the whole segment reports its own height, and a point level
/// with the segment reports the lower end, which lies below the point. The approach distance turns the two
/// into a gap of zero and a negative gap; packings depend on it.
bool DoesPointHitUpward(const mgVector3& point, const mgVector3& start, const mgVector3& end,
                        const mgVector3& direction, float* pHitY);
