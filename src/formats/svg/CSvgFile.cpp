#include "formats/svg/CSvgFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace nestrix {

namespace fs = std::filesystem;

namespace {

/// A tree of the smallest elements takes some twenty times the memory of its file.
constexpr uintmax_t LARGEST_FILE = 128U << 20U;

constexpr std::string_view COMPRESSED = "\x1f\x8b";

/// The whole of a regular file, or why it cannot be had.
std::string ReadContent(const std::string& path, std::string& fault) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        fault = "not a regular file";
        return {};
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        fault = std::strerror(errno);
        return {};
    }
    const uintmax_t nBytes = fs::file_size(path, error);
    if (error || nBytes > LARGEST_FILE) {
        fault = error ? error.message() : "larger than 128 MB, which is too much for a drawing";
        return {};
    }
    std::string content(nBytes, '\0');
    file.read(content.data(), static_cast<std::streamsize>(nBytes));
    content.resize(static_cast<size_t>(file.gcount()));
    return content;
}

}  // namespace

CSvgFile::CSvgFile(const std::string& path) {
    std::string content = ReadContent(path, m_Fault);
    if (m_Fault.empty() && content.starts_with(COMPRESSED)) {
        m_Fault = "compressed; unpack it with gunzip first";
    }
    if (m_Fault.empty()) {
        Parse(std::move(content));
    }
}

void CSvgFile::Parse(std::string content) {
    for (size_t i = content.find('\n'); i != std::string::npos; i = content.find('\n', i + 1)) {
        m_LineEnds.push_back(static_cast<ptrdiff_t>(i));
    }
    const pugi::xml_parse_result result = m_Document.load_buffer(content.data(), content.size());
    m_bLinesKnown = result.encoding == pugi::encoding_utf8;  // else another text was parsed
    if (!result) {
        m_Fault = std::string("not sound XML: ") + result.description();
        m_nFaultLine = LineAt(result.offset);
        return;
    }
    m_Root = m_Document.document_element();
    const std::string_view name = m_Root.name();
    const size_t nColon = name.find(':');
    m_Prefix = nColon == name.npos ? "" : name.substr(0, nColon + 1);
    if (name.substr(m_Prefix.size()) != "svg") {
        m_Fault = "not an SVG drawing: its root element is no 'svg'";
        m_nFaultLine = m_Root ? LineOf(m_Root) : 0;
        m_Root = {};
    }
}

int CSvgFile::LineOf(pugi::xml_node element) const {
    return LineAt(element.offset_debug());
}

int CSvgFile::LineAt(ptrdiff_t nOffset) const {
    if (!m_bLinesKnown || nOffset < 0) {
        return 0;
    }
    const auto after = std::lower_bound(m_LineEnds.begin(), m_LineEnds.end(), nOffset);
    return static_cast<int>(after - m_LineEnds.begin()) + 1;
}

std::string_view CSvgFile::NameOf(pugi::xml_node element) const {
    const std::string_view name = element.type() == pugi::node_element ? element.name() : "";
    if (!name.starts_with(m_Prefix)) {
        return {};
    }
    const std::string_view local = name.substr(m_Prefix.size());
    return local.find(':') == local.npos ? local : std::string_view();
}

}  // namespace nestrix
