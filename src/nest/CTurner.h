#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "nest/CPackProblem.h"
#include "nest/CStepCounter.h"
#include "nest/Places.h"

namespace nestrix {

/// Lowers packings by turning pieces that may lie at any angle, which a search tries in few turns only: all
/// items move and turn together a little (CTurnProgram), then move until nothing overlaps, exactly
/// (CCompactor), and so on, as long as that makes the strip lower.
class CTurner {
public:
    CTurner(const CPackProblem& problem, CStepCounter& steps);

    /// Takes a step for each program, of which many items have several at a time. Gives up early what does
    /// not come near a height.
    /// @param packing valid.
    /// @param nKnown a height that has been reached.
    /// @return a lower packing, valid, in any turns; nothing where none was found.
    [[nodiscard]] std::optional<SFreePacking> Lower(const SFreePacking& packing, int64_t nKnown);

private:
    class CLaidItems;

    /// Where each item is to lie, not exactly.
    struct SMotion {
        std::vector<SPlace> m_Places;  ///< in versions of the items before they turn
        std::vector<double> m_Degrees;
    };

    [[nodiscard]] std::optional<SMotion> FindMotion(const CLaidItems& items, double turn) const;
    [[nodiscard]] std::unique_ptr<CLaidItems> Turn(const CLaidItems& items, double turn) const;
    [[nodiscard]] bool Compact(CLaidItems& items, std::vector<SPlace> places) const;
    [[nodiscard]] bool IsHopeless(const CLaidItems& items, int nPrograms, int64_t nKnown) const;

    const CPackProblem& m_Problem;
    CStepCounter& m_Steps;
    std::vector<bool> m_MayTurn;  ///< each item
    double m_ItemSize;
};

}  // namespace nestrix
