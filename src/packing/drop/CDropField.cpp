#include "packing/drop/CDropField.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "geom/RoundingMargins.h"

namespace nestrix {

namespace {

constexpr size_t MAX_COLUMNS = 64;

/// Columns about one and a half times as wide as the average polygon: narrower ones show the same polygons
/// several times, wider ones mix those that cannot meet. Measured: 0.7 to 1.0 columns a width are best, 2.0
/// cost a tenth more.
size_t ChooseColumns(std::span<const CPolygon> polygons, float fStripWidth) {
    double width = 0.0;
    for (const CPolygon& polygon : polygons) {
        width += std::abs(static_cast<double>(polygon.m_BoundingBoxMax.x - polygon.m_BoundingBoxMin.x));
    }
    const double average = polygons.empty() ? 0.0 : width / static_cast<double>(polygons.size());
    const double columns = 0.7 * static_cast<double>(fStripWidth) / std::max(average, 1e-3);
    return static_cast<size_t>(std::clamp(columns, 1.0, static_cast<double>(MAX_COLUMNS)));
}

/// Cells of the grid at the starting height to an average polygon, each way. Measured: 3 to 8 are as good.
constexpr double GRID_CELLS = 6.0;
constexpr double MAX_GRID_CELLS = 128.0;

/// So many polygons at the starting height stay among the others: few are swept sooner than entered in the
/// grid. Measured: 8 to 32 are as good where hundreds hang, but fewer than 24 cost a tenth where dozens do.
constexpr size_t FEW_AT_START = 24;

/// What a grid is fitted to.
struct SSizes {
    double m_Width = 0.0;  ///< average
    double m_Height = 0.0;
    SRange m_Y{0.0F, 0.0F};  ///< of all boxes, local
};

SSizes SizesOf(std::span<const CPolygon> polygons) {
    SSizes sizes;
    const double share = polygons.empty() ? 0.0 : 1.0 / static_cast<double>(polygons.size());
    bool bFirst = true;
    for (const CPolygon& polygon : polygons) {
        const mgVector3& low = polygon.m_BoundingBoxMin;
        const mgVector3& high = polygon.m_BoundingBoxMax;
        sizes.m_Width += std::abs(static_cast<double>(high.x - low.x)) * share;
        sizes.m_Height += std::abs(static_cast<double>(high.y - low.y)) * share;
        sizes.m_Y = bFirst ? SRange{low.y, high.y}
                           : SRange{std::min(sizes.m_Y.m_fLow, low.y), std::max(sizes.m_Y.m_fHigh, high.y)};
        bFirst = false;
    }
    return sizes;
}

/// @param size of an average polygon along the axis.
size_t ChooseGridCells(float fRange, double size) {
    return static_cast<size_t>(
        std::clamp(GRID_CELLS * static_cast<double>(fRange) / std::max(size, 1e-3), 1.0, MAX_GRID_CELLS));
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

/// A fall a few roundings longer than fFall, but none that would pass the floor.
float FallBefore(const SDrop& falling, float fBoxBottom, float fFall) {
    const float fToFloor = falling.m_ReferencePoint.y + fBoxBottom;
    const float fMargin =
        HeightMargin(std::abs(falling.m_ReferencePoint.y) + std::abs(fBoxBottom) + std::abs(fFall));
    return std::min(fFall + fMargin, fToFloor);
}

}  // namespace

CDropField::CDropField(std::span<const CPolygon> polygons, float fStripWidth, float fStartY,
                       const CRelaxed<bool>* pAbandoned)
    : m_Polygons(polygons),
      m_fStripWidth(fStripWidth),
      m_fLargestOffset(fStripWidth + LargestX(polygons)),
      m_pAbandoned(pAbandoned),
      m_Profiles(polygons, m_fLargestOffset + LargestX(polygons), pAbandoned),
      m_bVerticals(m_Profiles.HasVerticals()),
      m_bUsable(fStripWidth >= std::numeric_limits<float>::min() && m_Profiles.IsComplete()) {
    if (!m_bUsable) {
        return;
    }
    m_Corners.Reset(m_bVerticals ? m_Profiles.CountBackPoints() : 0);
    m_nColumns = ChooseColumns(polygons, fStripWidth);
    PrepareStartGrid(fStartY);
}

void CDropField::PrepareStartGrid(float fStartY) {
    const SSizes sizes = SizesOf(m_Polygons);
    // Of the places where the lower profiles start: what hangs there, or a little lower, is in their way.
    const SRange y{fStartY + sizes.m_Y.m_fLow, fStartY + sizes.m_Y.m_fHigh};
    m_StartGrid.Reset({0.0F, m_fStripWidth}, y, ChooseGridCells(m_fStripWidth, sizes.m_Width),
                      ChooseGridCells(y.m_fHigh - y.m_fLow, sizes.m_Height), m_Profiles.CountBackPoints());
}

void CDropField::Clear(size_t nDrops) {
    if (nDrops > m_nCapacity) {
        m_Placed.reserve(nDrops);
        m_Columns.Reset(m_fStripWidth, m_nColumns, nDrops);
        m_nCapacity = nDrops;  // last: there may be no memory for any of it
    }
    m_Columns.Clear();
    m_Corners.Clear();
    m_StartGrid.Clear();
    m_nAtStart = 0;
    m_Placed.clear();
}

std::optional<float> CDropField::FindFall(const SDrop& drop, std::span<const SDrop> placed) {
    const SFalling falling = PrepareFall(drop, placed);
    const SLanding landing =
        FindLanding(falling, {drop.m_ReferencePoint.y + falling.m_fBoxBottom, SLanding::FLOOR}, -1);
    if (!IsCertain(falling, landing)) {
        return std::nullopt;
    }
    return FindHang(falling, landing);
}

CDropField::SFalling CDropField::PrepareFall(const SDrop& drop, std::span<const SDrop> placed) const {
    const SProfile& profile = m_Profiles.Of(drop.m_nPolygon);
    return {drop,
            profile,
            {profile.m_Front, drop.m_ReferencePoint.x, drop.m_ReferencePoint.y},
            m_Polygons[static_cast<size_t>(drop.m_nPolygon)].m_BoundingBoxMin.y,
            placed};
}

SLanding CDropField::FindLanding(const SFalling& falling, SLanding landing, int nAfter) {
    const SBox& box = falling.m_Drop.m_Box;
    const SMovedHalf& front = falling.m_Front;
    const SObstacles obstacles{box, falling.m_Placed, nAfter};
    if (!m_StartGrid.IsEmpty()) {
        landing = m_StartGrid.FindLanding(front, landing, obstacles, m_pAbandoned);
    }
    ++m_nQuery;
    m_Columns.Visit(box.m_fLeft, box.m_fRight, [&](const CColumnIndex::SEntry& entry) {
        if (front.m_Y.m_fLow - entry.m_fHigh >= landing.m_fFall) {
            return false;
        }
        SPlacedHalf& half = m_Placed[static_cast<size_t>(entry.m_nDrop)];
        if (half.m_nQuery == m_nQuery || half.m_Back.m_Y.m_fLow > front.m_Y.m_fHigh ||
            !obstacles.Contain(entry.m_nDrop)) {
            return true;
        }
        half.m_nQuery = m_nQuery;
        const float fFall = FindGap(front, half.m_Back, landing.m_fFall, m_pAbandoned);
        if (fFall < landing.m_fFall) {
            landing = {fFall, entry.m_nDrop};
        }
        return true;
    });
    return landing;
}

bool CDropField::PassesLevelTestAt(const SFalling& falling, float fFall, int nObstacle) const {
    return PassesLevelTest(falling.m_Drop, falling.m_fBoxBottom, fFall,
                           falling.m_Placed[static_cast<size_t>(nObstacle)]);
}

bool CDropField::IsCertain(const SFalling& falling, const SLanding& landing) {
    if (landing.m_nObstacle == SLanding::FLOOR ||
        PassesLevelTestAt(falling, landing.m_fFall, landing.m_nObstacle)) {
        return true;
    }
    // The obstacle lies below the rest that it gives itself. Where flat lies on flat, rounding does that
    // every other time: then it is asked all the same unless a younger obstacle gives very nearly the same
    // rest.
    const float fBefore = FallBefore(falling.m_Drop, falling.m_fBoxBottom, landing.m_fFall);
    return PassesLevelTestAt(falling, fBefore, landing.m_nObstacle) &&
           FindLanding(falling, {fBefore, SLanding::FLOOR}, landing.m_nObstacle).m_nObstacle ==
               SLanding::FLOOR;
}

std::optional<float> CDropField::FindHang(const SFalling& falling, const SLanding& landing) {
    const SDrop& drop = falling.m_Drop;
    SLanding hang = landing;
    for (const SVerticalSide& side : falling.m_Profile.m_Verticals) {
        const auto isUnclear = [&](const CCornerIndex::SCorner& corner) {
            const float fLow = side.m_fLow + drop.m_ReferencePoint.y;
            const float fHigh = side.m_fHigh + drop.m_ReferencePoint.y;
            const float fGap = std::min(fLow, corner.m_fY) - corner.m_fY;
            if (fHigh < corner.m_fY || fGap >= hang.m_fFall ||
                !CanTouch(drop.m_Box, falling.m_Placed[static_cast<size_t>(corner.m_nDrop)].m_Box)) {
                return false;
            }
            if (PassesLevelTestAt(falling, fGap, corner.m_nDrop)) {
                hang = {fGap, corner.m_nDrop};
                return false;
            }
            const std::optional<bool> passes = PassesAtItsTurn(falling, landing, corner.m_nDrop);
            if (passes.value_or(false)) {
                hang = {fGap, corner.m_nDrop};
            }
            return fGap < 0.0F || !passes;
        };
        if (m_Corners.AnyAt(side.m_fX + drop.m_ReferencePoint.x, isUnclear)) {
            return std::nullopt;
        }
    }
    return hang.m_fFall;
}

std::optional<bool> CDropField::PassesAtItsTurn(const SFalling& falling, const SLanding& landing,
                                                int nObstacle) {
    if (nObstacle < landing.m_nObstacle) {
        return PassesLevelTestAt(falling, landing.m_fFall, nObstacle);
    }
    const SDrop& obstacle = falling.m_Placed[static_cast<size_t>(nObstacle)];
    const float fTouching = falling.m_Drop.m_ReferencePoint.y + falling.m_fBoxBottom - obstacle.m_Box.m_fTop;
    const float fBefore = FallBefore(falling.m_Drop, falling.m_fBoxBottom, fTouching);
    if (!PassesLevelTestAt(falling, fBefore, nObstacle)) {
        return std::nullopt;
    }
    const SLanding younger = FindLanding(falling, {fBefore, SLanding::FLOOR}, nObstacle);
    if (younger.m_nObstacle == SLanding::FLOOR) {
        return true;
    }
    if (!IsCertain(falling, younger)) {
        return std::nullopt;
    }
    return PassesLevelTestAt(falling, younger.m_fFall, nObstacle);
}

void CDropField::Add(const SDrop& drop, int nDrop) {
    const SHalfProfile& half = m_Profiles.Of(drop.m_nPolygon).m_Back;
    const SMovedHalf back(half, drop.m_ReferencePoint.x, drop.m_ReferencePoint.y);
    m_Placed.push_back({back, 0});
    if (half.m_Points.m_nCount == 0 && half.m_Edges.m_nCount == 0) {
        return;
    }
    if (m_StartGrid.Takes(back) && m_nAtStart++ >= FEW_AT_START) {
        m_StartGrid.Insert(back, nDrop);
    } else {
        m_Columns.Insert(drop.m_Box.m_fLeft, drop.m_Box.m_fRight, {back.m_Y.m_fHigh, nDrop});
    }
    if (m_bVerticals) {
        m_Corners.MakeRoom(half.m_Points.m_nCount);
        for (size_t i = 0; i < half.m_Points.m_nCount; ++i) {
            m_Corners.Insert(half.m_Points.m_X[i] + back.m_fX, back.m_fY - half.m_Points.m_Y[i], nDrop);
        }
    }
}

}  // namespace nestrix
