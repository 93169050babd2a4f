#include "formats/json/CMemberReader.h"

#include <algorithm>

#include "formats/json/PrintableText.h"
#include "formats/json/Suggestion.h"

namespace nestrix {

namespace {

constexpr size_t NAME_MOST = 40;

}  // namespace

CMemberReader::CMemberReader(const CJsonValue& object, CJsonFindings& findings)
    : m_Object(object), m_Findings(findings) {
    if (object.Kind() != CJsonValue::EKind::OBJECT) {
        findings.Refuse(object, "is not an object {...}");
    }
}

std::optional<CJsonValue> CMemberReader::Find(std::string_view name) {
    m_Asked.push_back(name);
    return m_Object.Find(name);
}

std::optional<CJsonValue> CMemberReader::Demand(std::string_view name) {
    const std::optional<CJsonValue> found = Find(name);
    if (!found && m_Object.Kind() == CJsonValue::EKind::OBJECT) {
        m_Findings.Miss(m_Object, "the member \"" + std::string(name) + "\" is missing");
    }
    return found;
}

std::optional<double> CMemberReader::Number(std::string_view name, const json::SNumberKind& kind) {
    const std::optional<CJsonValue> found = Find(name);
    return found ? json::ReadNumber(*found, kind, m_Findings) : std::nullopt;
}

std::optional<uint64_t> CMemberReader::Whole(std::string_view name, uint64_t nLeast, uint64_t nMost) {
    const std::optional<CJsonValue> found = Find(name);
    return found ? json::ReadWhole(*found, nLeast, nMost, m_Findings) : std::nullopt;
}

std::optional<int> CMemberReader::Int(std::string_view name, int nLeast, int nMost) {
    const std::optional<uint64_t> whole =
        Whole(name, static_cast<uint64_t>(nLeast), static_cast<uint64_t>(nMost));
    return whole ? std::optional(static_cast<int>(*whole)) : std::nullopt;
}

std::optional<bool> CMemberReader::Flag(std::string_view name) {
    const std::optional<CJsonValue> found = Find(name);
    return found ? json::ReadFlag(*found, m_Findings) : std::nullopt;
}

std::optional<std::string> CMemberReader::Text(std::string_view name) {
    const std::optional<CJsonValue> found = Find(name);
    return found ? json::ReadText(*found, m_Findings) : std::nullopt;
}

std::optional<EUnit> CMemberReader::Unit(std::string_view name) {
    const std::optional<CJsonValue> found = Find(name);
    return found ? json::ReadUnit(*found, m_Findings) : std::nullopt;
}

std::optional<STurns> CMemberReader::Turns(std::string_view name) {
    const std::optional<CJsonValue> found = Find(name);
    return found ? json::ReadTurns(*found, m_Findings) : std::nullopt;
}

std::optional<CRing> CMemberReader::Ring(std::string_view name) {
    const std::optional<CJsonValue> found = Find(name);
    return found ? json::ReadRing(*found, m_Findings) : std::nullopt;
}

std::optional<std::vector<CRing>> CMemberReader::Rings(std::string_view name) {
    const std::optional<CJsonValue> found = Find(name);
    return found ? json::ReadRings(*found, m_Findings) : std::nullopt;
}

void CMemberReader::RefuseOthers() {
    for (const SJsonMember member : m_Object.Members()) {
        const std::string_view name = member.m_Name.Text();
        if (std::find(m_Asked.begin(), m_Asked.end(), name) != m_Asked.end()) {
            continue;
        }
        const std::string_view likeliest = FindLikeliest(name, m_Asked);
        m_Findings.Miss(member.m_Name,
                        "there is no member \"" + PrintableText(name, NAME_MOST) + "\"" +
                            (likeliest.empty() ? "" : "; is \"" + std::string(likeliest) + "\" meant?"));
    }
}

}  // namespace nestrix
