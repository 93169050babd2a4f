#include "formats/json/CJsonDocument.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "base/NumberText.h"
#include "formats/json/CCountedText.h"
#include "formats/json/FileText.h"
#include "formats/json/PrintableText.h"

namespace nestrix {

namespace {

constexpr size_t BYTES_MOST = 1'000'000'000;

/// Ten million vertices are thirty million values, which take half a gigabyte.
constexpr size_t VALUES_MOST = 40'000'000;

/// A record's deepest value is a coordinate of a hole, six deep.
constexpr size_t DEPTH_MOST = 64;

constexpr size_t MESSAGE_MOST = 300;
constexpr size_t VALUE_MOST = 40;

/// What the library says of a text, without its own name and places.
std::string WhatIsWrong(const std::string& said) {
    std::string_view rest = said;
    rest.remove_prefix(std::min(rest.find("] ") + 2, rest.size()));
    if (rest.starts_with("parse error")) {
        rest.remove_prefix(std::min(rest.find(": ") + 2, rest.size()));
    }
    return PrintableText(rest, MESSAGE_MOST);
}

/// The name of a member as a part of a JSON pointer, which has signs of its own.
std::string PointerPart(std::string_view name) {
    std::string part;
    for (const char c : name) {
        part.append(c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c));
    }
    return part;
}

}  // namespace

/// Takes what the parser finds and puts it into a document.
class CJsonBuilder {
public:
    using EKind = CJsonValue::EKind;

    CJsonBuilder(std::string_view text, CJsonDocument& document)
        : m_Text(text), m_Counted(text), m_Document(document) {}

    /// @return whether it is JSON.
    bool Parse() { return nlohmann::json::sax_parse(m_Counted.Begin(), m_Counted.End(), this); }

    [[nodiscard]] const std::string& Fault() const { return m_Fault; }
    [[nodiscard]] int FaultLine() const { return m_nFaultLine; }

    // What the parser calls, by the names that it wants; false ends it.
    // NOLINTBEGIN(readability-identifier-naming)
    bool null() { return Add(EKind::NOTHING); }
    bool boolean(bool bValue) { return Add(bValue ? EKind::YES : EKind::NO); }
    bool number_integer(int64_t nValue) { return AddNumber(static_cast<double>(nValue)); }
    bool number_unsigned(uint64_t nValue) { return Add(EKind::WHOLE, nValue); }
    bool number_float(double value, const std::string& /*text*/) { return AddNumber(value); }
    bool string(const std::string& text) { return Add(EKind::TEXT, Keep(text)); }
    bool key(const std::string& text) { return Add(EKind::TEXT, Keep(text)); }
    bool start_array(size_t /*nElements*/) { return Open(EKind::ARRAY); }
    bool end_array() { return Close(); }
    bool start_object(size_t /*nElements*/) { return Open(EKind::OBJECT); }
    bool end_object() { return CheckNames() && Close(); }
    bool binary(const nlohmann::json::binary_t& /*value*/) { return false; }  // not in a text

    bool parse_error(size_t nPosition, const std::string& /*lastToken*/,
                     const nlohmann::json::exception& error) {
        const std::string_view before = m_Text.substr(0, nPosition > 0 ? nPosition - 1 : 0);
        const size_t nColumn = before.size() - (before.rfind('\n') + 1) + 1;
        m_nFaultLine = 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
        m_Fault = WhatIsWrong(error.what()) + " (column " + std::to_string(nColumn) + ")";
        return false;
    }
    // NOLINTEND(readability-identifier-naming)

private:
    bool Refuse(int nLine, const std::string& fault) {
        m_Fault = fault;
        m_nFaultLine = nLine;
        return false;
    }

    bool Add(EKind eKind, uint64_t nContent = 0) {
        if (m_Document.m_Nodes.size() >= VALUES_MOST) {
            return Refuse(m_Counted.Line(), "more than " + std::to_string(VALUES_MOST) + " values");
        }
        m_Document.m_Nodes.push_back({nContent, m_Counted.Line(), eKind});
        return true;
    }

    bool AddNumber(double value) { return Add(EKind::NUMBER, std::bit_cast<uint64_t>(value)); }

    uint64_t Keep(const std::string& text) {
        const uint64_t nPlace = m_Document.m_Texts.size();
        const auto nLength = static_cast<uint32_t>(text.size());
        m_Document.m_Texts.append(std::bit_cast<std::array<char, sizeof nLength>>(nLength).data(),
                                  sizeof nLength);
        m_Document.m_Texts.append(text);
        return nPlace;
    }

    bool Open(EKind eKind) {
        if (m_Open.size() >= DEPTH_MOST) {
            return Refuse(m_Counted.Line(), "nested more than " + std::to_string(DEPTH_MOST) + " deep");
        }
        m_Open.push_back(m_Document.m_Nodes.size());
        return Add(eKind);
    }

    bool Close() {
        m_Document.m_Nodes[m_Open.back()].m_nContent = m_Document.m_Nodes.size();
        m_Open.pop_back();
        return true;
    }

