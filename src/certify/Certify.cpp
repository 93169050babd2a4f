#include "certify/Certify.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

#include "certify/Demands.h"
#include "certify/Inside.h"
#include "certify/Pairs.h"
#include "certify/SBorder.h"
#include "certify/ShapesOnGrid.h"

namespace nestrix {

namespace {

using certify::SBorder;
using certify::SGridBox;
using EKind = SViolation::EKind;
using CViolations = std::vector<SViolation>;
using COptionalShape = std::optional<SGridShape>;

/// Of the pieces that are placed, on the grid; none for the others and for those that are not sound.
std::vector<COptionalShape> SoundShapes(std::span<const SPiece> pieces, const SFreePacking& packing) {
    std::vector<bool> placed(pieces.size());
    for (const SFreePlacement& placement : packing.m_Placed) {
        const size_t nPiece = static_cast<size_t>(placement.m_nPiece);
        if (nPiece < pieces.size()) {
            placed[nPiece] = true;
        }
    }
    std::vector<COptionalShape> shapes(pieces.size());
    for (size_t i = 0; i < pieces.size(); ++i) {
        if (placed[i]) {
            shapes[i] = certify::FindSoundShape(pieces[i].m_Shape, packing.m_Grid);
        }
    }
    return shapes;
}

/// How far the box reaches out of the strip's part within the margins; at most 0 if it does not.
int64_t ReachOut(const SGridBox& box, const SGridStrip& strip) {
    return std::max({strip.m_nMargin - box.m_Low.m_nX, strip.m_nMargin - box.m_Low.m_nY,
                     box.m_High.m_nX - (strip.m_nWidth - strip.m_nMargin)});
}

/// The placed shapes' borders. What is wrong with one by itself is added to the violations.
class CPlacedBorders {
public:
    CPlacedBorders(std::span<const SPiece> pieces, const SFreePacking& packing, CViolations& violations)
        : m_Borders(packing.m_Placed.size()) {
        const std::vector<COptionalShape> shapes = SoundShapes(pieces, packing);
        const SGridStrip strip = OnGrid(packing.m_Strip, packing.m_Grid);
        for (size_t i = 0; i < m_Borders.size(); ++i) {
            const SFreePlacement& placement = packing.m_Placed[i];
            const size_t nPiece = static_cast<size_t>(placement.m_nPiece);
            if (nPiece >= shapes.size() || !std::isfinite(placement.m_Degrees)) {
                m_bComplete = false;
                continue;
            }
            const COptionalShape placed =
                shapes[nPiece] ? certify::FindPlacedShape(*shapes[nPiece], placement) : std::nullopt;
            if (!placed) {
                violations.push_back({EKind::SHAPE, static_cast<int>(i), -1, 0.0});
                m_bComplete = false;
                continue;
            }
            m_Borders[i] = certify::BorderOf(*placed);
            SGridBox box;
            for (const SGridPoint point : placed->m_Outline) {
                box.Include(point);
            }
            m_nHeight = std::max(m_nHeight, box.m_High.m_nY);
            const int64_t nOut = ReachOut(box, strip);
            if (nOut > 0) {
                violations.push_back({EKind::STRIP, static_cast<int>(i), -1, packing.m_Grid.Length(nOut)});
            }
        }
    }

    [[nodiscard]] std::span<const SBorder> Borders() const { return m_Borders; }

    /// Whether every placement could be laid.
    [[nodiscard]] bool IsComplete() const { return m_bComplete; }

    /// Of the highest point of all that could be laid.
    [[nodiscard]] int64_t Height() const { return m_nHeight; }

private:
    std::vector<SBorder> m_Borders;
    bool m_bComplete = true;
    int64_t m_nHeight = 0;
};

}  // namespace

SCertificate Certify(std::span<const SPiece> pieces, const SFreePacking& packing) {
    SCertificate certificate{certify::FindUnmetDemands(pieces, packing.m_Placed)};
    CViolations& violations = certificate.m_Violations;
    if (!certify::IsUsable(packing.m_Strip, packing.m_Grid)) {
        violations.push_back({EKind::STRIP, -1, -1, 0.0});
        return certificate;
    }
    const CPlacedBorders placed(pieces, packing, violations);
    if (placed.IsComplete() && placed.Height() != packing.m_nHeight) {
        const double tooHigh =
            packing.m_Grid.Length(packing.m_nHeight) - packing.m_Grid.Length(placed.Height());
        violations.push_back({EKind::HEIGHT, -1, -1, tooHigh});
    }
    const int64_t nSpacing = OnGrid(packing.m_Strip, packing.m_Grid).m_nSpacing;
    const CViolations pairs = certify::FindWrongPairs(placed.Borders(), std::max<int64_t>(nSpacing - 1, 0),
                                                      packing.m_Grid.Length(1));
    std::copy(pairs.begin(), pairs.end(), std::back_inserter(violations));
    return certificate;
}

bool DoInsidesOverlap(const SGridShape& first, const SGridShape& second) {
    return certify::Overlap(certify::BorderOf(first), certify::BorderOf(second));
}

}  // namespace nestrix
