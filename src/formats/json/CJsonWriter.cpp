#include "formats/json/CJsonWriter.h"

#include <cmath>
#include <utility>

#include "base/NumberText.h"
#include "formats/json/PrintableText.h"

namespace nestrix {

CJsonWriter& CJsonWriter::Name(std::string_view name) {
    Text(name);
    m_Text += ": ";
    m_bNamed = true;
    return *this;
}

void CJsonWriter::Text(std::string_view text) {
    Put(JsonString(text));
}

void CJsonWriter::Number(double number) {
    Put(std::isfinite(number) ? ShortestDigits(number) : "null");
}

std::string CJsonWriter::Take() {
    m_Text += '\n';
    return std::move(m_Text);
}

void CJsonWriter::Begin(char bracket, ELayout eLayout) {
    Put({&bracket, 1});
    const bool bInline = !m_Open.empty() && m_Open.back().m_eLayout == ELayout::ONE_LINE;
    m_Open.push_back({bInline ? ELayout::ONE_LINE : eLayout});
}

void CJsonWriter::End(char bracket) {
    const SOpen ended = m_Open.back();
    m_Open.pop_back();
    if (ended.m_eLayout == ELayout::LINES && !ended.m_bEmpty) {
        BreakLine();
    }
    m_Text += bracket;
}

void CJsonWriter::Put(std::string_view value) {
    Separate();
    m_Text += value;
}

void CJsonWriter::Separate() {
    if (std::exchange(m_bNamed, false) || m_Open.empty()) {
        return;
    }
    SOpen& around = m_Open.back();
    m_Text += around.m_bEmpty ? "" : ",";
    if (around.m_eLayout == ELayout::LINES) {
        BreakLine();
    } else if (!around.m_bEmpty) {
        m_Text += ' ';
    }
    around.m_bEmpty = false;
}

void CJsonWriter::BreakLine() {
    m_Text += '\n';
    m_Text.append(2 * m_Open.size(), ' ');
}

}  // namespace nestrix
