#include "batch/CheckCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iterator>

#include "batch/CInputReader.h"
#include "batch/ExitStatus.h"
#include "batch/Findings.h"
#include "batch/FreeOptions.h"
#include "batch/InputReport.h"

namespace nestrix {

namespace {

char const* const CHECK_FOOTER =
    "Each line is \"file:line: message\". Exit status: 0 nothing is wrong; 1 something is wrong or odd;\n"
    "2 bad options.";

struct SCheckOptions {
    SInputOptions m_Inputs;
    SFreeOptions m_Strip;
    bool m_bQuiet = false;
};

std::optional<int> Parse(const std::vector<std::string>& words, SCheckOptions& options) {
    CLI::App app("Tells what is wrong or odd about pieces.", "nestrix-batch check");
    LayHelpOut(app, CHECK_FOOTER);
    AddInputOptions(app, options.m_Inputs);
    app.add_flag("--quiet", options.m_bQuiet, "nothing about what is right");
    AddStripOptions(app, options.m_Strip, "What they must fit");
    return ParseWords(app, words, [&options] { DemandInputs(options.m_Inputs); });
}

}  // namespace

int RunCheckCommand(const SInvocation& invocation) {
    SCheckOptions options;
    if (const std::optional<int> status = Parse(invocation.m_Words, options)) {
        return *status;
    }
    const SInputSet set = ReadInputs(options.m_Inputs);
    std::vector<SFinding> findings = FindAll(set, options.m_Strip);
    for (const SFinding& finding : findings) {
        std::printf("%s\n", InWords(finding).c_str());
    }
    if (!options.m_bQuiet) {
        ReportSummaries(set);
    }
    const bool bRight = std::all_of(findings.begin(), findings.end(), [](const SFinding& finding) {
        return finding.m_eSeverity == SFinding::ESeverity::NOTE;
    });
    return bRight ? BATCH_DONE : BATCH_FAILED;
}

}  // namespace nestrix
