#include "batch/InstanceInput.h"

#include "batch/PolygonInput.h"
#include "formats/json/Instance.h"
#include "formats/json/JsonKind.h"

namespace nestrix {

namespace {

void Scale(CRing& ring, double scale) {
    for (SPoint& point : ring) {
        point = {point.m_X * scale, point.m_Y * scale};
    }
}

SInputFile ReadInstanceInput(const std::string& path, double scale) {
    SReading<SInstance> reading = ReadInstance(path);
    SInputFile input;
    input.m_bHasUnits = false;
    input.m_Findings = std::move(reading.m_Findings);
    if (!reading.m_Value) {
        return input;
    }
    const SFreeStrip& strip = reading.m_Value->m_Strip;
    input.m_Strip.m_Width = strip.m_Width * scale;
    for (SPiece& piece : reading.m_Value->m_Pieces) {
        Scale(piece.m_Shape.m_Outline, scale);
        for (CRing& hole : piece.m_Shape.m_Holes) {
            Scale(hole, scale);
        }
        input.m_Pieces.push_back(InputPieceOf(std::move(piece), path, 0));
    }
    return input;
}

SInputFile Refused(const std::string& path, const std::string& why) {
    SInputFile input;
    input.m_Findings.push_back({path, 0, SFinding::ESeverity::FAULT, why});
    return input;
}

}  // namespace

SInputFile ReadJsonInput(const std::string& path, const SReadOptions& options) {
    const SReading<EJsonKind> kind = KindOf(path);
    if (!kind.m_Value) {
        SInputFile input;
        input.m_Findings = kind.m_Findings;
        return input;
    }
    switch (*kind.m_Value) {
        case EJsonKind::JOB:
            return Refused(path, "it is a job: \"pack --job\" packs it");
        case EJsonKind::PACKING:
            return Refused(path, "it is a packing: \"pack --from\" searches on from it");
        case EJsonKind::INSTANCE:
            break;
    }
    return ReadInstanceInput(path, ScaleOf(options, std::nullopt));
}

SInputFile PiecesOf(const SPackingRecord& record, const SFreeRecord& packing, const std::string& path) {
    SInputFile input;
    input.m_bHasUnits = false;
    input.m_Unit = record.m_Unit;
    const SFreeStrip& strip = packing.m_Packing.m_Strip;
    input.m_Strip = {strip.m_Width, strip.m_Spacing, strip.m_Margin};
    for (size_t i = 0; i < packing.m_Pieces.size(); ++i) {
        const SPieceSource source = i < record.m_Sources.size() ? record.m_Sources[i] : SPieceSource();
        input.m_Pieces.push_back(
            InputPieceOf(packing.m_Pieces[i], source.m_File.empty() ? path : source.m_File, source.m_nLine));
    }
    return input;
}

}  // namespace nestrix
