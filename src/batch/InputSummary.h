#pragma once

#include <optional>
#include <string>

#include "drawing/Unit.h"
#include "packing/SPiece.h"

namespace nestrix {

/// What one word of the command line gave, or one line of a job.
struct SInputSummary {
    std::string m_Word;
    int m_nFiles = 0;
    int m_nPieces = 0;     ///< without copies
    int m_nCopies = 0;     ///< all of them
    int m_nHoles = 0;      ///< those of the pieces, without copies
    double m_Width = 0.0;  ///< of the largest bounding box
    double m_Height = 0.0;
    double m_Area = 0.0;  ///< of the pieces, without copies

    void Add(const SShape& shape);
};

/// "legs: 3 files, 4 pieces (9 with copies), 1 hole, up to 120 x 80 mm, area 9600 mm2".
[[nodiscard]] std::string InWords(const SInputSummary& summary, std::optional<EUnit> unit);

/// "120 x 80": the bounding box.
[[nodiscard]] std::string SizeInWords(const SShape& shape);

}  // namespace nestrix
