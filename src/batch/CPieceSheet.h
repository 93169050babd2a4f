#pragma once

#include <optional>
#include <span>
#include <string>

#include "drawing/SCutPlan.h"

namespace nestrix {

/// Pieces laid out so that they can be written as a drawing: those of one file as they were drawn, file
/// beside file, each piece once. Owns what its plan views.
class CPieceSheet {
public:
    /// @param drawn as many as pieces, those of one file together.
    CPieceSheet(std::span<const SPiece> pieces, std::span<const SDrawnPiece> drawn,
                std::optional<EUnit> unit);

    [[nodiscard]] SCutPlan Plan() const { return {m_Pieces, m_Drawn, m_Layout, m_Unit}; }

private:
    std::span<const SPiece> m_Pieces;
    std::span<const SDrawnPiece> m_Drawn;
    std::optional<EUnit> m_Unit;
    SFreePacking m_Layout;
};

}  // namespace nestrix
