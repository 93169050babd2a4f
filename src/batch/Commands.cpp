#include "batch/Commands.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "base/ProgramVersion.h"
#include "batch/BestCommand.h"
#include "batch/CertifyCommand.h"
#include "batch/CheckCommand.h"
#include "batch/CommandLine.h"
#include "batch/ConvertCommand.h"
#include "batch/DrawCommand.h"
#include "batch/ExitStatus.h"
#include "batch/ManualPage.h"
#include "batch/PackCommand.h"

namespace nestrix {

namespace {

struct SCommand {
    std::string_view m_Name;
    char const* m_pArguments;
    char const* m_pSummary;
    int (*m_pRun)(const SInvocation& invocation);
};

constexpr std::array<SCommand, 6> COMMANDS{{
    {"pack", "INPUT...", "packs pieces into a strip, as low as it can", RunPackCommand},
    {"check", "INPUT...", "tells what is wrong or odd about pieces", RunCheckCommand},
    {"certify", "PACKING.json...", "tells whether packings are valid, in exact arithmetic",
     RunCertifyCommand},
    {"best", "PACKING.json...", "certifies packings of one job, and writes the best", RunBestCommand},
    {"draw", "INPUT|PACKING...", "draws pieces with their profiles, or packings", RunDrawCommand},
    {"convert", "INPUT... --to FILE", "writes pieces in another format", RunConvertCommand},
}};

struct SExitStatus {
    char const* m_pStatus;
    char const* m_pMeaning;
};

constexpr std::array<SExitStatus, 4> EXIT_STATUSES{{
    {"0", "done; what was looked into is as it should be"},
    {"1", "the result could not be made or written, or what was looked into is not as it should be"},
    {"2", "bad options or inputs"},
    {"130, 143, 129", "ended by Ctrl-C, SIGTERM, SIGHUP, with the best packing so far"},
}};

char const* const SUMMARY = "Packs polygons into a strip.";
char const* const ON_COMMANDS =
    "\"nestrix-batch COMMAND --help\" tells a command's options. Without a command the words are those of "
    "pack.";

void PrintHelp() {
    std::printf("%s\nUsage: nestrix-batch COMMAND [OPTIONS] ...\n\nCommands:\n", SUMMARY);
    for (const SCommand& command : COMMANDS) {
        std::printf("  %-8s%-20s%s\n", command.m_Name.data(), command.m_pArguments, command.m_pSummary);
    }
    std::printf("\n%s\n\nExit status:\n", ON_COMMANDS);
    for (const SExitStatus& status : EXIT_STATUSES) {
        std::printf("  %-15s%s\n", status.m_pStatus, status.m_pMeaning);
    }
}

/// The manual page in roff.
/// @param date of the release.
int PrintManual(const SInvocation& invocation, const std::string& date) {
    std::printf("'\\\" t\n.TH NESTRIX-BATCH 1 \"%s\" \"nestrix-batch %s\" \"User Commands\"\n", date.c_str(),
                ProgramVersion());
    std::puts(
        ".SH NAME\nnestrix-batch \\- pack polygons into a strip without a window\n"
        ".SH SYNOPSIS\n.B nestrix\\-batch\n\\fICOMMAND\\fR [\\fIOPTIONS\\fR] ...\n.SH DESCRIPTION");
    std::puts(InRoff(SUMMARY).c_str());
    for (const SCommand& command : COMMANDS) {
        std::printf(".TP\n\\fB%s\\fR %s\n%s\n", command.m_Name.data(), InRoff(command.m_pArguments).c_str(),
                    InRoff(command.m_pSummary).c_str());
    }
    std::printf(".PP\n%s\n", InRoff(ON_COMMANDS).c_str());
    for (const SCommand& command : COMMANDS) {
        if (const int nStatus = command.m_pRun(invocation); nStatus != BATCH_DONE) {
            return nStatus;
        }
    }
    std::puts(".SH EXIT STATUS\n.TS\nl lx.");
    for (const SExitStatus& status : EXIT_STATUSES) {
        std::printf("%s\tT{\n%s\nT}\n", status.m_pStatus, InRoff(status.m_pMeaning).c_str());
    }
    std::puts(".TE\n.SH SEE ALSO\n.BR nestrix (1)");
    return BATCH_DONE;
}

bool IsOneOf(std::string_view word, std::string_view first, std::string_view second) {
    return word == first || word == second;
}

}  // namespace

int RunCommand(int argc, char const* const* argv) {
    SInvocation invocation{argc > 0 ? argv[0] : "nestrix-batch", {}};
    const std::string_view first = argc > 1 ? argv[1] : "";
    if (IsOneOf(first, "--help", "-h")) {
        PrintHelp();
        return BATCH_DONE;
    }
    if (first == "--version") {
        std::printf("nestrix-batch %s\n", ProgramVersion());
        return BATCH_DONE;
    }
    if (first == MANUAL_WORD) {
        invocation.m_Words.assign(1, argv[1]);
        return PrintManual(invocation, argc > 2 ? argv[2] : "");
    }
    const auto command = std::find_if(COMMANDS.begin(), COMMANDS.end(),
                                      [first](const SCommand& known) { return known.m_Name == first; });
    const bool bNamed = command != COMMANDS.end();
    invocation.m_Words.assign(argv + (bNamed ? 2 : std::min(argc, 1)), argv + argc);
    return bNamed ? command->m_pRun(invocation) : RunPackCommand(invocation);
}

}  // namespace nestrix
