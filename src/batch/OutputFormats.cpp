#include "batch/OutputFormats.h"

#include <CLI/CLI.hpp>
#include <array>

#include "batch/CommandLine.h"
#include "formats/dxf/DxfPlan.h"

namespace nestrix {

namespace {

std::string WritePicture(const SPackOutcome& outcome) {
    return outcome.m_Picture;
}

std::string WriteDxf(const SPackOutcome& outcome) {
    return WriteDxfPlan(outcome.m_Plan);
}

std::string WriteRecord(const SPackOutcome& outcome) {
    return WriteJson(outcome.m_Record);
}

std::string WriteTable(const SPackOutcome& outcome) {
    return outcome.m_Table;
}

constexpr std::array<SOutputFormat, 4> FORMATS{{
    {"--json", "the packing with all that certifies and repeats it", WriteRecord, true},
    {"--svg", "the packing, to look at or to cut", WritePicture},
    {"--dxf", "the packing for a cutter", WriteDxf},
    {"--csv", nullptr, WriteTable},
}};

}  // namespace

void AddOutputOptions(CLI::App& app, char const* pTable, std::vector<SOutputRequest>& requests) {
    for (const SOutputFormat& format : FORMATS) {
        char const* const pHelp = format.m_pHelp != nullptr ? format.m_pHelp : pTable;
        AddFiles(app, format.m_pOption, pHelp, [&requests, &format](const std::string& path) {
            requests.push_back({path, &format});
        })->group(RESULT_GROUP);
    }
}

}  // namespace nestrix
