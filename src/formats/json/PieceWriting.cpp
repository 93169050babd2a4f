#include "formats/json/PieceWriting.h"

#include "base/NumberText.h"
#include "formats/json/GridNumber.h"
#include "formats/json/PolygonRing.h"

namespace nestrix::json {

namespace {

using ELayout = CJsonWriter::ELayout;

void WritePoint(CJsonWriter& writer, const SPoint& point) {
    writer.BeginArray(ELayout::ONE_LINE);
    writer.Number(point.m_X);
    writer.Number(point.m_Y);
    writer.EndArray();
}

void WriteTurns(CJsonWriter& writer, const STurns& turns) {
    if (turns.m_bAny) {
        writer.Text("any");
        return;
    }
    writer.BeginArray(ELayout::ONE_LINE);
    for (const double degrees : turns.m_Degrees) {
        writer.Number(degrees);
    }
    writer.EndArray();
}

void WriteHoles(CJsonWriter& writer, const std::vector<CRing>& holes) {
    if (holes.empty()) {
        return;
    }
    writer.Name("holes").BeginArray();
    for (const CRing& hole : holes) {
        WriteRing(writer, hole);
    }
    writer.EndArray();
}

/// What a piece and its placements have in common.
void WriteIdentity(CJsonWriter& writer, const std::string& name, const SPieceSource& source) {
    writer.Name("name").Text(name);
    if (!source.m_File.empty()) {
        writer.Name("file").Text(source.m_File);
    }
}

void BeginPiece(CJsonWriter& writer, const std::string& name, const SPieceSource& source) {
    writer.BeginObject();
    WriteIdentity(writer, name, source);
    if (source.m_nLine > 0) {
        writer.Name("line").Whole(static_cast<uint64_t>(source.m_nLine));
    }
}

void WritePiece(CJsonWriter& writer, const SPiece& piece, const SPieceSource& source) {
    BeginPiece(writer, piece.m_Name, source);
    writer.Name("quantity").Whole(static_cast<uint64_t>(piece.m_nQuantity));
    WriteTurns(writer.Name("turns"), piece.m_Turns);
    writer.Name("mirror").Flag(piece.m_bMirrored);
    WriteRing(writer.Name("outline"), piece.m_Shape.m_Outline);
    WriteHoles(writer, piece.m_Shape.m_Holes);
    writer.EndObject();
}

void WritePolygon(CJsonWriter& writer, const SDroppedRecord& record, size_t nPiece,
                  const SPieceSource& source) {
    const CPolygon& polygon = record.m_Pieces[nPiece];
    BeginPiece(writer, record.m_Names[nPiece], source);
    WriteRing(writer.Name("outline"), RingOf(polygon));
    WriteHoles(writer, record.m_Holes[nPiece]);
    const mgVector3& low = polygon.m_BoundingBoxMin;
    const mgVector3& high = polygon.m_BoundingBoxMax;
    WriteRing(writer.Name("box"), {{low.x, low.y}, {high.x, high.y}});
    writer.EndObject();
}

/// A placement up to its place.
/// @param nOrder from 1.
void BeginPlacement(CJsonWriter& writer, size_t nOrder, size_t nPiece, const std::string& name,
                    const SPieceSource& source) {
    writer.BeginObject(ELayout::ONE_LINE);
    writer.Name("order").Whole(nOrder);
    writer.Name("piece").Whole(nPiece);
    WriteIdentity(writer, name, source);
}

void WritePlacements(CJsonWriter& writer, const SFreeRecord& record, std::span<const SPieceSource> sources) {
    const SFreePacking& packing = record.m_Packing;
    for (size_t i = 0; i < packing.m_Placed.size(); ++i) {
        const SFreePlacement& placed = packing.m_Placed[i];
        const auto nPiece = static_cast<size_t>(placed.m_nPiece);
        BeginPlacement(writer, i + 1, nPiece, record.m_Pieces[nPiece].m_Name, sources[nPiece]);
        writer.Name("turn").Number(placed.m_Degrees);
        writer.Name("mirror").Flag(placed.m_bMirrored);
        writer.Name("x").Digits(GridDigits(placed.m_At.m_nX, packing.m_Grid));
        writer.Name("y").Digits(GridDigits(placed.m_At.m_nY, packing.m_Grid));
        writer.EndObject();
    }
}

void WritePlacements(CJsonWriter& writer, const SDroppedRecord& record,
                     std::span<const SPieceSource> sources) {
    for (size_t i = 0; i < record.m_Packing.m_Placed.size(); ++i) {
        const SPlacedPiece& placed = record.m_Packing.m_Placed[i];
        const auto nPiece = static_cast<size_t>(placed.m_nPiece);
        BeginPlacement(writer, i + 1, nPiece, record.m_Names[nPiece], sources[nPiece]);
        writer.Name("turn").Number(0.0);
        writer.Name("mirror").Flag(false);
        writer.Name("x").Number(placed.m_At.x);
        writer.Name("y").Number(placed.m_At.y);
        writer.EndObject();
    }
}

}  // namespace

void WriteRing(CJsonWriter& writer, const CRing& ring) {
    writer.BeginArray(ELayout::ONE_LINE);
    for (const SPoint& point : ring) {
        WritePoint(writer, point);
    }
    writer.EndArray();
}

void WritePieces(CJsonWriter& writer, const SFreeRecord& record, std::span<const SPieceSource> sources) {
    writer.Name("pieces").BeginArray();
    for (size_t i = 0; i < record.m_Pieces.size(); ++i) {
        WritePiece(writer, record.m_Pieces[i], sources[i]);
    }
    writer.EndArray();
    writer.Name("placements").BeginArray();
    WritePlacements(writer, record, sources);
    writer.EndArray();
}

void WritePieces(CJsonWriter& writer, const SDroppedRecord& record, std::span<const SPieceSource> sources) {
    writer.Name("pieces").BeginArray();
    for (size_t i = 0; i < record.m_Pieces.size(); ++i) {
        WritePolygon(writer, record, i, sources[i]);
    }
    writer.EndArray();
    writer.Name("placements").BeginArray();
    WritePlacements(writer, record, sources);
    writer.EndArray();
}

}  // namespace nestrix::json
