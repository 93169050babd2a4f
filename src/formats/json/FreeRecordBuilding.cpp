#include <algorithm>
#include <cmath>

#include "formats/json/RecordBuilding.h"

namespace nestrix::json {

namespace {

SFreeStrip ReadStrip(CMemberReader& members, CJsonFindings& findings) {
    SFreeStrip strip;
    if (const std::optional<CJsonValue> value = members.Demand("strip")) {
        CMemberReader strips(*value, findings);
        if (const std::optional<CJsonValue> width = strips.Demand("width")) {
            strip.m_Width = ReadNumber(*width, WIDTH_KIND, findings).value_or(strip.m_Width);
        }
        strip.m_Spacing = strips.Number("spacing", DISTANCE_KIND).value_or(0.0);
        strip.m_Margin = strips.Number("margin", DISTANCE_KIND).value_or(0.0);
    }
    return strip;
}

SGrid ReadGrid(CMemberReader& members, double width, CJsonFindings& findings) {
    constexpr SNumberKind EXPONENT_KIND{-GRID_EXPONENT_MOST, GRID_EXPONENT_MOST, true,
                                        "a whole number from -22 to 22"};
    const std::optional<CJsonValue> value = members.Find("grid");
    const std::optional<double> exponent = value ? ReadNumber(*value, EXPONENT_KIND, findings) : std::nullopt;
    if (!exponent) {
        return GridFor(width);
    }
    if (*exponent != std::nearbyint(*exponent)) {
        findings.Refuse(*value, std::string("is not ") + EXPONENT_KIND.m_pDemand);
    }
    return {static_cast<int>(*exponent)};
}

SPoint LowerLeftOf(const CRing& ring) {
    SPoint corner = ring.empty() ? SPoint() : ring.front();
    for (const SPoint& point : ring) {
        corner = {std::min(corner.m_X, point.m_X), std::min(corner.m_Y, point.m_Y)};
    }
    return corner;
}

/// How far any point is from the outline's lower left corner, in either direction.
double ReachOf(const SShape& shape) {
    const SPoint corner = LowerLeftOf(shape.m_Outline);
    double reach = 0.0;
    const auto include = [&reach, &corner](const CRing& ring) {
        for (const SPoint& point : ring) {
            reach = std::max({reach, std::abs(point.m_X - corner.m_X), std::abs(point.m_Y - corner.m_Y)});
        }
    };
    include(shape.m_Outline);
    std::for_each(shape.m_Holes.begin(), shape.m_Holes.end(), include);
    return reach;
}

/// Brings placements to a grid, and refuses what is too large for it: who adds up such lengths would
/// overflow.
class CGridPlacer {
public:
    CGridPlacer(const SWrittenPacking& written, const SGrid& grid, CJsonFindings& findings)
        : m_Written(written), m_Grid(grid), m_Findings(findings), m_Examined(written.m_Pieces.size()) {}

    [[nodiscard]] SFreePlacement Place(const SWrittenPlacement& placement) {
        Examine(placement.m_nPiece);
        const SPoint at = CornerAt(placement);
        SFreePlacement placed{
            static_cast<int>(placement.m_nPiece), placement.m_bMirrored, placement.m_Degrees, {}};
        if (Fits(at.m_X) && Fits(at.m_Y)) {
            placed.m_At = {m_Grid.Count(at.m_X), m_Grid.Count(at.m_Y)};
        } else {
            m_Findings.Miss(placement.m_Value, "its place is too far away" + ForTheGrid());
        }
        return placed;
    }

private:
    void Examine(size_t nPiece) {
        const SWrittenPiece& piece = m_Written.m_Pieces[nPiece];
        if (!m_Examined[nPiece] && !Fits(ReachOf(piece.m_Shape))) {
            m_Findings.Miss(piece.m_Value, "it is too large" + ForTheGrid());
        }
        m_Examined[nPiece] = true;
    }

