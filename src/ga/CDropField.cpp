#include "CDropField.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The number of the floor among the obstacles.
constexpr int FLOOR = std::numeric_limits<int>::max();

constexpr size_t MAX_COLUMNS = 64;

/// Columns of about half a polygon's width: narrower ones repeat the same polygons, wider ones mix those
/// that cannot meet.
size_t ChooseColumns(std::span<const CPolygon> polygons, float fStripWidth) {
    double width = 0.0;
    for (const CPolygon& polygon : polygons) {
        width += std::abs(static_cast<double>(polygon.m_BoundingBoxMax.x - polygon.m_BoundingBoxMin.x));
    }
    const double average = width / static_cast<double>(polygons.size());
    const double columns = 2.0 * static_cast<double>(fStripWidth) / std::max(average, 1e-3);
    return static_cast<size_t>(std::clamp(columns, 1.0, static_cast<double>(MAX_COLUMNS)));
}

float LargestX(std::span<const CPolygon> polygons) {
    float fLargest = 0.0F;
    for (const CPolygon& polygon : polygons) {
        fLargest =
            std::max({fLargest, std::abs(polygon.m_BoundingBoxMin.x), std::abs(polygon.m_BoundingBoxMax.x)});
        for (const CPoint& point : polygon.m_Points) {
            fLargest = std::max(fLargest, std::abs(point.m_Position.x));
        }
    }
    return fLargest;
}

void Move(const std::vector<float>& block, float fOffset, float* pMoved) {
    for (size_t i = 0; i < block.size(); ++i) {
        pMoved[i] = block[i] + fOffset;
    }
}

void AppendMoved(const std::vector<float>& block, float fOffset, std::vector<float>& moved) {
    const size_t nBegin = moved.size();
    moved.resize(nBegin + block.size());
    Move(block, fOffset, moved.data() + nBegin);
}

struct SBounds {
    float m_fLow;
    float m_fHigh;
};

/// The bounds of a half profile lifted by fY. The slack is several roundings to float of anything that goes
/// into a height.
SBounds BoundsAt(const SHalfProfile& half, float fY) {
    const double y = static_cast<double>(fY);
    const double slack =
        std::ldexp(std::max(std::abs(half.m_fLow), std::abs(half.m_fHigh)) + std::abs(y), -21);
    return {static_cast<float>(half.m_fLow + y - slack), static_cast<float>(half.m_fHigh + y + slack)};
}

/// A fall a few roundings longer than fFall, but none that would pass the floor.
float FallBefore(const SDrop& falling, float fBoxBottom, float fFall) {
    const float fToFloor = falling.m_ReferencePoint.y + fBoxBottom;
    const float fSlack =
        std::ldexp(std::abs(falling.m_ReferencePoint.y) + std::abs(fBoxBottom) + std::abs(fFall), -21);
    return std::min(fFall + fSlack, fToFloor);
}

}  // namespace

CDropField::CDropField(std::span<const CPolygon> polygons, float fStartY, float fStripWidth)
    : m_Polygons(polygons), m_fStripWidth(fStripWidth) {
    if (!(fStripWidth > 0.0F)) {
        return;
    }
    const float fLargestX = LargestX(polygons);
    m_fLargestOffset = fStripWidth + fLargestX;
    const SProfileFrame frame{fStartY, m_fLargestOffset + fLargestX};
    size_t nPlacedX = 0;
    size_t nPlacedY = 0;
    size_t nFallingX = 0;
    for (const CPolygon& polygon : polygons) {
        std::optional<SProfile> profile = PrepareProfile(polygon, frame);
        if (!profile) {
            m_Profiles.clear();
            return;
        }
        m_bAnyVerticals = m_bAnyVerticals || !profile->m_Verticals.empty();
        nFallingX = std::max(nFallingX, profile->m_Front.m_X.size());
        nPlacedX += profile->m_Back.m_X.size();
        nPlacedY += profile->m_Back.m_Y.size();
        m_Profiles.push_back(std::move(*profile));
    }
    m_FallingX.resize(nFallingX);
    m_PlacedX.reserve(nPlacedX);
    m_PlacedY.reserve(nPlacedY);
    m_nColumns = ChooseColumns(polygons, fStripWidth);
    m_Corners.Reset(m_bAnyVerticals ? nPlacedY : 0);
}

