#pragma once

#include <span>
#include <string>
#include <string_view>

#include "formats/dxf/CDxfCollector.h"
#include "formats/dxf/CDxfFeed.h"
#include "formats/dxf/CDxfRecords.h"
#include "formats/dxf/DxfRecordKinds.h"

namespace nestrix {

/// Reads the records of a DXF file through dxflib, which is shown only what it can be trusted with: sound
/// values, true counts, kinds that are read, in the sections where they belong.
///
/// Order of use: construct; Read once.
class CDxfReader {
public:
    CDxfReader(SDxfContent& content, CDxfFindings& findings, size_t nMostStretches)
        : m_Findings(findings), m_Collector(content, findings, nMostStretches), m_Feed(m_Collector) {}

    void Read(std::string_view text);

private:
    using CRecord = std::span<const SDxfGroup>;

    void ReadRecord(CRecord record);
    void ReadVariable(CRecord record);
    void EnterSection(CRecord record);
    void ReadInSection(CRecord record);
    void ReadEntity(CRecord record, const SDxfRecordKind& kind);

    /// Whether all that is read of a record is sound; says what is not.
    [[nodiscard]] bool IsSound(CRecord record, const SDxfRecordKind& kind);
    void Give(CRecord record, const SDxfRecordKind& kind);
    void GiveCounts(CRecord record);
    void GiveOwnData(CRecord record);
    void Begin(const SDxfGroup& name);

    CDxfFindings& m_Findings;
    CDxfCollector m_Collector;
    CDxfFeed m_Feed;
    std::string m_Section;
    bool m_bAnySection = false;
    bool m_bEnded = false;
};

}  // namespace nestrix
