#include "batch/PackCommand.h"

#include <ctime>

#include "batch/CInputReader.h"
#include "batch/CStopSignals.h"
#include "batch/Complaints.h"
#include "batch/DropRun.h"
#include "batch/ExitStatus.h"
#include "batch/Findings.h"
#include "batch/FreeRun.h"
#include "batch/InputReport.h"
#include "batch/InstanceInput.h"
#include "batch/PolygonInput.h"
#include "batch/SPackTask.h"
#include "batch/StartPacking.h"
#include "packing/SStrip.h"

namespace nestrix {

namespace {

void Append(const std::vector<SFinding>& more, std::vector<SFinding>& findings) {
    findings.insert(findings.end(), more.begin(), more.end());
}

/// Adds why pieces cannot be packed in this way, and what goes wrong with them.
void AddFindings(const SPackOptions& options, SInputSet& set) {
    if (options.m_eMethod == EPackMethod::FREE) {
        Append(FindFaults(set, options.m_Free, StripOf(options.m_Free, set.m_Strip)), set.m_Findings);
        return;
    }
    for (const SInputPiece& piece : set.m_Sources) {
        Append(HarmOfDropping(piece, SStrip().m_fWidth), set.m_Findings);
    }
    if (!options.m_Inputs.m_Reading.m_bLenient) {
        Append(FindFaults(set, options.m_Free, std::nullopt), set.m_Findings);
    }
}

/// Says what keeps the results from being written.
/// @return the status to exit with, if anything does.
std::optional<int> FindFault(const COutputs& outputs, const CWatch& watch,
                             std::span<const std::string> inputs) {
    if (IsFaulty(outputs.FindClash(inputs)) || IsFaulty(watch.FindReplaced(inputs))) {
        return BATCH_BAD_INPUT;
    }
    std::vector<std::string> faults = outputs.Faults();
    faults.insert(faults.end(), watch.Fault().empty() ? 0 : 1, watch.Fault());
    return IsFaulty(faults) ? std::optional(BATCH_FAILED) : std::nullopt;
}

/// The earlier packing to search on from, if one was asked for.
/// @return nothing where it cannot be had; that has been said then.
std::optional<SPackingRecord> ReadEarlier(const std::string& path) {
    SReading<SPackingRecord> reading = ReadPackingRecord(path);
    for (const SFinding& finding : reading.m_Findings) {
        Complain(finding);
    }
    if (reading.m_Value && !std::holds_alternative<SFreeRecord>(reading.m_Value->m_Packing)) {
        Complain(path + ": it was dropped: a free search cannot search on from it");
        return std::nullopt;
    }
    return std::move(reading.m_Value);
}

/// The pieces of the job, then those of the command line; without either, those of the earlier packing, which
/// in any case says of the strip and the turns what nothing else says.
SInputSet ReadPieces(const SPackOptions& options, const std::optional<SPackingRecord>& earlier) {
    CInputReader reader(options.m_Inputs.m_Reading);
    const SFreeRecord* const pFrom = earlier ? &std::get<SFreeRecord>(earlier->m_Packing) : nullptr;
    const bool bNamed = options.m_Job || !options.m_Inputs.m_Inputs.empty();
    if (pFrom != nullptr) {
        SInputFile file = PiecesOf(*earlier, *pFrom, options.m_FromFile);
        if (bNamed) {
            reader.TakeStrip(options.m_FromFile, file.m_Strip);
        } else {
            reader.Take(options.m_FromFile, std::move(file));
        }
    }
    if (options.m_Job) {
        reader.ReadJob(*options.m_Job);
    }
    reader.ReadWords(options.m_Inputs.m_Inputs);
    SInputSet set = reader.Finish();
    if (pFrom != nullptr && !options.m_Job) {
        set.m_Pieces = WithTurnsOf(pFrom->m_Pieces, std::move(set.m_Pieces));
    }
    for (const std::string& file : {options.m_JobFile, options.m_FromFile}) {
        set.m_Files.insert(set.m_Files.end(), file.empty() ? 0 : 1, file);
    }
    return set;
}

/// @return whether several processes can search together as they are asked to; if not, that has been said.
bool FitForRanks(SPackOptions& options) {
    if (options.m_eMethod == EPackMethod::DROP) {
        Complain("several ranks search with --method free only");
        return false;
    }
    // Whoever starts them says how many share a machine, so that each is content with little.
    options.m_Free.m_nThreads = options.m_Free.m_nThreads.value_or(1);
    return true;
}

}  // namespace

int RunPackCommand(const SInvocation& invocation) {
    return RunPackCommand(invocation, SPacker());
}

int RunPackCommand(const SInvocation& invocation, const SPacker& packer) {
    SPackOptions options;
    if (const std::optional<int> status = ParsePackOptions(invocation.m_Words, options, packer.m_Help)) {
        return *status;
    }
    if (packer.m_nRanks && !FitForRanks(options)) {
        return BATCH_BAD_INPUT;
    }
    std::optional<SPackingRecord> earlier;
    if (!options.m_FromFile.empty() && !(earlier = ReadEarlier(options.m_FromFile))) {
        return BATCH_BAD_INPUT;
    }
    SInputSet set = ReadPieces(options, earlier);
    AddFindings(options, set);
    ReportInputs(set, options.m_bQuiet);
    if (IsFaulty(set)) {
        return BATCH_BAD_INPUT;
    }
    COutputs outputs(options.m_Outputs);
    CWatch watch(options.m_Watch);
    if (const std::optional<int> status = FindFault(outputs, watch, set.m_Files)) {
        return *status;
    }

    // Until here signals end the program, since there is nothing to keep. From here on the first one is a
    // request, until all is written.
    CRelaxed<bool> bStop = false;
    const CStopSignals signals(bStop);
    watch.Begin();
    const unsigned int nSeed = options.m_Seed.value_or(static_cast<unsigned int>(std::time(nullptr)));
    const SFreeRecord* const pFrom = earlier ? &std::get<SFreeRecord>(earlier->m_Packing) : nullptr;
    const SPackTask task{invocation, options, set, pFrom, packer, nSeed, bStop, watch, outputs};
    const bool bDrop = options.m_eMethod == EPackMethod::DROP;
    const int nStatus = bDrop ? RunDrop(task) : RunFree(task);
    return nStatus == BATCH_DONE && bStop ? BATCH_SIGNALLED + CStopSignals::Received() : nStatus;
}

}  // namespace nestrix
