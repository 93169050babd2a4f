#include "certify/Demands.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace nestrix::certify {

namespace {

bool IsAllowed(const SPiece& piece, const SFreePlacement& placement) {
    const STurns& turns = piece.m_Turns;
    const bool bTurn =
        turns.m_bAny
            ? std::isfinite(placement.m_Degrees)
            : std::any_of(turns.m_Degrees.begin(), turns.m_Degrees.end(),
                          [&placement](double degrees) { return IsSameTurn(degrees, placement.m_Degrees); });
    return bTurn && (piece.m_bMirrored || !placement.m_bMirrored);
}

}  // namespace

bool IsSameTurn(double a, double b) {
    // Unlike fmod and an addition, remainder is exact for negative angles, too. Half a turn has two names.
    const double first = std::remainder(a, 360.0);
    const double second = std::remainder(b, 360.0);
    return first == second || (std::abs(first) == 180.0 && std::abs(second) == 180.0);
}

std::vector<SViolation> FindUnmetDemands(std::span<const SPiece> pieces,
                                         std::span<const SFreePlacement> placed) {
    using EKind = SViolation::EKind;
    std::vector<SViolation> unmet;
    std::vector<int64_t> counts(pieces.size());
    for (size_t i = 0; i < placed.size(); ++i) {
        const int nPlacement = static_cast<int>(i);
        const size_t nPiece = static_cast<size_t>(placed[i].m_nPiece);
        if (nPiece >= pieces.size()) {
            unmet.push_back({EKind::UNKNOWN_PIECE, nPlacement, -1, 0.0});
            continue;
        }
        ++counts[nPiece];
        if (!IsAllowed(pieces[nPiece], placed[i])) {
            unmet.push_back({EKind::TURN, nPlacement, -1, 0.0});
        }
    }
    for (size_t i = 0; i < pieces.size(); ++i) {
        const int64_t nMissing = std::max(pieces[i].m_nQuantity, 0) - counts[i];
        if (nMissing != 0) {
            unmet.push_back({EKind::QUANTITY, static_cast<int>(i), -1, static_cast<double>(nMissing)});
        }
    }
    return unmet;
}

}  // namespace nestrix::certify
