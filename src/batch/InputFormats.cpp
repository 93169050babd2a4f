#include "batch/InputFormats.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <string_view>

#include "batch/DrawingInput.h"
#include "batch/InstanceInput.h"
#include "batch/PolygonInput.h"

namespace nestrix {

namespace {

struct SInputFormat {
    std::string_view m_Extension;
    SInputFile (*m_pRead)(const std::string& path, const SReadOptions& reading);
};

/// The first one is for files whose names tell nothing.
constexpr std::array<SInputFormat, 4> FORMATS{{
    {".pol", ReadPolygonInput},
    {".svg", ReadSvgInput},
    {".dxf", ReadDxfInput},
    {".json", ReadJsonInput},
}};

SInputFormat const* FormatOf(const std::string& name) {
    std::string extension = std::filesystem::path(name).extension();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const auto format = std::find_if(FORMATS.begin(), FORMATS.end(), [&extension](const SInputFormat& known) {
        return known.m_Extension == extension;
    });
    return format != FORMATS.end() ? &*format : nullptr;
}

}  // namespace

bool HasKnownExtension(const std::string& name) {
    return FormatOf(name) != nullptr;
}

std::string KnownExtensions() {
    std::string list;
    for (const SInputFormat& format : FORMATS) {
        list.append(list.empty() ? "" : ", ").append(format.m_Extension);
    }
    return list;
}

SInputFile ReadInput(const std::string& path, const SReadOptions& reading) {
    SInputFormat const* const pFormat = FormatOf(path);
    return (pFormat != nullptr ? *pFormat : FORMATS.front()).m_pRead(path, reading);
}

}  // namespace nestrix
