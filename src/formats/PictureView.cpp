#include "formats/PictureView.h"

#include <algorithm>
#include <cmath>

namespace nestrix {

namespace {

/// Up to this size, texts and lines have their natural sizes.
constexpr double COMMON_EXTENT = 600.0;

/// So wide a strip has room for a caption of natural size.
constexpr double LEAST_WIDTH = 200.0;

}  // namespace

SPictureView FindPictureView(std::span<const CPolygon> pieces, const SPacking& packing) {
    SPictureView view{0.0, packing.m_Strip.m_fWidth, 0.0, std::max(packing.m_fHeight, 0.0F), 1.0};
    for (const SPlacedPiece& placed : packing.m_Placed) {
        for (const CPoint& point : pieces[static_cast<size_t>(placed.m_nPiece)].m_Points) {
            const mgVector3 world = point.m_Position + placed.m_At;
            view.m_Left = std::min<double>(view.m_Left, world.x);
            view.m_Right = std::max<double>(view.m_Right, world.x);
            view.m_Bottom = std::min<double>(view.m_Bottom, world.y);
            view.m_Top = std::max<double>(view.m_Top, world.y);
        }
    }
    view.m_Scale = std::max(1.0, view.Extent() / COMMON_EXTENT);
    return view;
}

SPictureView FindPictureView(const SFreePacking& packing) {
    SPictureView view{0.0, packing.m_Strip.m_Width, 0.0, packing.m_Grid.Length(packing.m_nHeight), 1.0};
    // The caption must not get wider than a narrow strip.
    view.m_Scale = std::min(view.Extent() / COMMON_EXTENT, view.m_Right / LEAST_WIDTH);
    return view;
}

bool IsFinite(std::span<const CPolygon> pieces, const SPacking& packing) {
    const auto isFinite = [pieces](const SPlacedPiece& placed) {
        const std::vector<CPoint>& points = pieces[static_cast<size_t>(placed.m_nPiece)].m_Points;
        return std::all_of(points.begin(), points.end(), [&placed](const CPoint& point) {
            const mgVector3 world = point.m_Position + placed.m_At;
            return std::isfinite(world.x) && std::isfinite(world.y);
        });
    };
    return std::isfinite(packing.m_Strip.m_fWidth) && std::isfinite(packing.m_fHeight) &&
           std::all_of(packing.m_Placed.begin(), packing.m_Placed.end(), isFinite);
}

double FindScaleStep(double extent) {
    const double power = std::pow(10.0, std::floor(std::log10(extent / 10.0)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (extent <= 10.0 * factor * power) {
            return factor * power;
        }
    }
    return 10.0 * power;
}

}  // namespace nestrix
