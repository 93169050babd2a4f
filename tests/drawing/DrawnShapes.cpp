#include "tests/drawing/DrawnShapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "packing/PointVectors.h"

namespace nestrix::support {

namespace {

using std::numbers::pi;

CStretch RandomStretch(CSeededRandom& random, SPoint from, SPoint to) {
    const SPoint along = to - from;
    const SPoint aside{-along.m_Y, along.m_X};
    const auto point = [&](double share, double height) { return from + along * share + aside * height; };
    const auto height = [&random] { return static_cast<double>(random.Between(-0.15F, 0.15F)); };
    switch (random.Range(0, 3)) {
        case 0:
            return SLineTo{to};
        case 1:
            return QuarterArc(from, point(0.5, height()), to);
        case 2: {
            const double side = height();
            return SCurveTo{point(random.Between(0.1F, 0.4F), side), point(random.Between(0.6F, 0.9F), side),
                            to};
        }
        default:
            return SCurveTo{point(0.3, height()), point(0.7, height()), to};
    }
}

}  // namespace

SPath DrawnLine(SPoint from, SPoint to) {
    return {from, {SLineTo{to}}, false};
}

SPath DrawnRectangle(double left, double bottom, double width, double height) {
    const double right = left + width;
    const double top = bottom + height;
    return {{left, bottom},
            {SLineTo{{right, bottom}}, SLineTo{{right, top}}, SLineTo{{left, top}}, SLineTo{{left, bottom}}},
            true};
}

SPath DrawnCircle(SPoint centre, double radius) {
    const SPoint start = centre + SPoint{radius, 0};
    return {start, {SArcTo{centre, {radius, 0}, {0, radius}, 0, 2 * pi, start}}, true};
}

SArcTo QuarterArc(SPoint from, SPoint corner, SPoint to) {
    const SPoint centre = from + to - corner;
    return {centre, from - centre, to - centre, 0, pi / 2, to};
}

SPath RandomContour(CSeededRandom& random, SPoint centre, double radius) {
    const int nCorners = random.Range(3, 12);
    std::vector<SPoint> corners;
    for (int i = 0; i < nCorners; ++i) {
        const double angle = 2 * pi * i / nCorners;
        const double away = radius * random.Between(0.8F, 1.0F);
        corners.push_back(centre + SPoint{away * std::cos(angle), away * std::sin(angle)});
    }
    SPath path{corners[0], {}, true};
    for (size_t i = 0; i < corners.size(); ++i) {
        path.m_Stretches.push_back(RandomStretch(random, corners[i], corners[(i + 1) % corners.size()]));
    }
    return path;
}

std::vector<SPath> Chopped(CSeededRandom& random, const SPath& contour) {
    std::vector<SPath> lines;
    SPoint from = contour.m_Start;
    for (const CStretch& stretch : contour.m_Stretches) {
        const SPath line{from, {stretch}, false};
        lines.push_back(random.Percent(50) ? Reversed(line) : line);
        from = EndOf(stretch);
    }
    for (size_t i = lines.size(); i > 1; --i) {
        std::swap(lines[i - 1], lines[random.Index(i)]);
    }
    return lines;
}

SDrawing DrawingOf(const std::vector<SPath>& paths) {
    SDrawing drawing;
    for (const SPath& path : paths) {
        drawing.m_Paths.push_back({path, "", "", static_cast<int>(drawing.m_Paths.size()) + 1});
    }
    return drawing;
}

SDrawnPieces Found(const std::vector<SPath>& paths) {
    return FindPieces(DrawingOf(paths), "folder/plate.dxf", {});
}

}  // namespace nestrix::support

namespace nestrix {

void PrintTo(const SPath& path, std::ostream* pStream) {
    *pStream << (path.m_bClosed ? "closed" : "open");
    const auto print = [pStream](SPoint point) { *pStream << " (" << point.m_X << ", " << point.m_Y << ")"; };
    print(path.m_Start);
    for (const CStretch& stretch : path.m_Stretches) {
        *pStream << (std::holds_alternative<SLineTo>(stretch)  ? " line"
                     : std::holds_alternative<SArcTo>(stretch) ? " arc"
                                                               : " curve");
        print(EndOf(stretch));
    }
}

}  // namespace nestrix
