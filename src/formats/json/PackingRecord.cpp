#include "formats/json/PackingRecord.h"

#include "formats/json/CJsonWriter.h"
#include "formats/json/FileWords.h"
#include "formats/json/GridNumber.h"
#include "formats/json/PieceWriting.h"

namespace nestrix {

namespace {

using ELayout = CJsonWriter::ELayout;

void WriteWhole(CJsonWriter& writer, char const* pName, const std::optional<uint64_t>& number) {
    if (number) {
        writer.Name(pName).Whole(*number);
    }
}

void WriteText(CJsonWriter& writer, char const* pName, std::string_view text) {
    if (!text.empty()) {
        writer.Name(pName).Text(text);
    }
}

void WriteOptions(CJsonWriter& writer, const CRecordedOptions& options) {
    writer.Name("options").BeginObject();
    for (const auto& [name, value] : options) {
        writer.Name(name);
        if (const bool* pFlag = std::get_if<bool>(&value)) {
            writer.Flag(*pFlag);
        } else if (const double* pNumber = std::get_if<double>(&value)) {
            writer.Number(*pNumber);
        } else {
            writer.Text(std::get<std::string>(value));
        }
    }
    writer.EndObject();
}

/// Where the packing comes from.
void WriteRun(CJsonWriter& writer, const SPackingRecord& record) {
    const bool bFree = std::holds_alternative<SFreeRecord>(record.m_Packing);
    writer.Name("format").Text(RECORD_FORMAT);
    WriteText(writer, "version", record.m_Version);
    WriteText(writer, "method", NameOf(METHOD_NAMES, bFree ? EPackMethod::FREE : EPackMethod::DROP));
    WriteWhole(writer, "seed", record.m_nSeed);
    WriteWhole(writer, "threads", record.m_nThreads);
    WriteWhole(writer, "ranks", record.m_nRanks);
    WriteWhole(writer, "steps", record.m_nSteps);
    WriteText(writer, "ended", record.m_eEnd ? NameOf(END_NAMES, *record.m_eEnd) : "");
    WriteOptions(writer, record.m_Options);
    WriteText(writer, "unit", record.m_Unit ? NameOf(*record.m_Unit) : "");
}

void WriteHeight(CJsonWriter& writer, const SFreePacking& packing) {
    writer.Digits(GridDigits(packing.m_nHeight, packing.m_Grid));
}

void WriteHeight(CJsonWriter& writer, const SPacking& packing) {
    writer.Number(packing.m_fHeight);
}

template <class TPacking>
void WriteStatistics(CJsonWriter& writer, const SPackingFigures& figures, const TPacking& packing) {
    writer.Name("statistics").BeginObject(ELayout::ONE_LINE);
    writer.Name("placed").Whole(figures.m_nPlaced);
    WriteHeight(writer.Name("height"), packing);
    writer.Name("density").Number(figures.m_Density);
    writer.EndObject();
}

/// What the numbers of the placements mean.
void WriteGround(CJsonWriter& writer, const SFreePacking& packing) {
    writer.Name("strip").BeginObject(ELayout::ONE_LINE);
    writer.Name("width").Number(packing.m_Strip.m_Width);
    writer.Name("spacing").Number(packing.m_Strip.m_Spacing);
    writer.Name("margin").Number(packing.m_Strip.m_Margin);
    writer.EndObject();
    writer.Name("grid").Number(packing.m_Grid.m_nExponent);
    WriteText(writer, "reference", NameOf(REFERENCE_NAMES, EReference::CORNER));
}

void WriteGround(CJsonWriter& writer, const SPacking& packing) {
    writer.Name("strip").BeginObject(ELayout::ONE_LINE);
    writer.Name("width").Number(packing.m_Strip.m_fWidth);
    writer.Name("shown_height").Number(packing.m_Strip.m_fHeight);
    writer.EndObject();
    WriteText(writer, "reference", NameOf(REFERENCE_NAMES, EReference::ORIGIN));
}

void WriteTime(CJsonWriter& writer, const SRecordedTime& time) {
    writer.Name("time").BeginObject(ELayout::ONE_LINE);
    if (time.m_Seconds) {
        writer.Name("seconds").Number(*time.m_Seconds);
    }
    WriteText(writer, "finished", time.m_Finished);
    writer.EndObject();
}

}  // namespace

std::string WriteJson(const SPackingRecord& record) {
    CJsonWriter writer;
    writer.BeginObject();
    WriteRun(writer, record);
    std::visit(
        [&writer, &record](const auto& packed) {
            WriteStatistics(writer, FiguresOf(record), packed.m_Packing);
            WriteGround(writer, packed.m_Packing);
            json::WritePieces(writer, packed, record.m_Sources);
        },
        record.m_Packing);
    WriteTime(writer, record.m_Time);
    writer.EndObject();
    return writer.Take();
}

}  // namespace nestrix
