#include "batch/BatchOptions.h"

#include <limits>
#include <utility>

#include "batch/OptionValues.h"

namespace nestrix {

namespace {

char const* const DESCRIPTION = "Packs polygons into a strip, as low as it can.";

char const* const FOOTER =
    "Ctrl-C (or SIGTERM, or SIGHUP) ends the search at once, and the best packing so far is the result: it "
    "is\n"
    "printed and drawn as usual, and the exit status is 0. Before there is a packing, the status is 1.\n"
    "\n"
    "Exit status: 0 done; 1 the result could not be made, printed or written;\n"
    "2 bad options, polygon files, or pieces that cannot be packed.";

char const* const FREE_GROUP = "With --method free";
char const* const DROP_GROUP = "With --method drop";
constexpr size_t COLUMN_OF_DESCRIPTIONS = 28;

/// An empty name is what a script passes whose variable is not set.
std::string CheckFileName(const std::string& text) {
    return text.empty() ? "a file name is missing" : "";
}

std::optional<EMethod> ReadMethod(std::string_view text) {
    if (text == "free") {
        return EMethod::FREE;
    }
    return text == "drop" ? std::optional(EMethod::DROP) : std::nullopt;
}

constexpr SValueKind<EMethod> METHOD{ReadMethod, "one of the methods: free, drop"};

void Describe(CLI::App& app, SBatchOptions& options) {
    app.footer(FOOTER);
    app.get_formatter()->column_width(COLUMN_OF_DESCRIPTIONS);
    app.add_option("PATH", options.m_Paths, "\".pol\" files, or folders whose *.pol files are taken by name")
        ->required()
        ->type_name("");
    AddOption(app, "--method", options.m_eMethod, METHOD,
              "free (the default): pieces anywhere, without overlap;\n"
              "drop: the window's search, 400 units wide, whose\npieces fall from above")
        ->type_name("NAME");
    app.add_option("--seed", options.m_Seed, "start of the random numbers (default: the clock)")
        ->transform(WholeNumber(0, std::numeric_limits<unsigned int>::max()))
        ->type_name("S");
    app.add_option("--svg", options.m_SvgPath, "draw the best packing into this file")
        ->check(CheckFileName)
        ->type_name("FILE");
    AddFreeOptions(app, options.m_Free, FREE_GROUP);
    AddDropOptions(app, options.m_Drop, DROP_GROUP);
}

/// Refuses options of the method that was not chosen: they would do nothing.
void CheckMethod(const CLI::App& app, EMethod eMethod) {
    const std::string other = eMethod == EMethod::FREE ? DROP_GROUP : FREE_GROUP;
    for (const CLI::Option* pOption : app.get_options()) {
        if (pOption->count() > 0 && pOption->get_group() == other) {
            throw CLI::ValidationError(
                pOption->get_name(),
                eMethod == EMethod::FREE
                    ? "only --method drop has this option; the method is free, unless another is given"
                    : "only --method free has this option");
        }
    }
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
        CheckMethod(app, options.m_eMethod);
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
