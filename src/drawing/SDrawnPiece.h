#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "drawing/SDrawing.h"

namespace nestrix {

/// A piece as it was drawn: what is cut, with all that lies on it and travels with it. In the units of the
/// strip.
struct SDrawnPiece {
    std::string m_Name;
    std::string m_File;
    int m_nLine = 0;  ///< where its outline is in the file; 0 where that is not known
    SPath m_Outline;
    std::vector<SPath> m_Holes;
    std::vector<SPath> m_Marks;  ///< lines on it that are no cuts: engravings, fold lines; open or closed
    std::vector<SDrawnText> m_Texts;
};

/// How a drawing becomes pieces. Lengths in the units of the strip.
struct SAssembly {
    double m_Scale = 1.0;           ///< a length of the drawing times this is one of the strip
    double m_JoinTolerance = 0.1;   ///< ends of lines this near each other are one point
    double m_FlatTolerance = 0.05;  ///< how far a flattened outline may lie outside the curve

    /// A drawing that has more once its curves are flattened is not taken: it would fill the memory.
    size_t m_nPointsMost = 10'000'000;
};

/// Pieces found, and what there is to say about them.
struct SDrawnPieces {
    std::vector<SDrawnPiece> m_Pieces;
    std::vector<SFinding> m_Findings;
};

/// Finds the pieces of a drawing: joins loose lines and arcs into closed contours, takes the outer ones for
/// outlines, those directly inside them for holes, those inside holes for outlines again, and gives open
/// lines and texts to the piece that they lie on.
/// @param file its name, for the findings; without folder and extension it names pieces that have no name.
[[nodiscard]] SDrawnPieces FindPieces(const SDrawing& drawing, const std::string& file,
                                      const SAssembly& assembly);

/// The outline and the holes as polygons whose edges leave the curves by at most the tolerance, and always
/// away from the material: so nothing is cut too small. Finer where an outline or a hole that does not cross
/// itself would do so as polygon.
[[nodiscard]] SShape Flattened(const SDrawnPiece& piece, double tolerance);

}  // namespace nestrix
