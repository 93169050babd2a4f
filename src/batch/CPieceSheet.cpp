#include "batch/CPieceSheet.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace nestrix {

namespace {

/// Between the pieces of two files, of the sheet's width.
constexpr double GAP = 0.02;

struct SPlaneExtent {
    double m_Left = std::numeric_limits<double>::infinity();
    double m_Low = std::numeric_limits<double>::infinity();
    double m_Right = -std::numeric_limits<double>::infinity();

    void Include(const CRing& ring) {
        for (const SPoint point : ring) {
            m_Left = std::min(m_Left, point.m_X);
            m_Low = std::min(m_Low, point.m_Y);
            m_Right = std::max(m_Right, point.m_X);
        }
    }
};

/// The extents of the pieces of each file, in their order.
std::vector<SPlaneExtent> ExtentsOf(std::span<const SPiece> pieces, std::span<const SDrawnPiece> drawn) {
    std::vector<SPlaneExtent> extents;
    for (size_t i = 0; i < pieces.size(); ++i) {
        if (i == 0 || drawn[i].m_File != drawn[i - 1].m_File) {
            extents.emplace_back();
        }
        extents.back().Include(pieces[i].m_Shape.m_Outline);
    }
    return extents;
}

double WidthOf(const std::vector<SPlaneExtent>& extents) {
    double width = 0.0;
    for (const SPlaneExtent& extent : extents) {
        width += extent.m_Right - extent.m_Left;
    }
    return width > 0.0 ? width : 1.0;
}

}  // namespace

CPieceSheet::CPieceSheet(std::span<const SPiece> pieces, std::span<const SDrawnPiece> drawn,
                         std::optional<EUnit> unit)
    : m_Pieces(pieces), m_Drawn(drawn), m_Unit(unit) {
    const std::vector<SPlaneExtent> extents = ExtentsOf(pieces, drawn);
    const double gap = GAP * WidthOf(extents);
    m_Layout.m_Strip.m_Width =
        WidthOf(extents) + gap * static_cast<double>(std::max<size_t>(extents.size(), 1) - 1);
    m_Layout.m_Grid = GridFor(m_Layout.m_Strip.m_Width);
    double x = 0.0;  // where the present file's pieces begin
    size_t nFile = 0;
    for (size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0 && drawn[i].m_File != drawn[i - 1].m_File) {
            x += extents[nFile].m_Right - extents[nFile].m_Left + gap;
            ++nFile;
        }
        SPlaneExtent own;
        own.Include(pieces[i].m_Shape.m_Outline);
        const SGridPoint at{m_Layout.m_Grid.Count(x + own.m_Left - extents[nFile].m_Left),
                            m_Layout.m_Grid.Count(own.m_Low - extents[nFile].m_Low)};
        m_Layout.m_Placed.push_back({static_cast<int>(i), false, 0.0, at});
    }
    m_Layout.m_nHeight = HeightOf(PlacedShapes(pieces, m_Layout));
}

}  // namespace nestrix
