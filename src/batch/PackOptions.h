#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/CommandLine.h"
#include "batch/DropOptions.h"
#include "batch/FreeOptions.h"
#include "batch/InputOptions.h"
#include "batch/OutputFormats.h"
#include "formats/json/EPackMethod.h"
#include "formats/json/Job.h"
#include "formats/json/PackingRecord.h"

namespace nestrix {

/// What the help of a program that packs says of it.
struct SPackHelp {
    char const* m_pName = "nestrix-batch pack";
    char const* m_pDescription = "Packs pieces into a strip, as low as it can.";
    char const* m_pFooter =
        "Ctrl-C, SIGTERM and SIGHUP end the search at once, and the best packing so far is the result; a "
        "second\none ends the program. Lengths are millimetres as soon as one input has a unit.";
    bool m_bRanks = false;  ///< several processes search together
};

/// What the user asked for.
struct SPackOptions {
    SInputOptions m_Inputs;
    EPackMethod m_eMethod = EPackMethod::FREE;
    std::optional<unsigned int> m_Seed;  ///< absent: seed with the clock
    std::vector<SOutputRequest> m_Outputs;
    std::string m_JobFile;   ///< empty: none
    std::string m_FromFile;  ///< an earlier packing to search on from; empty: none
    std::string m_Watch;     ///< a picture that is kept up to date; empty: none
    bool m_bQuiet = false;
    SFreeOptions m_Free;
    SDropOptions m_Drop;
    CRecordedOptions m_Given;   ///< what the command line says of the search, in words
    std::optional<SJob> m_Job;  ///< that of the file
};

/// Reads the words behind the command, and the job that they name: what they say wins over what it says.
/// @return the status to exit with at once: see ParseWords.
[[nodiscard]] std::optional<int> ParsePackOptions(const std::vector<std::string>& words,
                                                  SPackOptions& options, const SPackHelp& help = {});

/// The command that searches the same again, for a shell: the words that it was given, without those that
/// say when to end.
/// @param ends the options that say when to end and how, in their place.
[[nodiscard]] std::string RepeatingCommand(const SInvocation& invocation, const std::string& ends);

}  // namespace nestrix
