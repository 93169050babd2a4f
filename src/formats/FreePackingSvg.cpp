#include "formats/FreePackingSvg.h"

#include "base/NumberText.h"
#include "formats/CStripPicture.h"

namespace nestrix {

namespace {

void AddRing(const CGridRing& ring, const SGrid& grid, std::string& path) {
    char const* pBefore = path.empty() ? "M" : " M";
    for (const SGridPoint point : ring) {
        path.append(pBefore).append(ShortestDigits(grid.Length(point.m_nX)));
        path.append(",").append(ShortestDigits(grid.Length(point.m_nY)));
        pBefore = " ";
    }
    path.append("Z");
}

std::string PathOf(const SGridShape& shape, const SGrid& grid) {
    std::string path;
    AddRing(shape.m_Outline, grid, path);
    for (const CGridRing& hole : shape.m_Holes) {
        AddRing(hole, grid, path);
    }
    return path;
}

void DrawPieces(const SFreePacking& packing, std::span<const SGridShape> placed, CStripPicture& picture) {
    picture.BeginOutlines();
    for (size_t i = 0; i < placed.size(); ++i) {
        picture.Svg().Element("path").Set("d", PathOf(placed[i], packing.m_Grid));
        picture.Svg().Set("fill-rule", "evenodd");
        picture.SetColours(static_cast<size_t>(packing.m_Placed[i].m_nPiece));
        picture.Svg().End();
    }
    picture.EndGroup();
    picture.BeginNumbers();
    for (size_t i = 0; i < placed.size(); ++i) {
        picture.DrawNumber(i + 1, FindLabelPoint(EdgesOf(placed[i], packing.m_Grid)));
    }
    picture.EndGroup();
}

}  // namespace

std::string DrawFreePackingSvg(std::span<const SPiece> pieces, const SFreePacking& packing) {
    const double width = packing.m_Strip.m_Width;
    const double margin = packing.m_Strip.m_Margin;
    const double height = packing.m_Grid.Length(packing.m_nHeight);
    CStripPicture picture(FindPictureView(packing), packing.m_Placed.size());
    picture.DrawScale(height);
    DrawPieces(packing, PlacedShapes(pieces, packing), picture);
    if (margin > 0.0) {
        picture.DrawMargin(width, margin);
    }
    picture.DrawStrip(width);
    picture.DrawHeight(width, height,
                       "Height " + ShortestDigits(height) + ", density " +
                           Decimals(100.0 * DensityOf(pieces, packing), 1) + " %");
    return picture.Finish();
}

}  // namespace nestrix