void CDropField::Clear(size_t nDrops) {
    if (nDrops > m_nCapacity) {
        m_nCapacity = nDrops;
        m_Columns.Reset(m_fStripWidth, m_nColumns, m_nCapacity);
        m_Placed.reserve(m_nCapacity);
    }
    m_Columns.Clear();
    m_Corners.Clear();
    m_Placed.clear();
    m_PlacedX.clear();
    m_PlacedY.clear();
}

std::optional<float> CDropField::FindFall(const SDrop& drop, std::span<const SDrop> placed) {
    const SFalling falling = Lift(drop, placed);
    const SStop stop = FindStop(falling, {drop.m_ReferencePoint.y + falling.m_fBoxBottom, FLOOR}, -1);
    if (!IsCertain(falling, stop)) {
        return std::nullopt;
    }
    return FindHang(falling, stop);
}

CDropField::SFalling CDropField::Lift(const SDrop& drop, std::span<const SDrop> placed) {
    const auto nPolygon = static_cast<size_t>(drop.m_nPolygon);
    const SProfile& profile = m_Profiles[nPolygon];
    const SHalfProfile& front = profile.m_Front;
    Move(front.m_X, drop.m_ReferencePoint.x, m_FallingX.data());
    const SBounds bounds = BoundsAt(front, 0.0F);  // already at the starting height
    return {drop,
            profile,
            {&front, m_FallingX.data(), front.m_Y.data(), bounds.m_fLow, bounds.m_fHigh},
            m_Polygons[nPolygon].m_BoundingBoxMin.y,
            placed};
}

CDropField::SStop CDropField::FindStop(const SFalling& falling, SStop stop, int nAfter) {
    const SBox& box = falling.m_Drop.m_Box;
    const SMovedHalf& front = falling.m_Front;
    ++m_nQuery;
    m_Columns.Visit(box.m_fLeft, box.m_fRight, [&](const CColumnIndex::SEntry& entry) {
        if (front.m_fLow - entry.m_fHigh >= stop.m_fFall) {
            return false;
        }
        SPlacedHalf& place = m_Placed[static_cast<size_t>(entry.m_nDrop)];
        const SDrop& obstacle = falling.m_Placed[static_cast<size_t>(entry.m_nDrop)];
        if (entry.m_nDrop <= nAfter || place.m_nQuery == m_nQuery || place.m_fLow > front.m_fHigh ||
            !CanTouch(box, obstacle.m_Box)) {
            return true;
        }
        place.m_nQuery = m_nQuery;
        const SMovedHalf back = UpperProfile(place, obstacle);
        const float fFall = SweepUpward(back, front, SweepDownward(front, back, stop.m_fFall));
        if (fFall < stop.m_fFall) {
            stop = {fFall, entry.m_nDrop};
        }
        return true;
    });
    return stop;
}

bool CDropField::IsAskedAt(const SFalling& falling, float fFall, int nObstacle) const {
    return IsAsked(falling.m_Drop, falling.m_fBoxBottom, fFall,
                   falling.m_Placed[static_cast<size_t>(nObstacle)]);
}

bool CDropField::IsCertain(const SFalling& falling, const SStop& stop) {
    if (stop.m_nObstacle == FLOOR || IsAskedAt(falling, stop.m_fFall, stop.m_nObstacle)) {
        return true;
    }
    // The obstacle lies below the rest that it gives itself. Where flat lies on flat, rounding does that
    // every other time: then it is asked all the same unless a younger obstacle gives very nearly the same
    // rest.
    const float fBefore = FallBefore(falling.m_Drop, falling.m_fBoxBottom, stop.m_fFall);
    return IsAskedAt(falling, fBefore, stop.m_nObstacle) &&
           FindStop(falling, {fBefore, FLOOR}, stop.m_nObstacle).m_nObstacle == FLOOR;
}

