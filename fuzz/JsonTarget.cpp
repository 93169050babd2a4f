#include <algorithm>
#include <cstdint>
#include <string>

#include "certify/Certify.h"
#include "formats/json/Instance.h"
#include "formats/json/Job.h"
#include "formats/json/JsonKind.h"
#include "formats/json/PackingRecord.h"
#include "fuzz/CMemoryFile.h"
#include "fuzz/Require.h"

using namespace nestrix;

// Any bytes as a JSON file: told apart, read as each kind, and written again.

namespace {

using fuzz::CMemoryFile;
using fuzz::Require;

/// More placements have nothing that fewer have not, and the examination takes its time.
constexpr size_t MOST_CERTIFIED = 20;

template <class T>
void CheckFindings(const SReading<T>& reading) {
    Require(reading.m_Value.has_value() == reading.m_Findings.empty(), "there is either a value or a fault");
    for (const SFinding& finding : reading.m_Findings) {
        Require(finding.m_eSeverity == SFinding::ESeverity::FAULT && !finding.m_Message.empty(),
                "a fault is said in words");
        Require(std::none_of(finding.m_Message.begin(), finding.m_Message.end(),
                             [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }),
                "a message does nothing to a terminal");
    }
}

/// What a text reads as once it is a file.
template <class T>
T ReadBack(SReading<T> (*pRead)(const std::string& path), CMemoryFile& file, const std::string& text) {
    file.Write(text.data(), text.size());
    SReading<T> reading = pRead(file.Path());
    Require(reading.m_Value.has_value(), "what is written is read");
    return std::move(*reading.m_Value);
}

void CheckPacking(const SPackingRecord& record, CMemoryFile& file) {
    static_cast<void>(FiguresOf(record));
    std::visit(
        [](const auto& packed) {
            if (packed.m_Packing.m_Placed.size() <= MOST_CERTIFIED) {
                static_cast<void>(Certify(packed.m_Pieces, packed.m_Packing));
            }
        },
        record.m_Packing);
    const std::string text = WriteJson(record);
    const SPackingRecord again = ReadBack(ReadPackingRecord, file, text);
    Require(again == record, "a packing comes back from its file");
    Require(WriteJson(again) == text, "a packing is written in the same bytes again");
}

void CheckInstance(const SInstance& instance, CMemoryFile& file) {
    static_cast<void>(LostInInstance(instance));
    const std::string text = WriteInstance(instance);
    const SInstance again = ReadBack(ReadInstance, file, text);
    Require(again.m_Name == instance.m_Name && again.m_Strip == instance.m_Strip &&
                again.m_Pieces == instance.m_Pieces && again.m_Drawings == instance.m_Drawings,
            "an instance comes back from its file");
    Require(WriteInstance(again) == text, "an instance is written in the same bytes again");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t nBytes) {
    static CMemoryFile s_File;
    s_File.Write(pBytes, nBytes);
    CheckFindings(KindOf(s_File.Path()));
    CheckFindings(ReadJob(s_File.Path()));
    const SReading<SPackingRecord> packing = ReadPackingRecord(s_File.Path());
    CheckFindings(packing);
    const SReading<SInstance> instance = ReadInstance(s_File.Path());
    CheckFindings(instance);
    if (packing.m_Value) {
        CheckPacking(*packing.m_Value, s_File);
    }
    if (instance.m_Value) {
        CheckInstance(*instance.m_Value, s_File);
    }
    return 0;
}
