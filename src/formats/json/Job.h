#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "drawing/Unit.h"
#include "formats/json/EPackMethod.h"
#include "formats/json/SReading.h"
#include "nest/PackFreely.h"
#include "packing/SPiece.h"

namespace nestrix {

// What a job leaves open is absent: options may fill it.

/// What a job says of the strip. In the unit of the job.
struct SJobStrip {
    std::optional<double> m_Width;
    std::optional<double> m_Spacing;
    std::optional<double> m_Margin;
};

/// What a job demands of a piece.
struct SJobDemand {
    std::optional<int> m_nQuantity;
    std::optional<STurns> m_Turns;
    std::optional<bool> m_bMirror;
};

/// One of the pieces of a file: its name, or its number in the file, from 1.
using CPieceChoice = std::variant<std::string, int>;

/// A piece of a job, or all pieces of a file.
struct SJobPiece {
    std::string m_File;  ///< from the folder of the job if it is no whole path, so that it can be opened;
                         ///< empty: the piece is m_Shape
    std::optional<CPieceChoice> m_Choice;  ///< of the file's pieces; without one, all of them
    SShape m_Shape;                        ///< as it stands in the job, not yet scaled
    std::string m_Name;                    ///< empty for none
    int m_nLine = 0;                       ///< of the job, from 1
    SJobDemand m_Demand;
};

/// What a job says of the search for drop orders.
struct SJobDrop {
    std::optional<int> m_nPopulation;
    std::optional<int> m_nGenerations;
    std::optional<double> m_Mutation;  ///< 0 to 1
};

/// A job written down: what is to be packed, and how. docs/formats.md says what the members of the file mean.
struct SJob {
    SJobStrip m_Strip;
    std::optional<EUnit> m_Unit;    ///< of all lengths in the job, and of drawings that name none
    std::optional<double> m_Scale;  ///< a length of a drawing times this is one of the strip
    std::optional<EPackMethod> m_eMethod;
    std::optional<unsigned int> m_nSeed;
    std::optional<int> m_nThreads;
    std::optional<bool> m_bKeepHolesEmpty;
    SPackLimits m_Limits;
    SJobDrop m_Drop;
    SJobDemand m_Demand;  ///< of pieces that say nothing themselves; without a quantity
    std::vector<SJobPiece> m_Pieces;
};

/// Reads a job. Whatever it says is checked, so that members nobody knows and values that nothing can be done
/// with are faults; whether the files are there is not looked at. Never throws.
[[nodiscard]] SReading<SJob> ReadJob(const std::string& path);

}  // namespace nestrix
