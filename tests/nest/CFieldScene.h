#pragma once

#include <cstdint>
#include <vector>

#include "nest/CFieldTable.h"
#include "tests/nest/FreeSets.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix::support {

/// The fields of a set of pieces in a strip, and what they can be asked: versions beside each other
/// in places anywhere.
class CFieldScene {
public:
    explicit CFieldScene(uint64_t nSeed, std::vector<SPiece> pieces = TurnedSet(),
                         const SFreeStrip& strip = {80.0, 0.0, 0.0});

    [[nodiscard]] const CPackProblem& Problem() const { return m_Problem; }
    [[nodiscard]] CFieldTable& Table() { return m_Table; }
    [[nodiscard]] CSeededRandom& Random() { return m_Random; }

    [[nodiscard]] double InUnits(double length) const { return length / m_Problem.Grid().Length(1); }

    [[nodiscard]] size_t DrawVersion() { return m_Random.Index(m_Problem.Versions().size()); }
    /// In units, so far at most from another point along either axis.
    [[nodiscard]] SPoint DrawAround(SPoint middle, double reach);

private:
    std::vector<SPiece> m_Pieces;
    CPackProblem m_Problem;
    CFieldTable m_Table;
    CSeededRandom m_Random;
};

}  // namespace nestrix::support
