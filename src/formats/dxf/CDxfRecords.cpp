#include "formats/dxf/CDxfRecords.h"

#include <algorithm>
#include <charconv>

namespace nestrix {

namespace {

constexpr std::string_view BLANKS = " \t\r\n\v\f";
constexpr int TEXT = 1;
constexpr int MORE_TEXT = 3;
constexpr int EXTENDED_TEXT = 1000;

bool NamesARecord(int nCode) {
    return nCode == 0 || nCode == 9;
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
    const size_t nFirst = text.find_first_not_of(BLANKS);
    return nFirst == std::string_view::npos ? std::string_view()
                                            : text.substr(nFirst, text.find_last_not_of(BLANKS) - nFirst + 1);
}

CDxfRecords::CDxfRecords(std::string_view text) : m_Rest(text) {
    constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
    if (m_Rest.starts_with(BYTE_ORDER_MARK)) {
        m_Rest.remove_prefix(BYTE_ORDER_MARK.size());
    }
}

bool CDxfRecords::Next() {
    // Groups before the first record are comments.
    while (!m_bAhead && ReadGroup()) {
        m_bAhead = NamesARecord(m_Ahead.m_nCode);
    }
    if (!m_bAhead) {
        return false;
    }
    m_Groups.assign(1, m_Ahead);
    m_bAhead = false;
    while (ReadGroup()) {
        if (NamesARecord(m_Ahead.m_nCode)) {
            m_bAhead = true;
            break;
        }
        m_Groups.push_back(m_Ahead);
    }
    return true;
}

bool CDxfRecords::ReadGroup() {
    if (m_Rest.empty() || !m_Fault.empty()) {
        return false;
    }
    const std::string_view code = Trimmed(ReadLine());
    if (code.empty() && Trimmed(m_Rest).empty()) {
        m_Rest = {};  // blank lines behind the end
        return false;
    }
    const auto [pEnd, error] = std::from_chars(code.data(), code.data() + code.size(), m_Ahead.m_nCode);
    if (error != std::errc() || pEnd != code.data() + code.size()) {
        m_Fault = Quoted(code) + " is no group code of a DXF file";
        return false;
    }
    if (m_Rest.empty()) {
        return false;  // the text ends before the value
    }
    const std::string_view value = ReadLine();
    m_Ahead.m_Value = Trimmed(value);
    m_Ahead.m_nLine = m_nLine;
    if (m_Ahead.m_nCode == TEXT || m_Ahead.m_nCode == MORE_TEXT || m_Ahead.m_nCode == EXTENDED_TEXT) {
        m_Ahead.m_Value = value.substr(0, value.find_last_not_of("\r\n") + 1);
    }
    return true;
}

std::string_view CDxfRecords::ReadLine() {
    ++m_nLine;
    const size_t nEnd = std::min(m_Rest.find('\n'), m_Rest.size());
    const std::string_view line = m_Rest.substr(0, nEnd);
    m_Rest.remove_prefix(std::min(nEnd + 1, m_Rest.size()));
    return line;
}

}  // namespace nestrix
