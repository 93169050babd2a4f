#include "batch/BatchOptions.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <limits>
#include <utility>

namespace nestrix {

namespace {

constexpr uint64_t MOST_CHROMOSOMES = 1'000'000;

char const* const DESCRIPTION =
    "Searches for the drop order and offsets that pack polygons lowest into a strip 400 units wide.";

char const* const FOOTER =
    "Ctrl-C (or SIGTERM, or SIGHUP) ends the search at once, and the best packing so far is the result: it "
    "is\n"
    "printed and drawn as usual, and the exit status is 0. Before there is a packing, the status is 1.\n"
    "\n"
    "Exit status: 0 done; 1 the result could not be made, printed or written;\n"
    "2 bad options or polygon files.";

/// A whole number in decimal digits. The library alone would take 010 for 8, and nothing for no option.
CLI::Validator WholeNumber(uint64_t nLeast, uint64_t nMost) {
    return CLI::Validator(
        [nLeast, nMost](std::string& text) {
            uint64_t nNumber = 0;
            const auto [pEnd, error] = std::from_chars(text.data(), text.data() + text.size(), nNumber);
            if (error != std::errc() || pEnd != text.data() + text.size() || nNumber < nLeast ||
                nNumber > nMost) {
                return "'" + text + "' is not a whole number from " + std::to_string(nLeast) + " to " +
                       std::to_string(nMost);
            }
            text = std::to_string(nNumber);
            return std::string();
        },
        "");
}

/// Not CLI::Range, which lets through what is not a number.
std::string CheckProbability(const std::string& text) {
    double probability = 0.0;
    const bool bNumber = CLI::detail::lexical_cast(text, probability);
    return bNumber && probability >= 0.0 && probability <= 1.0 ? "" : "'" + text + "' is not between 0 and 1";
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
        ->transform(WholeNumber(1, MOST_CHROMOSOMES))
        ->type_name("N")
        ->capture_default_str();
    app.add_option("--generations", options.m_nGenerations, "generations bred after the first")
        ->transform(WholeNumber(0, std::numeric_limits<int>::max()))
        ->type_name("N")
        ->capture_default_str();
    app.add_option("--mutation", options.m_fMutation, "chance that a child is mutated, 0 to 1")
        ->check(CheckProbability)
        ->type_name("P")
        ->capture_default_str();
    app.add_option("--seed", options.m_Seed,
                   "start of the random numbers: the same seed repeats a search (default: the clock)")
        ->transform(WholeNumber(0, std::numeric_limits<unsigned int>::max()))
        ->type_name("S");
    app.add_option("--svg", options.m_SvgPath, "draw the best packing into this file")
        ->check(CheckFileName)
        ->type_name("FILE");
}

/// The library takes an argument in brackets for a list and splits it. One more character behind the bracket
/// keeps it whole: a line end, since in an error message that does the least harm.
constexpr char GUARD = '\n';

std::vector<std::string> GuardBrackets(int argc, char const* const* argv) {
    // The library wants the last argument first.
    std::vector<std::string> arguments;
    for (int i = argc - 1; i > 0; --i) {
        arguments.emplace_back(argv[i]);
        if (arguments.back().starts_with('[') && arguments.back().ends_with(']')) {
            arguments.back() += GUARD;
        }
    }
    return arguments;
}

void TakeGuardOff(std::string& argument) {
    constexpr char GUARDED[] = {']', GUARD, '\0'};
    if (argument.starts_with('[') && argument.ends_with(GUARDED)) {
        argument.pop_back();
    }
}

}  // namespace

std::optional<int> ParseBatchOptions(int argc, char const* const* argv, SBatchOptions& options) {
    CLI::App app(DESCRIPTION, "nestrix-batch");
    Describe(app, options);
    try {
        app.parse(GuardBrackets(argc, argv));
    } catch (const CLI::ParseError& error) {
        // The library has a status for each kind of error; callers need to know only whose fault it was.
        return app.exit(error) == 0 ? BATCH_DONE : BATCH_BAD_INPUT;
    }
    for (std::string& path : options.m_Paths) {
        TakeGuardOff(path);
    }
    TakeGuardOff(options.m_SvgPath);
    return std::nullopt;
}

}  // namespace nestrix
