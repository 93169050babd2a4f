#include <algorithm>
#include <cmath>
#include <limits>

#include "formats/json/PolygonRing.h"
#include "formats/json/RecordBuilding.h"

namespace nestrix::json {

namespace {

constexpr double SINGLE_MOST = std::numeric_limits<float>::max();
constexpr SNumberKind SINGLE_KIND{-SINGLE_MOST, SINGLE_MOST, true, "a number of single precision"};
constexpr SNumberKind SINGLE_WIDTH_KIND{0.0, SINGLE_MOST, false, "a number of single precision above 0"};

SStrip ReadStrip(CMemberReader& members, CJsonFindings& findings) {
    SStrip strip;
    if (const std::optional<CJsonValue> value = members.Demand("strip")) {
        CMemberReader strips(*value, findings);
        const double width = strips.Number("width", SINGLE_WIDTH_KIND).value_or(strip.m_fWidth);
        const double height = strips.Number("shown_height", SINGLE_WIDTH_KIND).value_or(strip.m_fHeight);
        strip = {static_cast<float>(width), static_cast<float>(height)};
    }
    return strip;
}

bool IsSingle(const CRing& ring) {
    return std::all_of(ring.begin(), ring.end(), [](const SPoint& point) {
        return std::max(std::abs(point.m_X), std::abs(point.m_Y)) <= SINGLE_MOST;
    });
}

CRing BoxOf(const CRing& outline) {
    if (outline.empty()) {
        return {{}, {}};
    }
    CRing box{outline.front(), outline.front()};
    for (const SPoint& point : outline) {
        box = {{std::min(box[0].m_X, point.m_X), std::min(box[0].m_Y, point.m_Y)},
               {std::max(box[1].m_X, point.m_X), std::max(box[1].m_Y, point.m_Y)}};
    }
    return box;
}

CPolygon ReadPolygon(const SWrittenPiece& piece, CJsonFindings& findings) {
    const CRing box = piece.m_Box.value_or(BoxOf(piece.m_Shape.m_Outline));
    const std::vector<CRing>& holes = piece.m_Shape.m_Holes;
    if (!IsSingle(piece.m_Shape.m_Outline) || !IsSingle(box) ||
        !std::all_of(holes.begin(), holes.end(), IsSingle)) {
        findings.Miss(piece.m_Value, "it is too large for single precision, in which pieces are dropped");
        return {};
    }
    if (piece.m_nQuantity.value_or(1) != 1) {
        findings.Miss(piece.m_Value, "a dropped piece is there once");
    }
    return PolygonOf(piece.m_Shape.m_Outline, box[0], box[1]);
}

SPlacedPiece ReadPlaced(const SWrittenPlacement& placement, CJsonFindings& findings) {
    if (!IsSingle({placement.m_At})) {
        findings.Miss(placement.m_Value, "its place is too far away for single precision");
        return {};
    }
    if (placement.m_Degrees != 0.0 || placement.m_bMirrored) {
        findings.Miss(placement.m_Value, "a dropped piece is neither turned nor mirrored");
    }
    const auto fX = static_cast<float>(placement.m_At.m_X);
    const auto fY = static_cast<float>(placement.m_At.m_Y);
    return {static_cast<int>(placement.m_nPiece), {fX, fY, 0.0F}};
}

/// As the placement finds it.
float HeightOf(const SDroppedRecord& record) {
    float fHeight = 0.0F;
    for (const SPlacedPiece& placed : record.m_Packing.m_Placed) {
        const CPolygon& polygon = record.m_Pieces[static_cast<size_t>(placed.m_nPiece)];
        fHeight = std::max(fHeight, polygon.m_BoundingBoxMax.y + placed.m_At.y);
    }
    return fHeight;
}

std::optional<double> ReadHeight(CMemberReader& members, CJsonFindings& findings) {
    const std::optional<CJsonValue> statistics = members.Find("statistics");
    return statistics ? CMemberReader(*statistics, findings).Number("height", SINGLE_KIND) : std::nullopt;
}

}  // namespace

SDroppedRecord DroppedRecordOf(const SWrittenPacking& written, CMemberReader& members,
                               CJsonFindings& findings) {
    SDroppedRecord record;
    if (written.m_eReference != EReference::ORIGIN) {
        findings.Miss(members.Find("reference").value(),
                      "places of dropped pieces are those of their origins");
    }
    record.m_Packing.m_Strip = ReadStrip(members, findings);
    for (const SWrittenPiece& piece : written.m_Pieces) {
        record.m_Names.push_back(piece.m_Name);
        record.m_Pieces.push_back(ReadPolygon(piece, findings));
        record.m_Holes.push_back(piece.m_Shape.m_Holes);
    }
    for (const SWrittenPlacement& placement : written.m_Placements) {
        record.m_Packing.m_Placed.push_back(ReadPlaced(placement, findings));
    }
    const std::optional<double> height = ReadHeight(members, findings);
    record.m_Packing.m_fHeight = height ? static_cast<float>(*height) : HeightOf(record);
    if (!std::isfinite(record.m_Packing.m_fHeight)) {
        findings.Miss(members.Find("placements").value(), "they are too high for single precision");
    }
    return record;
}

}  // namespace nestrix::json
