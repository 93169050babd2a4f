#include "batch/PolygonInput.h"

#include <algorithm>

#include "formats/PolygonFile.h"
#include "formats/PolygonPaths.h"

namespace nestrix {

namespace {

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

bool IsEnclosed(const CPolygon& polygon) {
    const mgVector3& low = polygon.m_BoundingBoxMin;
    const mgVector3& high = polygon.m_BoundingBoxMax;
    return std::all_of(polygon.m_Points.begin(), polygon.m_Points.end(), [&](const CPoint& point) {
        const mgVector3& at = point.m_Position;
        return at.x >= low.x && at.x <= high.x && at.y >= low.y && at.y <= high.y;
    });
}

/// Names the place in the manner of compilers, so that editors find it.
std::string Remark(const std::string& path, int nLine, const std::string& remark) {
    return path + ":" + (nLine > 0 ? std::to_string(nLine) + ": " : " ") + remark;
}

/// Notes what goes wrong when the piece is dropped.
void NoteHarm(const std::string& path, const SPolygonFile& file, float fStripWidth,
              std::vector<std::string>& warnings) {
    const CPolygon& polygon = file.m_Polygon;
    if (TwiceSignedArea(polygon) < 0.0) {
        warnings.push_back(Remark(path, file.m_nOutlineLine,
                                  "the outline runs clockwise: other pieces may come to lie on top of it"));
    }
    if (!IsEnclosed(polygon)) {
        warnings.push_back(Remark(path, file.m_nBoxLine,
                                  "the bounding box does not enclose the outline: the piece may stick out of "
                                  "the strip or overlap others"));
    }
    if (polygon.m_BoundingBoxMax.x - polygon.m_BoundingBoxMin.x > fStripWidth) {
        warnings.push_back(Remark(path, file.m_nBoxLine,
                                  "the piece is wider than the strip: it will stick out on the left"));
    }
}

void NoteRest(const std::string& path, const SPolygonFile& file, std::vector<std::string>& warnings) {
    if (file.m_nRestLine > 0) {
        warnings.push_back(Remark(path, file.m_nRestLine,
                                  "what follows the bounding box is left out: a file holds one polygon"));
    }
}

}  // namespace

SPolygonInput ReadPolygonInput(std::span<const std::string> paths, std::optional<float> dropWidth) {
    SPolygonPaths found = FindPolygonFiles(paths);
    SPolygonInput input{std::move(found.m_Files), {}, std::move(found.m_Faults), {}};
    for (const std::string& path : input.m_Files) {
        SPolygonFile file = ReadPolygonFile(path.c_str());
        if (!file.m_Fault.empty()) {
            input.m_Faults.push_back(Remark(path, file.m_nFaultLine, file.m_Fault));
            continue;
        }
        if (dropWidth) {
            NoteHarm(path, file, *dropWidth, input.m_Warnings);
        }
        NoteRest(path, file, input.m_Warnings);
        input.m_Polygons.push_back(std::move(file.m_Polygon));
    }
    return input;
}

}  // namespace nestrix
