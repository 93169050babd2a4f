#include "batch/PolygonInput.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "drawing/Unit.h"
#include "formats/PolygonFile.h"

namespace nestrix {

namespace {

using ESeverity = SFinding::ESeverity;

constexpr char OPEN_BOX[] =
    "the bounding box does not enclose the outline: the piece may stick out of the strip or overlap others";

/// Negative for an outline that runs clockwise.
double TwiceSignedArea(const CPolygon& polygon) {
    double area = 0.0;
    for (const CLine& line : polygon.m_Lines) {
        const mgVector3& start = polygon.PositionOf(line.m_nStart);
        const mgVector3& end = polygon.PositionOf(line.m_nEnd);
        area += static_cast<double>(start.x) * static_cast<double>(end.y) -
                static_cast<double>(end.x) * static_cast<double>(start.y);
    }
    return area;
}

/// The smallest box around the vertices.
CPolygon WithTightBox(CPolygon polygon) {
    mgVector3 low = polygon.m_Points.empty() ? mgVector3() : polygon.m_Points.front().m_Position;
    mgVector3 high = low;
    for (const CPoint& point : polygon.m_Points) {
        low = {std::min(low.x, point.m_Position.x), std::min(low.y, point.m_Position.y), 0.0F};
        high = {std::max(high.x, point.m_Position.x), std::max(high.y, point.m_Position.y), 0.0F};
    }
    polygon.m_BoundingBoxMin = low;
    polygon.m_BoundingBoxMax = high;
    return polygon;
}

bool IsEnclosed(const CPolygon& polygon) {
    const CPolygon tight = WithTightBox(polygon);
    return tight.m_BoundingBoxMin.x >= polygon.m_BoundingBoxMin.x &&
           tight.m_BoundingBoxMin.y >= polygon.m_BoundingBoxMin.y &&
           tight.m_BoundingBoxMax.x <= polygon.m_BoundingBoxMax.x &&
           tight.m_BoundingBoxMax.y <= polygon.m_BoundingBoxMax.y;
}

/// What a curve's calculation leaves of a coordinate that is 0 would ask for digits that no exact examination
/// has room for.
constexpr double NOISE_SHARE = 1e-12;  ///< of the largest coordinate

mgVector3 WithoutNoise(SPoint point, double largest) {
    const auto plain = [noise = largest * NOISE_SHARE](double coordinate) {
        return std::fabs(coordinate) < noise ? 0.0F : static_cast<float>(coordinate);
    };
    return {plain(point.m_X), plain(point.m_Y), 0.0F};
}

CRing OutlineOf(const CPolygon& polygon, double scale) {
    CRing outline;
    outline.reserve(polygon.m_Lines.size());
    for (const CLine& line : polygon.m_Lines) {
        const mgVector3& start = polygon.PositionOf(line.m_nStart);
        outline.push_back({start.x * scale, start.y * scale});
    }
    return outline;
}

SPath PathOf(const CRing& ring) {
    SPath path;
    path.m_bClosed = true;
    path.m_Start = ring.empty() ? SPoint() : ring.front();
    for (size_t i = 1; i < ring.size(); ++i) {
        path.m_Stretches.emplace_back(SLineTo{ring[i]});
    }
    return path;
}

CPolygon Scaled(const CPolygon& polygon, double scale) {
    const auto scaled = [scale](mgVector3 at) {
        return mgVector3{static_cast<float>(at.x * scale), static_cast<float>(at.y * scale), at.z};
    };
    CPolygon larger;
    for (const CPoint& point : polygon.m_Points) {
        larger.m_Points.emplace_back().m_Position = scaled(point.m_Position);
    }
    larger.m_BoundingBoxMin = scaled(polygon.m_BoundingBoxMin);
    larger.m_BoundingBoxMax = scaled(polygon.m_BoundingBoxMax);
    larger.Process();
    return larger;
}

}  // namespace

SInputFile ReadPolygonInput(const std::string& path, const SReadOptions& reading) {
    SPolygonFile file = ReadPolygonFile(path.c_str());
    SInputFile input;
    input.m_bHasUnits = false;
    const bool bSound = file.m_Fault.empty();
    const bool bTaken = bSound || (reading.m_bLenient && file.m_bIsOpen);
    if (!bSound) {
        input.m_Findings.push_back(
            {path, file.m_nFaultLine, bTaken ? ESeverity::ODD : ESeverity::FAULT, file.m_Fault});
    }
    if (file.m_nRestLine > 0) {
        input.m_Findings.push_back({path, file.m_nRestLine, ESeverity::ODD,
                                    "what follows the bounding box is left out: a file holds one polygon"});
    }
    if (bTaken) {
        if (!bSound) {
            file.m_Polygon.Process();
        }
        const double scale = ScaleOf(reading, std::nullopt);
        SPiece piece;
        piece.m_Name = std::filesystem::path(path).stem();
        piece.m_Shape.m_Outline = OutlineOf(file.m_Polygon, scale);
        input.m_Pieces.push_back(InputPieceOf(std::move(piece), path, file.m_nOutlineLine));
        input.m_Pieces.back().m_nBoxLine = file.m_nBoxLine;
        input.m_Pieces.back().m_Polygon =
            scale == 1.0 ? std::move(file.m_Polygon) : Scaled(file.m_Polygon, scale);
    }
    return input;
}

SInputPiece InputPieceOf(SPiece piece, const std::string& file, int nLine) {
    SInputPiece input;
    input.m_Drawn.m_Name = piece.m_Name;
    input.m_Drawn.m_File = file;
    input.m_Drawn.m_nLine = nLine;
    input.m_Drawn.m_Outline = PathOf(piece.m_Shape.m_Outline);
    for (const CRing& hole : piece.m_Shape.m_Holes) {
        input.m_Drawn.m_Holes.push_back(PathOf(hole));
    }
    input.m_Piece = std::move(piece);
    return input;
}

std::vector<SFinding> HarmOfDropping(const SInputPiece& piece, float fStripWidth) {
    std::vector<SFinding> harm;
    if (!piece.m_Polygon) {
        return harm;
    }
    const CPolygon& polygon = *piece.m_Polygon;
    const auto add = [&](int nLine, char const* pMessage) {
        harm.push_back({piece.m_Drawn.m_File, nLine, ESeverity::ODD, pMessage});
    };
    if (TwiceSignedArea(polygon) < 0.0) {
        add(piece.m_Drawn.m_nLine, "the outline runs clockwise: other pieces may come to lie on top of it");
    }
    if (!IsEnclosed(polygon)) {
        add(piece.m_nBoxLine, OPEN_BOX);
    }
    if (polygon.m_BoundingBoxMax.x - polygon.m_BoundingBoxMin.x > fStripWidth) {
        add(piece.m_nBoxLine, "the piece is wider than the strip: it will stick out on the left");
    }
    return harm;
}

std::optional<SFinding> FindBadBox(const SInputPiece& piece) {
    if (!piece.m_Polygon) {
        return std::nullopt;
    }
    const CPolygon& polygon = *piece.m_Polygon;
    const CPolygon tight = WithTightBox(polygon);
    if (tight.m_BoundingBoxMin == polygon.m_BoundingBoxMin &&
        tight.m_BoundingBoxMax == polygon.m_BoundingBoxMax) {
        return std::nullopt;
    }
    return SFinding{piece.m_Drawn.m_File, piece.m_nBoxLine, ESeverity::ODD,
                    IsEnclosed(polygon)
                        ? "the bounding box is larger than the outline: dropped, the piece keeps others away"
                        : OPEN_BOX};
}

CPolygon PolygonOf(const SInputPiece& piece) {
    if (piece.m_Polygon) {
        return *piece.m_Polygon;
    }
    const CRing& outline = piece.m_Piece.m_Shape.m_Outline;
    double largest = 0.0;
    for (const SPoint point : outline) {
        largest = std::max({largest, std::fabs(point.m_X), std::fabs(point.m_Y)});
    }
    CPolygon polygon;
    for (const SPoint point : outline) {
        polygon.m_Points.emplace_back().m_Position = WithoutNoise(point, largest);
    }
    polygon.BuildConnectivity();
    if (TwiceSignedArea(polygon) < 0.0) {
        std::reverse(polygon.m_Points.begin(), polygon.m_Points.end());
    }
    polygon.m_Lines.clear();
    polygon = WithTightBox(std::move(polygon));
    polygon.Process();
    return polygon;
}

}  // namespace nestrix
