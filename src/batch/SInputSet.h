#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/InputFile.h"
#include "batch/InputSummary.h"

namespace nestrix {

/// The pieces of all inputs.
struct SInputSet {
    std::vector<SPiece> m_Pieces;        ///< with their quantities
    std::vector<SDrawnPiece> m_Drawn;    ///< as many, in the same order
    std::vector<SInputPiece> m_Sources;  ///< as many, in the same order: where the pieces come from
    std::vector<size_t> m_Order;         ///< the piece of every copy, in the order of the inputs
    std::vector<std::string> m_Files;    ///< all that were read
    std::vector<SInputSummary> m_Summaries;
    std::vector<SFinding> m_Findings;
    std::optional<EUnit> m_Unit;  ///< of all lengths: millimetres as soon as one input has a unit
    SStripDemand m_Strip;         ///< what inputs ask for
};

/// Whether the inputs cannot be packed as they are.
[[nodiscard]] bool IsFaulty(const SInputSet& set);

}  // namespace nestrix
