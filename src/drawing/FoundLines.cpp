#include "drawing/FoundLines.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "drawing/Doubles.h"
#include "drawing/EndJoining.h"
#include "drawing/FindingText.h"
#include "drawing/Flattening.h"
#include "drawing/LineJoining.h"
#include "drawing/PathArea.h"
#include "drawing/SMap.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

using enum SFinding::ESeverity;

/// Of the extent of a closed line, squared: less is no area.
constexpr double NO_AREA = 1e-12;

SMap Scaling(double factor) {
    return {factor, 0.0, 0.0, factor, 0.0, 0.0};
}

/// Whether lengths of the path can be multiplied with each other, and a little more.
bool IsOfUsableSize(const SPath& path) {
    return IsFinite(Scaling(1e200)(path));
}

class CLineFinding {
public:
    CLineFinding(const SAssembly& assembly, CFindingLog& log) : m_Assembly(assembly), m_Log(log) {}

    /// The drawing's lines on the scale of the strip, but for those that are a point.
    [[nodiscard]] std::vector<SFoundLine> Usable(const SDrawing& drawing) const {
        std::vector<SFoundLine> lines;
        size_t nPoints = 0;
        for (size_t i = 0; i < drawing.m_Paths.size(); ++i) {
            const SDrawnPath& drawn = drawing.m_Paths[i];
            SFoundLine line{Scaling(m_Assembly.m_Scale)(drawn.m_Path), i, drawn.m_Name, drawn.m_nLine};
            if (!IsOfUsableSize(line.m_Path)) {
                m_Log.Add(line.m_nLine, FAULT,
                          IsFinite(line.m_Path) ? "this line is too large to be calculated with"
                                                : "a number of this line is not finite",
                          "lines with numbers that are not finite or too large");
                continue;
            }
            const std::vector<SPoint> points = PointsOf(line.m_Path);
            nPoints += points.size();
            if (nPoints > m_Assembly.m_nPointsMost) {
                m_Log.Add(line.m_nLine, FAULT,
                          "the drawing is too large: with this line it has more than " +
                              std::to_string(m_Assembly.m_nPointsMost) + " points",
                          "lines too many");
                return {};
            }
            if (std::any_of(points.begin(), points.end(),
                            [&points](SPoint point) { return !(point == points[0]); })) {
                lines.push_back(std::move(line));
            }
        }
        return lines;
    }

    /// Open lines that are drawn twice would be in each other's way when they are joined.
    void DropDoubleLines(std::vector<SFoundLine>& lines) const {
        std::vector<SPath> paths;
        std::vector<size_t> places;
        for (size_t i = 0; i < lines.size(); ++i) {
            if (!lines[i].m_Path.m_bClosed) {
                paths.push_back(lines[i].m_Path);
                places.push_back(i);
            }
        }
        const std::vector<bool> open = FindDoubles(paths, ROUNDING_OF_TOLERANCE * m_Assembly.m_JoinTolerance);
        std::vector<bool> doubles(lines.size());
        for (size_t i = 0; i < places.size(); ++i) {
            doubles[places[i]] = open[i];
        }
        DropDoubles(lines, doubles);
    }

    void DropDoubleContours(std::vector<SFoundLine>& contours) const {
        std::vector<CRing> rings;
        for (const SFoundLine& contour : contours) {
            rings.push_back(Chords(contour.m_Path, m_Assembly.m_FlatTolerance / 4.0));
        }
        DropDoubles(contours, FindDoubleRings(rings, m_Assembly.m_FlatTolerance / 2.0));
    }

    /// Loose lines joined and sorted in.
    [[nodiscard]] std::vector<SFoundLine> Joined(std::vector<SFoundLine> lines) const {
        std::vector<SFoundLine> joined;
        std::vector<SFoundLine> loose;
        std::vector<SPath> paths;
        for (SFoundLine& line : lines) {
            if (line.m_Path.m_bClosed) {
                joined.push_back(std::move(line));
            } else {
                paths.push_back(line.m_Path);
                loose.push_back(std::move(line));
            }
        }
        SJoinedLines found = JoinLines(paths, m_Assembly.m_JoinTolerance);
        for (std::vector<SJoinedLine>* pLines : {&found.m_Closed, &found.m_Open}) {
            for (SJoinedLine& line : *pLines) {
                SFoundLine whole = loose[line.m_Sources.front()];
                whole.m_Path = std::move(line.m_Path);
                for (size_t i = 0; i < line.m_Sources.size() && whole.m_Name.empty(); ++i) {
                    whole.m_Name = loose[line.m_Sources[i]].m_Name;
                }
                joined.push_back(std::move(whole));
            }
        }
        std::sort(joined.begin(), joined.end(),
                  [](const SFoundLine& a, const SFoundLine& b) { return a.m_nDrawn < b.m_nDrawn; });
        return joined;
    }

    [[nodiscard]] bool HasInside(const SPath& path) const {
        double extent = 0.0;
        for (const SPoint point : PointsOf(path)) {
            extent = std::max(extent, Length(point - path.m_Start));
        }
        return path.m_bClosed && std::abs(SignedArea(path)) > NO_AREA * extent * extent;
    }

private:
    void DropDoubles(std::vector<SFoundLine>& lines, const std::vector<bool>& doubles) const {
        std::vector<SFoundLine> kept;
        for (size_t i = 0; i < lines.size(); ++i) {
            if (doubles[i]) {
                m_Log.Add(lines[i].m_nLine, ODD,
                          "the line from " + InWords(lines[i].m_Path.m_Start) + " to " +
                              InWords(EndOf(lines[i].m_Path)) + " is drawn twice; one is left out",
                          "lines that are drawn twice");
            } else {
                kept.push_back(std::move(lines[i]));
            }
        }
        lines = std::move(kept);
    }

    [[nodiscard]] std::vector<SPoint> PointsOf(const SPath& path) const {
        return Chords(path, m_Assembly.m_FlatTolerance);
    }

    const SAssembly& m_Assembly;
    CFindingLog& m_Log;
};

}  // namespace

SFoundLines FindLines(const SDrawing& drawing, const SAssembly& assembly, CFindingLog& log) {
    const CLineFinding finding(assembly, log);
    std::vector<SFoundLine> lines = finding.Usable(drawing);
    finding.DropDoubleLines(lines);
    SFoundLines found;
    for (SFoundLine& line : finding.Joined(std::move(lines))) {
        (finding.HasInside(line.m_Path) ? found.m_Contours : found.m_Marks).push_back(std::move(line));
    }
    finding.DropDoubleContours(found.m_Contours);
    return found;
}

}  // namespace nestrix
