#include <limits>

#include "formats/json/PackingRecord.h"
#include "formats/json/ReadJsonFile.h"
#include "formats/json/RecordBuilding.h"

namespace nestrix {

namespace {

using EKind = CJsonValue::EKind;

CRecordedOptions ReadOptions(CMemberReader& members, CJsonFindings& findings) {
    CRecordedOptions options;
    const std::optional<CJsonValue> object = members.Find("options");
    if (!object) {
        return options;
    }
    const CMemberReader demandObject(*object, findings);
    for (const SJsonMember member : object->Members()) {
        const std::string name(member.m_Name.Text());
        const CJsonValue& value = member.m_Value;
        if (value.Kind() == EKind::YES || value.Kind() == EKind::NO) {
            options.emplace_back(name, value.Kind() == EKind::YES);
        } else if (value.Kind() == EKind::NUMBER || value.Kind() == EKind::WHOLE) {
            options.emplace_back(name, value.Number());
        } else if (value.Kind() == EKind::TEXT) {
            options.emplace_back(name, std::string(value.Text()));
        } else {
            findings.Refuse(value, "is neither a number, nor a text, nor true or false");
        }
    }
    return options;
}

SRecordedTime ReadTime(CMemberReader& members, CJsonFindings& findings) {
    const std::optional<CJsonValue> object = members.Find("time");
    if (!object) {
        return {};
    }
    CMemberReader time(*object, findings);
    return {time.Number("seconds", json::DISTANCE_KIND), time.Text("finished").value_or("")};
}

/// Where the packing comes from; nothing of it is needed.
void ReadRun(CMemberReader& members, SPackingRecord& record, CJsonFindings& findings) {
    record.m_Version = members.Text("version").value_or("");
    record.m_nSeed = members.Whole("seed", 0, std::numeric_limits<uint64_t>::max());
    record.m_nThreads = members.Int("threads", 0, std::numeric_limits<int>::max());
    record.m_nRanks = members.Int("ranks", 1, std::numeric_limits<int>::max());
    record.m_nSteps = members.Whole("steps", 0, std::numeric_limits<uint64_t>::max());
    record.m_eEnd = members.Named("ended", END_NAMES);
    record.m_Options = ReadOptions(members, findings);
    record.m_Unit = members.Unit("unit");
    record.m_Time = ReadTime(members, findings);
}

void CheckFormat(CMemberReader& members, CJsonFindings& findings) {
    const std::optional<CJsonValue> format = members.Find("format");
    if (format && (format->Kind() != EKind::TEXT || format->Text() != RECORD_FORMAT)) {
        findings.Refuse(*format, "is not the format \"" + std::string(RECORD_FORMAT) + "\"");
    }
}

SPackingRecord ReadRecord(const CJsonValue& root, CJsonFindings& findings) {
    CMemberReader members(root, findings);
    SPackingRecord record;
    CheckFormat(members, findings);
    ReadRun(members, record, findings);
    json::SWrittenPacking written;
    written.m_eReference = members.Named("reference", REFERENCE_NAMES).value_or(EReference::ORIGIN);
    written.m_Pieces = json::ReadPieces(members, findings);
    for (const json::SWrittenPiece& piece : written.m_Pieces) {
        record.m_Sources.push_back(piece.m_Source);
    }
    written.m_Placements = json::ReadPlacements(members, written.m_Pieces, findings);
    if (members.Named("method", METHOD_NAMES).value_or(EPackMethod::FREE) == EPackMethod::DROP) {
        record.m_Packing = json::DroppedRecordOf(written, members, findings);
    } else {
        record.m_Packing = json::FreeRecordOf(written, members, findings);
    }
    return record;
}

}  // namespace

SReading<SPackingRecord> ReadPackingRecord(const std::string& path) {
    return ReadJsonFile<SPackingRecord>(path, ReadRecord);
}

}  // namespace nestrix
