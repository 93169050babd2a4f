#pragma once

#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

#include "nest/CFieldTable.h"
#include "nest/CornerShapes.h"
#include "nest/Places.h"

namespace nestrix {

/// What all corner layouts of a problem share: shapes, strip and fields. Pieces that touch may overlap a
/// little here, or lie a little apart, as far as drawings are rounded.
class CCornerProblem {
public:
    /// @param tolerance what two points may be apart and are still the same, in units.
    /// @param height that the pieces are to keep below, in units.
    CCornerProblem(const CPackProblem& problem, CFieldTable& fields, double tolerance,
                   double height = HUGE_VAL);

    [[nodiscard]] const CPackProblem& Problem() const { return m_Problem; }
    [[nodiscard]] const SCornerShape& ShapeOf(size_t nVersion) const { return m_Shapes[nVersion]; }
    [[nodiscard]] SPlaneBox BoxOf(const SPlace& place) const {
        return BoxAt(m_Shapes[place.m_nVersion].m_Box, place.m_At);
    }
    /// The part of the plane that is the strip, up to that height.
    [[nodiscard]] const SPlaneBox& Room() const { return m_Room; }
    [[nodiscard]] double Tolerance() const { return m_Tolerance; }
    [[nodiscard]] bool DoOverlap(const SPlace& first, const SPlace& second) const;

private:
    const CPackProblem& m_Problem;
    CFieldTable& m_Fields;
    double m_Tolerance;
    SPlaneBox m_Room;
    std::vector<SCornerShape> m_Shapes;  ///< of each version
};

/// A layout in the making, from the floor up: in its lowest corner, between two of the pieces that lie there
/// already or a piece and a wall, comes the next one.
class CCornerLayout {
public:
    /// Nothing is placed yet.
    explicit CCornerLayout(const CCornerProblem& problem);

    /// A corner that is still free: a point of the borders, and the directions from it that are not taken,
    /// less than a half turn.
    struct SCorner {
        SPoint m_At;
        SSector m_Gap;
    };

    /// The lowest free corner, the leftmost of several; nothing where there is none.
    [[nodiscard]] std::optional<SCorner> FindLowestCorner();

    /// Leaves a corner free for good.
    void Close(const SCorner& corner);

    /// Whether a piece in this place is inside the strip and overlaps none of the others.
    [[nodiscard]] bool HasRoomFor(const SPlace& place) const;

    /// How much of its border would touch others, the walls or the floor.
    [[nodiscard]] double ContactOf(const SPlace& place) const;

    /// How much of the room below a height no piece covers.
    [[nodiscard]] double EmptyAreaBelow(double height) const;

    void Add(size_t nPiece, const SPlace& place);

    /// A copy of a piece in its place.
    struct SPlaced {
        size_t m_nPiece;
        SPlace m_Place;
    };
    [[nodiscard]] const std::vector<SPlaced>& Placed() const { return m_Placed; }
    /// How many copies of a piece are not placed yet.
    [[nodiscard]] int LeftOf(size_t nPiece) const { return m_Left[nPiece]; }

private:
    [[nodiscard]] std::vector<SSector> GapsAt(SPoint at) const;
    void Watch(SPoint at);

    const CCornerProblem* m_pProblem;
    std::vector<SPlaced> m_Placed;
    std::vector<int> m_Left;        ///< of each piece
    std::vector<SPoint> m_Watched;  ///< corners of what is placed that may be free; the lowest first
};

}  // namespace nestrix
