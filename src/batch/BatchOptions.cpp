#include "BatchOptions.h"

#include <CLI/CLI.hpp>
#include <limits>

namespace {

constexpr int MOST_CHROMOSOMES = 1'000'000;

char const* const DESCRIPTION =
    "Searches for the drop order and offsets that pack polygons lowest into a strip 400 units wide.";

char const* const FOOTER =
    "Ctrl-C (or SIGTERM) ends the search early, once the first generation is complete, and the best packing\n"
    "so far is the result: it is printed and drawn as usual, and the exit status is 0.\n"
    "\n"
    "Exit status: 0 done; 1 the result could not be made, printed or written;\n"
    "2 bad options or polygon files.";

/// Not CLI::Range, which lets through what is not a number.
std::string CheckProbability(const std::string& text) {
    double probability = 0.0;
    const bool bNumber = CLI::detail::lexical_cast(text, probability);
    return bNumber && probability >= 0.0 && probability <= 1.0 ? "" : text + " is not between 0 and 1";
}

/// An empty name is what a script passes whose variable is not set.
std::string CheckFileName(const std::string& text) {
    return text.empty() ? "a file name is missing" : "";
}

void Describe(CLI::App& app, SBatchOptions& options) {
    app.footer(FOOTER);
    app.add_option("PATH", options.m_Paths, "\".pol\" files, or folders whose *.pol files are taken by name")
        ->required()
        ->type_name("");
    app.add_option("--population", options.m_nPopulation, "chromosomes in each generation")
        ->check(CLI::Range(1, MOST_CHROMOSOMES).description(""))
        ->type_name("N")
        ->capture_default_str();
    app.add_option("--generations", options.m_nGenerations, "generations bred after the first")
        ->check(CLI::Range(0, std::numeric_limits<int>::max()).description(""))
        ->type_name("N")
        ->capture_default_str();
    app.add_option("--mutation", options.m_fMutation, "chance that a child is mutated, 0 to 1")
        ->check(CheckProbability)
        ->type_name("P")
        ->capture_default_str();
    app.add_option("--seed", options.m_Seed,
                   "start of the random numbers: the same seed repeats a search (default: the clock)")
        ->type_name("S");
    app.add_option("--svg", options.m_SvgPath, "draw the best packing into this file")
        ->check(CheckFileName)
        ->type_name("FILE");
}

}  // namespace

std::optional<int> ParseBatchOptions(int argc, char const* const* argv, SBatchOptions& options) {
    CLI::App app(DESCRIPTION, "nestrix-batch");
    Describe(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        // The library has a status for each kind of error; callers need to know only whose fault it was.
        return app.exit(error) == 0 ? BATCH_DONE : BATCH_BAD_INPUT;
    }
    return std::nullopt;
}
