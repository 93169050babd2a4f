#pragma once

#include <optional>
#include <string>
#include <vector>

#include "formats/json/CJsonFindings.h"
#include "formats/json/CMemberReader.h"
#include "formats/json/PackingRecord.h"

namespace nestrix::json {

/// A piece as the file of a packing has it, for either method.
struct SWrittenPiece {
    CJsonValue m_Value;
    std::string m_Name;
    SPieceSource m_Source;
    SShape m_Shape;
    std::optional<int> m_nQuantity;
    std::optional<STurns> m_Turns;
    std::optional<bool> m_bMirror;
    std::optional<CRing> m_Box;  ///< two points
};

/// A placement as the file of a packing has it.
struct SWrittenPlacement {
    CJsonValue m_Value;
    size_t m_nPiece = 0;
    double m_Degrees = 0.0;
    bool m_bMirrored = false;
    SPoint m_At;
};

/// The member "pieces"; some are missing where there are faults.
[[nodiscard]] std::vector<SWrittenPiece> ReadPieces(CMemberReader& members, CJsonFindings& findings);

/// The member "placements", likewise. Each is of a piece that there is.
[[nodiscard]] std::vector<SWrittenPlacement> ReadPlacements(CMemberReader& members,
                                                            const std::vector<SWrittenPiece>& pieces,
                                                            CJsonFindings& findings);

}  // namespace nestrix::json
