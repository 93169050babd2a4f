#include "batch/DrawCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>

#include "batch/CInputReader.h"
#include "batch/CTargets.h"
#include "batch/Complaints.h"
#include "batch/ExitStatus.h"
#include "batch/InputFormats.h"
#include "batch/OptionValues.h"
#include "batch/Png.h"
#include "batch/PolygonInput.h"
#include "formats/FreePackingSvg.h"
#include "formats/PackingSvg.h"
#include "formats/json/JsonKind.h"
#include "formats/json/PackingRecord.h"
#include "formats/svg/ProfileSvg.h"

namespace nestrix {

namespace {

char const* const DRAW_FOOTER =
    "Pieces are drawn with their lower profiles (front) in red and their upper ones (back) in blue, on one\n"
    "sheet, or in a folder one sheet for each file; each packing is a picture of its own.";

constexpr uint64_t MOST_PIXELS = 10'000;

struct SDrawOptions {
    SInputOptions m_Inputs;
    std::string m_To;
    std::string m_Format = "svg";  ///< in a folder
    int m_nPixels = 1600;
};

std::string ExtensionFor(const SDrawOptions& options, const CTargets& targets) {
    return targets.IsFolder() ? "." + options.m_Format : targets.Extension();
}

std::optional<int> Parse(const std::vector<std::string>& words, SDrawOptions& options) {
    CLI::App app("Draws pieces with their profiles, or packings, as SVG or PNG.", "nestrix-batch draw");
    LayHelpOut(app, DRAW_FOOTER);
    AddInputOptions(app, options.m_Inputs);
    AddFile(app, "--to", options.m_To, "FILE.svg, FILE.png, or a folder")->required();
    app.add_option("--format", options.m_Format, "of files in a folder: svg (the default) or png")
        ->check(CLI::IsMember({"svg", "png"}))
        ->type_name("NAME");
    app.add_option("--pixels", options.m_nPixels, "how long a PNG's longer side is (1600)")
        ->transform(WholeNumber(1, MOST_PIXELS))
        ->type_name("N");
    return ParseWords(app, words, [&options] {
        DemandInputs(options.m_Inputs);
        const std::string extension = ExtensionFor(options, CTargets(options.m_To));
        if (extension != ".svg" && extension != ".png") {
            Refuse("--to", "'" + options.m_To + "' ends neither in .svg nor in .png, and is no folder");
        }
    });
}

/// A picture, and the name of what it shows.
struct SPicture {
    std::string m_Name;
    std::string m_Svg;  ///< empty for what is too large to draw
};

bool IsPacking(const std::string& word) {
    std::error_code error;
    return word.ends_with(".json") && std::filesystem::is_regular_file(word, error) &&
           KindOf(word).m_Value == EJsonKind::PACKING;
}

std::string PictureOf(const SFreeRecord& record) {
    return DrawFreePackingSvg(record.m_Pieces, record.m_Packing);
}

std::string PictureOf(const SDroppedRecord& record) {
    return DrawPackingSvg(record.m_Pieces, record.m_Packing);
}

/// @return whether it could be read.
bool AddPacking(const std::string& file, std::vector<SPicture>& pictures) {
    const SReading<SPackingRecord> reading = ReadPackingRecord(file);
    for (const SFinding& finding : reading.m_Findings) {
        Complain(finding);
    }
    if (reading.m_Value) {
        pictures.push_back(
            {std::filesystem::path(file).stem(),
             std::visit([](const auto& record) { return PictureOf(record); }, reading.m_Value->m_Packing)});
    }
    return reading.m_Value.has_value();
}

SProfiledPiece ProfiledPieceOf(const SInputPiece& piece) {
    return {piece.m_Piece.m_Name, PolygonOf(piece), piece.m_Piece.m_Shape.m_Holes};
}

void AddSheets(const SInputSet& set, bool bOneForEachFile, std::vector<SPicture>& pictures) {
    std::vector<SProfiledPiece> sheet;
    for (size_t i = 0; i < set.m_Sources.size(); ++i) {
        const std::string& file = set.m_Drawn[i].m_File;
        sheet.push_back(ProfiledPieceOf(set.m_Sources[i]));
        const bool bLast = i + 1 == set.m_Sources.size();
        if (bLast || (bOneForEachFile && set.m_Drawn[i + 1].m_File != file)) {
            pictures.push_back({std::filesystem::path(file).stem(), DrawProfilesSvg(sheet)});
            sheet.clear();
        }
    }
}

/// @return the status to exit with, if something cannot be drawn.
std::optional<int> AddAll(const std::vector<SPicture>& pictures, const SDrawOptions& options,
                          CTargets& targets) {
    if (pictures.size() > 1 && !targets.IsFolder()) {
        Complain("these are " + std::to_string(pictures.size()) + " pictures: --to must name a folder");
        return BATCH_BAD_INPUT;
    }
    const std::string extension = ExtensionFor(options, targets);
    for (const SPicture& picture : pictures) {
        std::string fault = picture.m_Svg.empty() ? "it is too large to draw" : "";
        std::string content = picture.m_Svg;
        if (fault.empty() && extension == ".png") {
            content = DrawPng(picture.m_Svg, options.m_nPixels, fault);
        }
        if (IsFaulty(fault.empty() ? fault : picture.m_Name + ": " + fault)) {
            return BATCH_FAILED;
        }
        targets.Add(picture.m_Name, extension, std::move(content));
    }
    return std::nullopt;
}

}  // namespace

int RunDrawCommand(const SInvocation& invocation) {
    SDrawOptions options;
    if (const std::optional<int> status = Parse(invocation.m_Words, options)) {
        return *status;
    }
    std::vector<std::string>& words = options.m_Inputs.m_Inputs;
    const auto behind = std::stable_partition(words.begin(), words.end(), IsPacking);
    std::vector<std::string> files(words.begin(), behind);
    words.erase(words.begin(), behind);

    std::vector<SPicture> pictures;
    bool bReadable = true;
    for (const std::string& file : files) {
        bReadable = AddPacking(file, pictures) && bReadable;
    }
    const SInputSet set = ReadInputs(options.m_Inputs);
    for (const SFinding& finding : set.m_Findings) {
        Complain(finding);
    }
    if (!bReadable || IsFaulty(set)) {
        return BATCH_BAD_INPUT;
    }
    CTargets targets(options.m_To);
    AddSheets(set, targets.IsFolder(), pictures);
    if (const std::optional<int> status = AddAll(pictures, options, targets)) {
        return *status;
    }
    files.insert(files.end(), set.m_Files.begin(), set.m_Files.end());
    return targets.Write(files);
}

}  // namespace nestrix
