#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/SFinding.h"
#include "drawing/SPath.h"
#include "drawing/Unit.h"

namespace nestrix {

/// A line of a drawing, with what is known of it.
struct SDrawnPath {
    SPath m_Path;
    std::string m_Name;   ///< its own, or that of the nearest named group around it; empty for none
    std::string m_Layer;  ///< empty for none
    int m_nLine = 0;      ///< of the file, from 1; 0 where that is not known
};

/// A line of text in a drawing.
struct SDrawnText {
    std::string m_Text;
    SPoint m_At;               ///< where its base line begins
    double m_Height = 0.0;     ///< of capital letters
    double m_Degrees = 0.0;    ///< by which its base line is turned counter-clockwise
    bool m_bMirrored = false;  ///< it reads from right to left; mirrored before it is turned
    std::string m_Layer;
    int m_nLine = 0;
};

/// What a file shows, with all its groups and blocks resolved; x to the right, y up.
struct SDrawing {
    std::optional<EUnit> m_Unit;  ///< of all its lengths; absent: the file names none
    std::vector<SDrawnPath> m_Paths;
    std::vector<SDrawnText> m_Texts;
    std::vector<SFinding> m_Findings;  ///< what is wrong or odd about the file; with a fault, all else is
                                       ///< only what could be read
};

}  // namespace nestrix