    /// Where the corner of the outline is laid.
    [[nodiscard]] SPoint CornerAt(const SWrittenPlacement& placement) const {
        if (m_Written.m_eReference == EReference::CORNER) {
            return placement.m_At;
        }
        const SPoint corner = LowerLeftOf(m_Written.m_Pieces[placement.m_nPiece].m_Shape.m_Outline);
        const SDirection direction = DirectionOf(placement.m_Degrees);
        const double x = placement.m_bMirrored ? -corner.m_X : corner.m_X;
        return {placement.m_At.m_X + x * direction.m_Cosine - corner.m_Y * direction.m_Sine,
                placement.m_At.m_Y + x * direction.m_Sine + corner.m_Y * direction.m_Cosine};
    }

    [[nodiscard]] bool Fits(double length) const {
        return std::abs(length) <= m_Grid.Length(GRID_LENGTH_MOST);
    }

    [[nodiscard]] std::string ForTheGrid() const {
        return " for a grid whose unit is 1e" + std::to_string(m_Grid.m_nExponent);
    }

    const SWrittenPacking& m_Written;
    SGrid m_Grid;
    CJsonFindings& m_Findings;
    std::vector<bool> m_Examined;  ///< by pieces; those that are not placed may be of any size
};

/// What the file says of the piece, without the demands that depend on placements.
SPiece PieceOf(const SWrittenPiece& written) {
    return {written.m_Name, written.m_Shape, written.m_nQuantity.value_or(0),
            written.m_Turns.value_or(STurns{true, {}}), written.m_bMirror.value_or(true)};
}

/// Of what is to be packed how often the file says nothing, there are as many as it places; but one at least,
/// so that none is forgotten.
void CountQuantities(const SWrittenPacking& written, std::vector<SPiece>& pieces) {
    for (const SWrittenPlacement& placement : written.m_Placements) {
        if (!written.m_Pieces[placement.m_nPiece].m_nQuantity) {
            ++pieces[placement.m_nPiece].m_nQuantity;
        }
    }
    for (size_t i = 0; i < pieces.size(); ++i) {
        if (!written.m_Pieces[i].m_nQuantity) {
            pieces[i].m_nQuantity = std::max(pieces[i].m_nQuantity, 1);
        }
    }
}

std::optional<int64_t> ReadHeight(CMemberReader& members, const SGrid& grid, CJsonFindings& findings) {
    const std::optional<CJsonValue> statistics = members.Find("statistics");
    if (!statistics) {
        return std::nullopt;
    }
    const std::optional<CJsonValue> value = CMemberReader(*statistics, findings).Find("height");
    const std::optional<double> height = value ? ReadNumber(*value, ANY_KIND, findings) : std::nullopt;
    // The largest piece that is allowed reaches higher than its place, turned by any angle.
    if (height && std::abs(*height) > 4.0 * grid.Length(GRID_LENGTH_MOST)) {
        findings.Refuse(*value, "is too great for the grid");
        return std::nullopt;
    }
    return height ? std::optional(grid.Count(*height)) : std::nullopt;
}

}  // namespace

SFreeRecord FreeRecordOf(const SWrittenPacking& written, CMemberReader& members, CJsonFindings& findings) {
    SFreeRecord record;
    SFreePacking& packing = record.m_Packing;
    packing.m_Strip = ReadStrip(members, findings);
    packing.m_Grid = ReadGrid(members, packing.m_Strip.m_Width, findings);
    std::transform(written.m_Pieces.begin(), written.m_Pieces.end(), std::back_inserter(record.m_Pieces),
                   PieceOf);
    CountQuantities(written, record.m_Pieces);
    CGridPlacer placer(written, packing.m_Grid, findings);
    for (const SWrittenPlacement& placement : written.m_Placements) {
        packing.m_Placed.push_back(placer.Place(placement));
    }
    const std::optional<int64_t> height = ReadHeight(members, packing.m_Grid, findings);
    if (findings.IsSound()) {
        packing.m_nHeight = height ? *height : HeightOf(PlacedShapes(record.m_Pieces, packing));
    }
    return record;
}

}  // namespace nestrix::json