    /// The innermost object is complete: whether all its names differ. Parsers disagree on which of two
    /// members of the same name counts.
    bool CheckNames() {
        m_Document.m_Nodes[m_Open.back()].m_nContent = m_Document.m_Nodes.size();
        m_Names.clear();
        for (const SJsonMember member : CJsonValue(m_Document, m_Open.back()).Members()) {
            m_Names.emplace_back(member.m_Name.Text(), member.m_Name.Line());
        }
        std::sort(m_Names.begin(), m_Names.end());
        const auto twice = std::adjacent_find(
            m_Names.begin(), m_Names.end(), [](const auto& a, const auto& b) { return a.first == b.first; });
        return twice == m_Names.end() ||
               Refuse(std::next(twice)->second,
                      "the member \"" + PrintableText(twice->first, VALUE_MOST) + "\" is there twice");
    }

    std::string_view m_Text;
    CCountedText m_Counted;
    CJsonDocument& m_Document;
    std::vector<size_t> m_Open;  ///< the arrays and objects around what comes next
    std::vector<std::pair<std::string_view, int>> m_Names;
    std::string m_Fault;
    int m_nFaultLine = 0;
};

CJsonValue::EKind CJsonValue::Kind() const {
    return m_pDocument->m_Nodes[m_nNode].m_eKind;
}

int CJsonValue::Line() const {
    return m_pDocument->m_Nodes[m_nNode].m_nLine;
}

double CJsonValue::Number() const {
    const uint64_t nContent = m_pDocument->m_Nodes[m_nNode].m_nContent;
    return Kind() == EKind::WHOLE ? static_cast<double>(nContent) : std::bit_cast<double>(nContent);
}

uint64_t CJsonValue::Whole() const {
    return m_pDocument->m_Nodes[m_nNode].m_nContent;
}

std::string_view CJsonValue::Text() const {
    return m_pDocument->TextAt(m_pDocument->m_Nodes[m_nNode].m_nContent);
}

size_t CJsonValue::NextNode() const {
    const bool bHolds = Kind() == EKind::ARRAY || Kind() == EKind::OBJECT;
    return bHolds ? m_pDocument->m_Nodes[m_nNode].m_nContent : m_nNode + 1;
}

CJsonElements CJsonValue::Elements() const {
    const CJsonValue behind(*m_pDocument, NextNode());
    return {Kind() == EKind::ARRAY ? CJsonValue(*m_pDocument, m_nNode + 1) : behind, behind};
}

CJsonMembers CJsonValue::Members() const {
    const CJsonValue behind(*m_pDocument, NextNode());
    return {Kind() == EKind::OBJECT ? CJsonValue(*m_pDocument, m_nNode + 1) : behind, behind};
}

std::optional<CJsonValue> CJsonValue::Find(std::string_view name) const {
    for (const SJsonMember member : Members()) {
        if (member.m_Name.Text() == name) {
            return member.m_Value;
        }
    }
    return std::nullopt;
}

std::string CJsonValue::Pointer() const {
    std::string pointer;
    for (CJsonValue around = m_pDocument->Root(); around.m_nNode != m_nNode;) {
        const SStep step = around.FindStepTo(m_nNode);
        pointer += "/" + step.m_Name;
        around = step.m_To;
    }
    return pointer;
}

CJsonValue::SStep CJsonValue::FindStepTo(size_t nNode) const {
    size_t nIndex = 0;
    for (const CJsonValue& element : Elements()) {
        if (nNode < element.NextNode()) {
            return {std::to_string(nIndex), element};
        }
        ++nIndex;
    }
    for (const SJsonMember member : Members()) {
        if (nNode < member.m_Value.NextNode()) {
            const bool bName = nNode == member.m_Name.m_nNode;
            return {PointerPart(member.m_Name.Text()), bName ? member.m_Name : member.m_Value};
        }
    }
    return {"", {*m_pDocument, nNode}};  // it is not in here
}

std::string CJsonValue::InWords() const {
    switch (Kind()) {
        case EKind::NOTHING:
            return "null";
        case EKind::NO:
            return "false";
        case EKind::YES:
            return "true";
        case EKind::NUMBER:
            return PrintableText(ShortestDigits(Number()), VALUE_MOST);
        case EKind::WHOLE:
            return std::to_string(Whole());
        case EKind::TEXT:
            return "\"" + PrintableText(Text(), VALUE_MOST) + "\"";
        case EKind::ARRAY:
            return "an array";
        case EKind::OBJECT:
            break;
    }
    return "an object";
}

std::string_view CJsonDocument::TextAt(size_t nPlace) const {
    uint32_t nLength = 0;
    std::memcpy(&nLength, m_Texts.data() + nPlace, sizeof nLength);
    return std::string_view(m_Texts).substr(nPlace + sizeof nLength, nLength);
}

SReading<CJsonDocument> CJsonDocument::Read(const std::string& path) {
    const auto fault = [&path](int nLine, const std::string& message) {
        return SReading<CJsonDocument>{std::nullopt, {{path, nLine, SFinding::ESeverity::FAULT, message}}};
    };
    const SFileText file = ReadFileText(path, BYTES_MOST);
    if (!file.m_Fault.empty()) {
        return fault(0, file.m_Fault);
    }
    SReading<CJsonDocument> reading{CJsonDocument(), {}};
    CJsonBuilder builder(file.m_Text, *reading.m_Value);
    return builder.Parse() ? std::move(reading) : fault(builder.FaultLine(), builder.Fault());
}

}  // namespace nestrix
