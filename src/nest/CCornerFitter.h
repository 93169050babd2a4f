#pragma once

#include <cmath>
#include <optional>
#include <vector>

#include "nest/CCornerLayout.h"
#include "nest/CStepCounter.h"

namespace nestrix {

/// Lays pieces like those of a puzzle: into the lowest free corner comes a piece whose own corner fits, best
/// one that is large, fills it and touches the most of what lies around (touching perimeter: Lodi, Martello,
/// Vigo 1999), and best above little that nothing fits. Follows several layouts side by side, the best of
/// each number of pieces (a beam search). Pieces that were cut from one sheet find back to it; of others it
/// makes a layout like any.
class CCornerFitter {
public:
    /// @param tolerance what rounding may have taken from the drawings, as a share of the strip's width.
    /// Pieces that touch may overlap so much, or be so much apart.
    /// @param height that the pieces are to keep below, in units.
    CCornerFitter(const CPackProblem& problem, CFieldTable& fields, CStepCounter& steps, double tolerance,
                  double height = HUGE_VAL);

    /// Whether it is worth trying: pieces touch, are not too many and have no long ragged borders.
    [[nodiscard]] static bool IsWorthTrying(const CPackProblem& problem);

    /// A layout with all items.
    struct SFit {
        /// For each item, on the grid; touching pieces may overlap a little. Those that fitted nowhere lie
        /// above the others.
        std::vector<SPlace> m_Places;
        double m_Filled = 0.0;     ///< the share of items that filled their corners, 0 to 1
        bool m_bComplete = false;  ///< each item fitted somewhere
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
        double m_Area = 0.0;
        int m_nFilled = 0;
    };
    /// What a branch would be with one more piece.
    struct STwig {
        size_t m_nBranch;
        size_t m_nPiece;
        SPlace m_Place;
        double m_Contact;
        double m_Perimeter;
        double m_Area;
        int m_nFilled;
        double m_Score;
    };

    void Grow(SBranch& branch, size_t nBranch);
    void TryCorners(const SBranch& branch, size_t nBranch, const CCornerLayout::SCorner& corner,
                    size_t nVersion, size_t nPiece);
    [[nodiscard]] double ScoreOf(const SBranch& branch, const STwig& twig) const;
    [[nodiscard]] std::vector<SBranch> BestOf(const std::vector<SBranch>& branches, size_t nMost);
    [[nodiscard]] SFit Finished(const SBranch& branch) const;

    const CPackProblem& m_Problem;
    CStepCounter& m_Steps;
    CCornerProblem m_CornerProblem;
    std::vector<STwig> m_Twigs;
    double m_EmptyArea = 0.0;  ///< below the corner that is being filled
};

}  // namespace nestrix
