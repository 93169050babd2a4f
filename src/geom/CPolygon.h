#pragma once

#include <cstddef>
#include <vector>

#include "geom/Vector.h"

/// One vertex of an outline.
struct CPoint {
    int m_nPrevLine = 0;    ///< index in m_Lines of the edge that ends here
    int m_nNextLine = 0;    ///< index in m_Lines of the edge that starts here
    mgVector3 m_Position;   ///< local to the polygon
    bool m_bFront = false;  ///< candidate of the lower profile, before filtering
    bool m_bBack = false;   ///< candidate of the upper profile, before filtering

    friend bool operator==(const CPoint&, const CPoint&) = default;
};

/// One edge of an outline.
struct CLine {
    int m_nStart = 0;       ///< index in m_Points
    int m_nEnd = 0;         ///< index in m_Points
    bool m_bFront = false;  ///< direction x ≥ 0: an edge of the lower side of a counter-clockwise outline
    mgVector3 m_Direction;  ///< end position − start position, fixed when the edge is built

    friend bool operator==(const CLine&, const CLine&) = default;
};

/// One piece to be packed: an outline, the bounding box that its file gives, the two profiles by which it
/// touches other pieces while it falls, and its place in the strip.
///
/// Coordinates are local; world coordinates are local plus m_ReferencePoint, y grows upward. The front is
/// the lower profile (the side that leads while the piece falls), the back the upper one (the side that the
/// next piece lands on). The outline is expected counter-clockwise; nothing checks or corrects the winding,
/// and nothing checks the box against the vertices: it is whatever the file says.
///
/// A plain value: the profiles hold copies, whose indices stay valid in every copy of the polygon.
///
/// Order of use: ReadPolygon on a fresh polygon, then copy and read. The analysis appends to its lists, so
/// it runs once per polygon.
class CPolygon {
public:
    /// Reads one ".pol" file and analyses its profiles. Vertices are appended to those already held.
    ///
    /// The file is text: a count n, n pairs "x,y", then a semicolon and the bounding box, upper-right corner
    /// first, lower-left corner second. Numbers have a decimal point under every locale. The content is not
    /// validated. Vertices are read up to the first one that is not a pair; what is missing of it, and all
    /// vertices after it, are 0, and the box is read from where the vertex failed. A missing or malformed
    /// number of the box is 0. A count that is malformed, or no int, gives no vertices; one that the text is
    /// too short for, at four characters a vertex, gives those only that are there.
    ///
    /// @return false when the file cannot be opened or is not a regular file; this is said on standard
    ///         output, and the polygon is unchanged.
    bool ReadPolygon(char const* path);

    /// Runs the five steps of the profile analysis on freshly read vertices, in their fixed order.
    void Process();

    /// Builds the closed outline: edge i joins vertex i to the next one.
    void BuildConnectivity();

    /// Classifies every edge: front for direction x ≥ 0, back otherwise. Vertical and zero-length edges are
    /// front edges on either side of the polygon, deliberately: the approach distance relies on it.
    void ProcessFrontAndBackLines();

    /// Classifies every vertex as a candidate of the front, of the back, of both or of neither.
    void ProcessFrontAndBackPoints();

    /// Keeps only those candidates that no non-adjacent edge of the polygon hides; a tie hides.
    void FilterFrontAndBackPoints();

    /// Drops the profile edges whose both ends are hidden.
    void FilterFrontAndBackLines();

    /// Whether some edge, other than the two adjacent ones, lies at or below the vertex.
    [[nodiscard]] bool DoesPointHitAnyLineDownward(int pointIndex) const;

    /// Whether some edge, other than the two adjacent ones, lies at or above the vertex.
    [[nodiscard]] bool DoesPointHitAnyLineUpward(int pointIndex) const;

    /// How far this polygon, at its reference point, can fall before its lower profile touches the upper
    /// profile of `other`. Reads both and changes neither; see FindApproach for the rules.
    ///
    /// @param pDistance receives the smallest vertical gap, 0 without a candidate; may be null.
    /// @param pContactX, pContactY receive the contact in world coordinates, and are left untouched without
    ///        a candidate; each may be null.
    /// @return whether any candidate contact was found.
    bool GetApproachDistanceFromTop(CPolygon& other, float* pDistance, float* pContactX,
                                    float* pContactY) const;

    /// The local position of one vertex.
    [[nodiscard]] const mgVector3& PositionOf(int nPoint) const {
        return m_Points[static_cast<size_t>(nPoint)].m_Position;
    }

    std::vector<CPoint> m_Points;  ///< vertices in file order
    std::vector<CLine> m_Lines;    ///< edge i runs from vertex i to vertex (i + 1) mod n
    mgVector3 m_BoundingBoxMin;    ///< lower-left corner, as the file gives it
    mgVector3 m_BoundingBoxMax;    ///< upper-right corner, as the file gives it
    std::vector<CLine> m_FrontLines;
    std::vector<CLine> m_BackLines;
    std::vector<CPoint> m_FrontPoints;
    std::vector<CPoint> m_BackPoints;
    mgVector3 m_ReferencePoint;  ///< translation from local to world coordinates, set by the placement

    friend bool operator==(const CPolygon&, const CPolygon&) = default;
};
