#include "formats/dxf/DxfDrawing.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "formats/dxf/CDxfReader.h"
#include "formats/dxf/CInsertResolver.h"
#include "formats/dxf/DxfUnits.h"

namespace nestrix {

namespace {

/// Larger files are no drawings, and would not fit into memory with what is made of them.
constexpr uintmax_t LARGEST_FILE = uintmax_t{1} << 30;

/// @return nothing where a file cannot be read; `fault` says why.
std::optional<std::string> ContentOf(const std::string& path, std::string& fault) {
    std::error_code error;
    // Reading from folders, pipes and devices fails late, waits for ever or never ends.
    if (!std::filesystem::is_regular_file(path, error)) {
        fault = error ? "it cannot be opened: " + error.message() : "it is no file";
        return std::nullopt;
    }
    const uintmax_t nBytes = std::filesystem::file_size(path, error);
    if (error || nBytes > LARGEST_FILE) {
        fault = error ? "it cannot be read: " + error.message() : "it is larger than any drawing";
        return std::nullopt;
    }
    std::ifstream file(path, std::ios::binary);
    std::string content(nBytes, '\0');
    file.read(content.data(), static_cast<std::streamsize>(nBytes));
    if (!file) {
        fault = "it cannot be read";
        return std::nullopt;
    }
    return content;
}

void NameUnit(int nCode, const SDxfUnit& unit, SDrawing& drawing, CDxfFindings& findings) {
    drawing.m_Unit = unit.m_Unit;
    if (unit.m_Unit && unit.m_Factor != 1.0) {
        findings.Add(SFinding::ESeverity::NOTE, 0, std::string("it is drawn in ") + unit.m_pName);
    } else if (!unit.m_Unit && nCode != 0) {
        findings.Add(SFinding::ESeverity::ODD, 0,
                     "its unit, $INSUNITS " + std::to_string(nCode) + ", is not known");
    }
}

}  // namespace

SDrawing ReadDxfText(std::string_view text, const std::string& file, const SDxfLimits& limits) {
    constexpr std::string_view BINARY = "AutoCAD Binary DXF";
    SDrawing drawing;
    CDxfFindings findings(file);
    if (text.starts_with(BINARY)) {
        findings.Fault(0, "binary DXF is not read: save it as text (ASCII)");
    } else {
        SDxfContent content;
        CDxfReader(content, findings, limits.m_nMostStretches).Read(text);
        const SDxfUnit unit = UnitOfCode(content.m_nUnitCode);
        NameUnit(content.m_nUnitCode, unit, drawing, findings);
        CInsertResolver(content, limits, findings).Resolve(unit.m_Factor, drawing);
    }
    drawing.m_Findings = findings.Take();
    return drawing;
}

SDrawing ReadDxf(const std::string& path) {
    std::string fault;
    const auto content = ContentOf(path, fault);
    if (!content) {
        return {{}, {}, {}, {{path, 0, SFinding::ESeverity::FAULT, fault}}};
    }
    return ReadDxfText(*content, path);
}

}  // namespace nestrix
