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

void PrintHelp() {
    std::puts("Packs polygons into a strip.\nUsage: nestrix-batch COMMAND [OPTIONS] ...\n\nCommands:");
    for (const SCommand& command : COMMANDS) {
        std::printf("  %-8s%-20s%s\n", command.m_Name.data(), command.m_pArguments, command.m_pSummary);
    }
    std::puts(
        "\n\"nestrix-batch COMMAND --help\" tells a command's options. Without a command the words are those "
        "of pack.\n\n"
        "Exit status: 0 done; 1 the result could not be made or written, or what was looked into is not as\n"
        "it should be; 2 bad options or inputs; 130, 143, 129 ended by Ctrl-C, SIGTERM, SIGHUP, with the "
        "best\n"
        "packing so far.");
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
    const auto command = std::find_if(COMMANDS.begin(), COMMANDS.end(),
                                      [first](const SCommand& known) { return known.m_Name == first; });
    const bool bNamed = command != COMMANDS.end();
    invocation.m_Words.assign(argv + (bNamed ? 2 : std::min(argc, 1)), argv + argc);
    return bNamed ? command->m_pRun(invocation) : RunPackCommand(invocation);
}

}  // namespace nestrix
