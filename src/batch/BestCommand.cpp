#include "batch/BestCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>

#include "batch/COutputs.h"
#include "batch/CStandings.h"
#include "batch/Complaints.h"
#include "batch/ExitStatus.h"
#include "batch/InstanceInput.h"
#include "formats/svg/SvgPlan.h"

namespace nestrix {

namespace {

char const* const BEST_FOOTER =
    "The first valid packing says what the job is; what is not valid, or of another job, is refused.\n"
    "Exit status: 0 all were compared; 1 one was refused, or the best could not be written; 2 bad options\n"
    "or a file that is no packing. The best of the others is written all the same.";

struct SBestOptions {
    std::vector<std::string> m_Files;
    std::vector<SOutputRequest> m_Outputs;
};

std::optional<int> Parse(const std::vector<std::string>& words, SBestOptions& options) {
    CLI::App app("Certifies packings of one job, tells them by height, and writes the best.",
                 "nestrix-batch best");
    LayHelpOut(app, BEST_FOOTER);
    AddFiles(app, "PACKING", options.m_Files, "packings as JSON, this program's or others'")->required();
    AddOutputOptions(app, "a table with a line for each packing", options.m_Outputs);
    return ParseWords(app, words);
}

/// @return the status of this file alone.
int TakeFile(const std::string& file, CStandings& standings) {
    SReading<SPackingRecord> reading = ReadPackingRecord(file);
    for (const SFinding& finding : reading.m_Findings) {
        Complain(finding);
    }
    if (!reading.m_Value) {
        return BATCH_BAD_INPUT;
    }
    const std::string refusal = standings.Take(file, std::move(*reading.m_Value));
    return IsFaulty(refusal.empty() ? "" : file + ": refused: " + refusal) ? BATCH_FAILED : BATCH_DONE;
}

/// @return the status of the writing alone.
int WriteBest(const CStandings& standings, COutputs& outputs) {
    const auto& [file, record] = *standings.Best();
    const SFreeRecord& packed = std::get<SFreeRecord>(record.m_Packing);
    std::vector<SDrawnPiece> drawn;
    for (SInputPiece& piece : PiecesOf(record, packed, file).m_Pieces) {
        drawn.push_back(std::move(piece.m_Drawn));
    }
    const SCutPlan plan{packed.m_Pieces, drawn, packed.m_Packing, record.m_Unit};
    const SPackOutcome outcome{plan, WriteSvgPlan(plan), standings.Csv(), record};
    return IsFaulty(outputs.Write(outcome)) ? BATCH_FAILED : BATCH_DONE;
}

}  // namespace

int RunBestCommand(const SInvocation& invocation) {
    SBestOptions options;
    if (const std::optional<int> status = Parse(invocation.m_Words, options)) {
        return *status;
    }
    COutputs outputs(options.m_Outputs);
    if (IsFaulty(outputs.FindClash(options.m_Files))) {
        return BATCH_BAD_INPUT;
    }
    if (IsFaulty(outputs.Faults())) {
        return BATCH_FAILED;
    }
    CStandings standings;
    int nWorst = BATCH_DONE;
    for (const std::string& file : options.m_Files) {
        nWorst = std::max(nWorst, TakeFile(file, standings));
    }
    if (!standings.Best()) {
        Complain("there is no packing to choose");
        return std::max(nWorst, BATCH_FAILED);
    }
    std::printf("%sBest: %s\n", standings.InColumns().c_str(), standings.Best()->m_File.c_str());
    return std::max(nWorst, WriteBest(standings, outputs));
}

}  // namespace nestrix
