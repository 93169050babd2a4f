#include "formats/PackingSvg.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/CNumericLocale.h"
#include "formats/CStripPicture.h"
#include "formats/SvgNumber.h"

namespace nestrix {

namespace {

std::string PointsOf(const CPolygon& piece, const mgVector3& at) {
    std::string points;
    for (const CPoint& point : piece.m_Points) {
        const mgVector3 world = point.m_Position + at;
        points.append(points.empty() ? "" : " ").append(SvgNumber(world.x));
        points.append(",").append(SvgNumber(world.y));
    }
    return points;
}

std::string CaptionOf(float fHeight) {
    const CNumericLocale numericLocale;
    std::array<char, 96> caption{};
    std::snprintf(caption.data(), caption.size(), "Minimum Height = %0.2f", static_cast<double>(fHeight));
    return caption.data();
}

std::string Draw(std::span<const CPolygon> pieces, const SPacking& packing) {
    const std::vector<SPlacedPiece>& placed = packing.m_Placed;
    const auto pieceOf = [&](size_t i) -> const CPolygon& {
        return pieces[static_cast<size_t>(placed[i].m_nPiece)];
    };
    CStripPicture picture(FindPictureView(pieces, packing), placed.size());
    picture.DrawScale(std::max(packing.m_fHeight, 0.0F));
    picture.BeginOutlines();
    for (size_t i = 0; i < placed.size(); ++i) {
        picture.Svg().Element("polygon").Set("points", PointsOf(pieceOf(i), placed[i].m_At));
        picture.SetColours(i);
        picture.Svg().End();
    }
    picture.EndGroup();
    picture.BeginNumbers();
    for (size_t i = 0; i < placed.size(); ++i) {
        const SLabelPoint label = FindLabelPoint(EdgesOf(pieceOf(i)));
        const mgVector3& at = placed[i].m_At;
        picture.DrawNumber(i + 1, {label.m_X + at.x, label.m_Y + at.y, label.m_Room});
    }
    picture.EndGroup();
    picture.DrawStrip(packing.m_Strip.m_fWidth);
    picture.DrawHeight(packing.m_Strip.m_fWidth, packing.m_fHeight, CaptionOf(packing.m_fHeight));
    return picture.Finish();
}

}  // namespace

std::string DrawPackingSvg(std::span<const CPolygon> pieces, const SPacking& packing) {
    return IsFinite(pieces, packing) ? Draw(pieces, packing) : std::string();
}

}  // namespace nestrix
