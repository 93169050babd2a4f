#pragma once

#include <optional>
#include <vector>

#include "nest/CCornerLayout.h"
#include "nest/CStepCounter.h"

namespace nestrix {

/// Lays pieces like those of a puzzle: into the lowest free corner comes a piece whose own corner fits, best
/// one that fills it and touches the most of what lies around (touching perimeter: Lodi, Martello, Vigo
/// 1999). Follows several layouts side by side, the best of each number of pieces (a beam search). Pieces
/// that were cut from one sheet find back to it; of others it makes a layout like any.
class CCornerFitter {
public:
    /// @param tolerance what rounding may have taken from the drawings, as a share of the strip's width.
    /// Pieces that touch may overlap so much, or be so much apart.
    CCornerFitter(const CPackProblem& problem, CFieldTable& fields, CStepCounter& steps, double tolerance);

    /// Whether it is worth trying: pieces touch, are not too many and have no long ragged borders.
    [[nodiscard]] static bool IsWorthTrying(const CPackProblem& problem);

    /// A layout with all items.
    struct SFit {
        /// For each item, on the grid; touching pieces may overlap a little. Those that fitted nowhere lie
        /// above the others.
        std::vector<SPlace> m_Places;
        double m_Filled = 0.0;  ///< the share of items that filled their corners, 0 to 1
    };

    /// A step is another piece for one of the layouts.
    /// @param nLayouts followed side by side.
    /// @return nothing when the steps are used up.
    [[nodiscard]] std::optional<SFit> Fit(size_t nLayouts);

private:
    struct SBranch {
        CCornerLayout m_Layout;
        double m_Contact = 0.0;
        double m_Perimeter = 0.0;
        int m_nFilled = 0;
    };
    /// What a branch would be with one more piece.
    struct STwig {
        size_t m_nBranch;
        size_t m_nPiece;
        SPlace m_Place;
        double m_Contact;
        double m_Perimeter;
        int m_nFilled;
        double m_Score;
    };

    void Grow(SBranch& branch, size_t nBranch);
    void TryCorners(const SBranch& branch, size_t nBranch, const CCornerLayout::SCorner& corner,
                    size_t nVersion, size_t nPiece);
    [[nodiscard]] std::vector<SBranch> BestOf(const std::vector<SBranch>& branches, size_t nMost);
    [[nodiscard]] SFit Finished(const SBranch& branch) const;

    const CPackProblem& m_Problem;
    CStepCounter& m_Steps;
    CCornerProblem m_CornerProblem;
    std::vector<STwig> m_Twigs;
};

}  // namespace nestrix
