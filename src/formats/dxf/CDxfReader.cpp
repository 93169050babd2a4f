#include "formats/dxf/CDxfReader.h"

#include <algorithm>

#include "formats/dxf/OwnData.h"

namespace nestrix {

namespace {

constexpr int NAME = 2;
constexpr int LAYER = 8;
constexpr int INVISIBLE = 60;
constexpr int PAPER_SPACE = 67;
constexpr int FLAGS = 70;
constexpr int EMBEDDED_OBJECT = 101;
constexpr int OWN_STRING = 1000;
constexpr int APPLICATION = 1001;

/// A vertex of the frame that a curve was fitted to: not of the curve.
constexpr std::string_view FRAME_VERTEX_FLAG = "16";

std::string_view ValueOf(std::span<const SDxfGroup> record, int nCode) {
    const auto position = std::find_if(record.begin(), record.end(),
                                       [nCode](const SDxfGroup& group) { return group.m_nCode == nCode; });
    return position == record.end() ? std::string_view() : position->m_Value;
}

size_t CountOf(std::span<const SDxfGroup> record, int nCode) {
    return static_cast<size_t>(std::count_if(
        record.begin(), record.end(), [nCode](const SDxfGroup& group) { return group.m_nCode == nCode; }));
}

/// Newer files repeat some texts as objects of their own behind them, with the same codes for other things.
std::span<const SDxfGroup> WithoutEmbedded(std::span<const SDxfGroup> record) {
    const auto position = std::find_if(record.begin(), record.end(), [](const SDxfGroup& group) {
        return group.m_nCode == EMBEDDED_OBJECT;
    });
    return record.first(static_cast<size_t>(position - record.begin()));
}

}  // namespace

void CDxfReader::Read(std::string_view text) {
    CDxfRecords records(text);
    while (!m_bEnded && !m_Collector.IsFull() && records.Next()) {
        ReadRecord(records.Groups());
    }
    m_Feed.Give(0, "EOF");
    if (!records.Fault().empty()) {
        m_Findings.Fault(records.Line(), records.Fault());
    } else if (m_Collector.IsFull()) {
        m_Findings.Fault(records.Line(), "it has more in it than any drawing has; the rest is not read");
    } else if (!m_bAnySection) {
        m_Findings.Fault(records.Line(), "this is no DXF file: it has no sections");
    } else if (!m_bEnded) {
        m_Findings.Fault(records.Line(), "the file is cut off: its end mark is missing");
    }
}

void CDxfReader::ReadRecord(CRecord record) {
    const SDxfGroup& name = record.front();
    if (name.m_nCode == 9) {
        ReadVariable(record);
    } else if (name.m_Value == "SECTION") {
        EnterSection(record);
    } else if (name.m_Value == "ENDSEC") {
        m_Section.clear();
    } else if (name.m_Value == "EOF") {
        m_bEnded = true;
    } else {
        ReadInSection(record);
    }
}

void CDxfReader::ReadVariable(CRecord record) {
    static constexpr std::array CODES{FLAGS};
    static constexpr SDxfRecordKind UNIT{"$INSUNITS", CODES, false};
    if (m_Section == "HEADER" && record.front().m_Value == UNIT.m_Name && IsSound(record, UNIT)) {
        Give(record, UNIT);
    }
}

void CDxfReader::EnterSection(CRecord record) {
    m_bAnySection = true;
    m_Section = ValueOf(record, NAME);
    Begin(record.front());
    if (m_Section == "ENTITIES") {
        m_Collector.EnterModel();
    } else {
        m_Collector.LeaveModel();
    }
}

void CDxfReader::ReadInSection(CRecord record) {
    const std::string_view name = record.front().m_Value;
    const bool bDrawn = m_Section == "ENTITIES" || m_Section == "BLOCKS";
    const SDxfRecordKind* const pKind = FindRecordKind(name);
    if (pKind != nullptr && !pKind->m_bEntity) {
        if ((m_Section == (name == "LAYER" ? "TABLES" : "BLOCKS")) && IsSound(record, *pKind)) {
            Give(record, *pKind);
        }
        return;
    }
    if (!bDrawn || ValueOf(record, PAPER_SPACE) == "1") {
        return;
    }
    if (ValueOf(record, INVISIBLE) == "1") {
        m_Findings.AddOnce(SFinding::ESeverity::NOTE, record.front().m_nLine,
                           "what is invisible is left out");
    } else if (pKind != nullptr) {
        ReadEntity(WithoutEmbedded(record), *pKind);
    } else if (name != "ATTDEF") {
        Begin(record.front());
        m_Collector.AddUnread(Quoted(name), std::string(ValueOf(record, LAYER)));
    }
}

void CDxfReader::ReadEntity(CRecord record, const SDxfRecordKind& kind) {
    if (kind.m_Name == "VERTEX" && ValueOf(record, FLAGS) == FRAME_VERTEX_FLAG) {
        return;
    }
    if (IsSound(record, kind)) {
        Give(record, kind);
    }
}

bool CDxfReader::IsSound(CRecord record, const SDxfRecordKind& kind) {
    for (const SDxfGroup& group : record.subspan(1)) {
        const std::string fault = IsRead(kind, group.m_nCode) ? FaultOf(group) : "";
        if (!fault.empty()) {
            m_Findings.Fault(group.m_nLine, fault);
            return false;
        }
    }
    return true;
}

void CDxfReader::Give(CRecord record, const SDxfRecordKind& kind) {
    Begin(record.front());
    GiveCounts(record);
    for (const SDxfGroup& group : record.subspan(1)) {
        if (IsRead(kind, group.m_nCode) && !group.m_Value.empty()) {
            m_Feed.Give(group.m_nCode, LocaleProof(group));
        }
    }
    GiveOwnData(record);
}

/// dxflib trusts the counts, and takes those of the last curve where there are none.
void CDxfReader::GiveCounts(CRecord record) {
    const auto give = [&](int nCountCode, int nCode) {
        m_Feed.Give(nCountCode, std::to_string(CountOf(record, nCode)));
    };
    if (record.front().m_Value == "LWPOLYLINE") {
        give(90, 10);
    } else if (record.front().m_Value == "SPLINE") {
        give(72, 40);
        give(73, 10);
        give(74, 11);
    }
}

void CDxfReader::GiveOwnData(CRecord record) {
    bool bOwn = false;
    for (const SDxfGroup& group : record) {
        if (group.m_nCode == APPLICATION) {
            bOwn = group.m_Value == own_data::APPLICATION;
        }
        if (bOwn && (group.m_nCode == APPLICATION || group.m_nCode == OWN_STRING) && FaultOf(group).empty()) {
            m_Feed.Give(group.m_nCode, group.m_Value);
        }
    }
}

/// The record before is heard of as soon as dxflib knows of the next one: only then is the line another.
void CDxfReader::Begin(const SDxfGroup& name) {
    m_Feed.Give(name.m_nCode, name.m_Value);
    m_Collector.SetLine(name.m_nLine);
}

}  // namespace nestrix
