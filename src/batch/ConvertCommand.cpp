#include "batch/ConvertCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "batch/CInputReader.h"
#include "batch/CPieceSheet.h"
#include "batch/CTargets.h"
#include "batch/Complaints.h"
#include "batch/ExitStatus.h"
#include "batch/FreeOptions.h"
#include "batch/InputReport.h"
#include "batch/PolygonInput.h"
#include "formats/PolygonText.h"
#include "formats/dxf/DxfPlan.h"
#include "formats/json/Instance.h"
#include "formats/svg/SvgPlan.h"

namespace nestrix {

namespace {

char const* const CONVERT_FOOTER =
    "Formats: pol (a file for each piece), svg, dxf, json (a packing instance in the published form, with\n"
    "quantities and turns). Into a folder there is a file for each input file.";

struct SConvertOptions {
    SInputOptions m_Inputs;
    SFreeOptions m_Demands;  ///< for instances
    std::string m_To;
    std::string m_Format;  ///< in a folder
    bool m_bQuiet = false;
};

/// Some pieces of the set, and where they are to be written.
struct SPart {
    std::string m_Name;
    std::span<const SPiece> m_Pieces;
    std::span<const SDrawnPiece> m_Drawn;
    std::span<const SInputPiece> m_Sources;
    std::optional<EUnit> m_Unit;
    SFreeStrip m_Strip;
};

void Note(const std::string& file, const std::string& message) {
    Complain(SFinding{file, 0, SFinding::ESeverity::NOTE, message});
}

void NoteCopies(const SPart& part) {
    if (std::any_of(part.m_Pieces.begin(), part.m_Pieces.end(),
                    [](const SPiece& piece) { return piece.m_nQuantity != 1; })) {
        Note(part.m_Name, "each piece is written once: the format has no quantities");
    }
}

std::string ToSvg(const SPart& part) {
    NoteCopies(part);
    return WriteSvgPlan(CPieceSheet(part.m_Pieces, part.m_Drawn, part.m_Unit).Plan());
}

std::string ToDxf(const SPart& part) {
    NoteCopies(part);
    return WriteDxfPlan(CPieceSheet(part.m_Pieces, part.m_Drawn, part.m_Unit).Plan());
}

std::string ToInstance(const SPart& part) {
    const SInstance instance{part.m_Name, part.m_Strip, {part.m_Pieces.begin(), part.m_Pieces.end()}, {}};
    for (const std::string& lost : LostInInstance(instance)) {
        Note(part.m_Name, lost);
    }
    return WriteInstance(instance);
}

std::string ToPolygon(const SPart& part) {
    NoteCopies(part);
    const SInputPiece& piece = part.m_Sources.front();
    if (!piece.m_Piece.m_Shape.m_Holes.empty()) {
        Note(part.m_Name, "its holes are left out: a polygon file has none");
    }
    return WritePolygonText(PolygonOf(piece));
}

struct STargetFormat {
    std::string_view m_Extension;
    bool m_bOnePiece;  ///< in a file
    std::string (*m_pWrite)(const SPart& part);
};

constexpr std::array<STargetFormat, 4> FORMATS{{
    {".pol", true, ToPolygon},
    {".svg", false, ToSvg},
    {".dxf", false, ToDxf},
    {".json", false, ToInstance},
}};

const STargetFormat* FormatOf(const SConvertOptions& options) {
    const CTargets targets(options.m_To);
    const std::string extension = targets.IsFolder() ? "." + options.m_Format : targets.Extension();
    const auto format =
        std::find_if(FORMATS.begin(), FORMATS.end(),
                     [&extension](const STargetFormat& known) { return known.m_Extension == extension; });
    return format != FORMATS.end() ? &*format : nullptr;
}

std::optional<int> Parse(const std::vector<std::string>& words, SConvertOptions& options) {
    CLI::App app("Writes pieces in another format.", "nestrix-batch convert");
    LayHelpOut(app, CONVERT_FOOTER);
    AddInputOptions(app, options.m_Inputs);
    AddFile(app, "--to", options.m_To, "FILE.pol, FILE.svg, FILE.dxf, FILE.json, or a folder")->required();
    app.add_option("--format", options.m_Format, "of files in a folder: pol, svg, dxf or json")
        ->check(CLI::IsMember({"pol", "svg", "dxf", "json"}))
        ->type_name("NAME");
    app.add_flag("--quiet", options.m_bQuiet, "nothing about the inputs");
    AddStripOptions(app, options.m_Demands, "For instances");
    return ParseWords(app, words, [&options] {
        DemandInputs(options.m_Inputs);
        if (FormatOf(options) == nullptr) {
            Refuse("--to", CTargets(options.m_To).IsFolder()
                               ? "a folder needs a --format"
                               : "'" + options.m_To + "' ends in none of .pol, .svg, .dxf, .json");
        }
    });
}

SPart PartOf(const SInputSet& set, const std::vector<SPiece>& pieces, size_t nBegin, size_t nEnd) {
    SPart part;
    part.m_Pieces = std::span(pieces).subspan(nBegin, nEnd - nBegin);
    part.m_Drawn = std::span(set.m_Drawn).subspan(nBegin, nEnd - nBegin);
    part.m_Sources = std::span(set.m_Sources).subspan(nBegin, nEnd - nBegin);
    part.m_Unit = set.m_Unit;
    return part;
}

/// One for each file that is to be written.
std::vector<SPart> Split(const SInputSet& set, const std::vector<SPiece>& pieces, const STargetFormat& format,
                         bool bFolder) {
    std::vector<SPart> parts;
    size_t nBegin = 0;
    for (size_t i = 1; i <= pieces.size(); ++i) {
        const bool bFileEnds = i == pieces.size() || set.m_Drawn[i].m_File != set.m_Drawn[i - 1].m_File;
        if (i == pieces.size() || format.m_bOnePiece || (bFolder && bFileEnds)) {
            SPart part = PartOf(set, pieces, nBegin, i);
            part.m_Name = format.m_bOnePiece
                              ? pieces[nBegin].m_Name
                              : std::filesystem::path(set.m_Drawn[nBegin].m_File).stem().native();
            parts.push_back(std::move(part));
            nBegin = i;
        }
    }
    return parts;
}

}  // namespace

int RunConvertCommand(const SInvocation& invocation) {
    SConvertOptions options;
    if (const std::optional<int> status = Parse(invocation.m_Words, options)) {
        return *status;
    }
    const SInputSet set = ReadInputs(options.m_Inputs);
    ReportInputs(set, options.m_bQuiet);
    if (IsFaulty(set)) {
        return BATCH_BAD_INPUT;
    }
    CTargets targets(options.m_To);
    const STargetFormat& format = *FormatOf(options);
    const std::vector<SPiece> pieces = WithDemands(set.m_Pieces, options.m_Demands);
    std::vector<SPart> parts = Split(set, pieces, format, targets.IsFolder());
    if (parts.size() > 1 && !targets.IsFolder()) {
        Complain("these are " + std::to_string(parts.size()) +
                 " pieces, and a file holds one: --to must name a "
                 "folder");
        return BATCH_BAD_INPUT;
    }
    for (SPart& part : parts) {
        part.m_Strip = StripOf(options.m_Demands, set.m_Strip);
        targets.Add(part.m_Name, std::string(format.m_Extension), format.m_pWrite(part));
    }
    return targets.Write(set.m_Files);
}

}  // namespace nestrix