std::optional<float> CDropField::FindHang(const SFalling& falling, const SStop& stop) {
    const SDrop& drop = falling.m_Drop;
    SStop hang = stop;
    for (const SVerticalSide& side : falling.m_Profile.m_Verticals) {
        const auto isUnclear = [&](const CCornerIndex::SCorner& corner) {
            const float fGap = std::min(side.m_fLow, corner.m_fY) - corner.m_fY;
            if (side.m_fHigh < corner.m_fY || fGap >= hang.m_fFall ||
                !CanTouch(drop.m_Box, falling.m_Placed[static_cast<size_t>(corner.m_nDrop)].m_Box)) {
                return false;
            }
            if (IsAskedAt(falling, fGap, corner.m_nDrop)) {
                hang = {fGap, corner.m_nDrop};
                return false;
            }
            const std::optional<bool> reached = IsReached(falling, stop, corner.m_nDrop);
            if (reached.value_or(false)) {
                hang = {fGap, corner.m_nDrop};
            }
            return fGap < 0.0F || !reached;
        };
        if (m_Corners.AnyAt(side.m_fX + drop.m_ReferencePoint.x, isUnclear)) {
            return std::nullopt;
        }
    }
    return hang.m_fFall;
}

std::optional<bool> CDropField::IsReached(const SFalling& falling, const SStop& stop, int nObstacle) {
    if (nObstacle < stop.m_nObstacle) {
        return IsAskedAt(falling, stop.m_fFall, nObstacle);
    }
    const SDrop& obstacle = falling.m_Placed[static_cast<size_t>(nObstacle)];
    const float fTouching = falling.m_Drop.m_ReferencePoint.y + falling.m_fBoxBottom - obstacle.m_Box.m_fTop;
    const float fBefore = FallBefore(falling.m_Drop, falling.m_fBoxBottom, fTouching);
    if (!IsAskedAt(falling, fBefore, nObstacle)) {
        return std::nullopt;
    }
    const SStop younger = FindStop(falling, {fBefore, FLOOR}, nObstacle);
    if (younger.m_nObstacle == FLOOR) {
        return true;
    }
    if (!IsCertain(falling, younger)) {
        return std::nullopt;
    }
    return IsAskedAt(falling, younger.m_fFall, nObstacle);
}

void CDropField::Add(const SDrop& drop, int nDrop) {
    const SHalfProfile& back = m_Profiles[static_cast<size_t>(drop.m_nPolygon)].m_Back;
    const SBounds bounds = BoundsAt(back, drop.m_ReferencePoint.y);
    m_Placed.push_back({m_PlacedX.size(), m_PlacedY.size(), bounds.m_fLow, bounds.m_fHigh, 0});
    if (back.m_Y.empty()) {
        return;
    }
    AppendMoved(back.m_X, drop.m_ReferencePoint.x, m_PlacedX);
    AppendMoved(back.m_Y, drop.m_ReferencePoint.y, m_PlacedY);
    m_Columns.Insert(drop.m_Box.m_fLeft, drop.m_Box.m_fRight, {bounds.m_fHigh, nDrop});
    if (m_bAnyVerticals) {
        const SMovedHalf moved = UpperProfile(m_Placed.back(), drop);
        for (size_t i = 0; i < back.m_nPoints; ++i) {
            m_Corners.Insert(moved.m_pX[i], moved.m_pY[i], nDrop);
        }
    }
}

SMovedHalf CDropField::UpperProfile(const SPlacedHalf& place, const SDrop& obstacle) const {
    return {&m_Profiles[static_cast<size_t>(obstacle.m_nPolygon)].m_Back, m_PlacedX.data() + place.m_nX,
            m_PlacedY.data() + place.m_nY, place.m_fLow, place.m_fHigh};
}
