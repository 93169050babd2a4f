#include "batch/PackOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "batch/Complaints.h"
#include "batch/ExitStatus.h"
#include "batch/JobOptions.h"
#include "batch/OptionValues.h"

namespace nestrix {

namespace {

char const* const FREE_GROUP = "With --method free";
char const* const DROP_GROUP = "With --method drop";
char const* const RANKS_GROUP = "The strip and the search";
char const* const HIDDEN_GROUP = "";  // as the library has it

std::optional<EPackMethod> ReadMethod(std::string_view text) {
    if (text == "free") {
        return EPackMethod::FREE;
    }
    return text == "drop" ? std::optional(EPackMethod::DROP) : std::nullopt;
}

constexpr SValueKind<EPackMethod> METHOD{ReadMethod, "one of the methods: free, drop"};

/// What says when a search ends, how it begins and who watches: all that is different when it is repeated.
constexpr std::array<std::string_view, 8> ENDS{"--time",     "--steps", "--target-height", "--target-density",
                                               "--patience", "--seed",  "--threads",       "--watch"};

/// Options of one method only, or what ranks have in their place.
void AddMethodOptions(CLI::App& app, SPackOptions& options, bool bRanks) {
    if (!bRanks) {
        AddFreeOptions(app, options.m_Free, FREE_GROUP);
        AddDropOptions(app, options.m_Drop, DROP_GROUP);
        return;
    }
    AddFreeOptions(app, options.m_Free, RANKS_GROUP);
    app.get_option("--method")->group(HIDDEN_GROUP);  // there is no choice; who makes one is told so
    app.get_option("--json")->description(
        "the packing with all that certifies it; kept\nup to date while the search goes on");
    app.get_option("--steps")->description("how many steps to search, those of all ranks together");
    app.get_option("--threads")->description("how many threads search in each rank (1)");
}

void Describe(CLI::App& app, SPackOptions& options, const SPackHelp& help) {
    LayHelpOut(app, help.m_pFooter);
    AddInputOptions(app, options.m_Inputs);
    AddFile(app, "--job", options.m_JobFile, "a job written down; these options win over it");
    AddFile(app, "--from", options.m_FromFile,
            "a packing to go on from: its strip, turns, pieces by default");
    AddOption(app, "--method", options.m_eMethod, METHOD,
              "free (the default): pieces anywhere, without overlap;\n"
              "drop: the window's search, 400 units wide, whose\npieces fall from above")
        ->type_name("NAME");
    app.add_option("--seed", options.m_Seed, "start of the random numbers (default: the clock)")
        ->transform(WholeNumber(0, std::numeric_limits<unsigned int>::max()))
        ->type_name("S");
    app.add_flag("--quiet", options.m_bQuiet, "nothing about the inputs and the progress");
    AddOutputOptions(app, "a table with a line for each improvement", options.m_Outputs);
    AddFile(
        app, "--watch", options.m_Watch,
        "keeps a picture up to date, FILE.svg or one in a\nfolder, and beside it a page that shows it live")
        ->group(RESULT_GROUP);
    AddMethodOptions(app, options, help.m_bRanks);
}

/// Refuses options of the method that was not chosen: they would do nothing.
void CheckMethod(const CLI::App& app, EPackMethod eMethod) {
    const std::string other = eMethod == EPackMethod::FREE ? DROP_GROUP : FREE_GROUP;
    for (const CLI::Option* pOption : app.get_options()) {
        if (pOption->count() > 0 && pOption->get_group() == other) {
            Refuse(pOption->get_name(),
                   eMethod == EPackMethod::FREE
                       ? "only --method drop has this option; the method is free, unless another is given"
                       : "only --method free has this option");
        }
    }
}

void CheckInputs(const SPackOptions& options) {
    if (options.m_JobFile.empty() && options.m_FromFile.empty()) {
        DemandInputs(options.m_Inputs);
    }
    if (!options.m_FromFile.empty() && options.m_eMethod == EPackMethod::DROP) {
        Refuse("--from", "only --method free can search on");
    }
}

bool HasLimits(const SPackLimits& limits) {
    return limits.m_Seconds || limits.m_nSteps || limits.m_TargetHeight || limits.m_TargetDensity ||
           limits.m_Patience;
}

/// What was given and has to do with the result.
CRecordedOptions GivenOptions(const CLI::App& app) {
    CRecordedOptions given;
    for (const CLI::Option* pOption : app.get_options()) {
        const std::string& group = pOption->get_group();
        if (pOption->count() == 0 || pOption->get_positional() || group == RESULT_GROUP ||
            pOption->check_name("--quiet")) {
            continue;
        }
        const std::string name = pOption->get_single_name();
        const std::string& value = pOption->results().back();
        if (pOption->get_items_expected_max() == 0) {
            given.emplace_back(name, true);
        } else if (const std::optional<double> number = ReadNumber(value)) {
            given.emplace_back(name, *number);
        } else {
            given.emplace_back(name, value);
        }
    }
    return given;
}

std::optional<int> ParseOnce(const std::vector<std::string>& words, SPackOptions& options,
                             const SPackHelp& help) {
    CLI::App app(help.m_pDescription, help.m_pName);
    Describe(app, options, help);
    return ParseWords(app, words, [&] {
        if (options.m_JobFile.empty() || options.m_Job) {  // what a job says is still to come
            CheckInputs(options);
            CheckMethod(app, options.m_eMethod);
        }
        options.m_Given = GivenOptions(app);
    });
}

/// Reads the words once more, over what the job says.
std::optional<int> ParseOverJob(const std::vector<std::string>& words, SPackOptions& options,
                                const SPackHelp& help) {
    SReading<SJob> job = ReadJob(options.m_JobFile);
    for (const SFinding& finding : job.m_Findings) {
        Complain(finding);
    }
    if (!job.m_Value) {
        return BATCH_BAD_INPUT;
    }
    SPackOptions over;
    ApplyJob(*job.m_Value, !HasLimits(options.m_Free.m_Limits), over);
    over.m_Job = std::move(job.m_Value);
    options = std::move(over);
    return ParseOnce(words, options, help);
}

}  // namespace

std::optional<int> ParsePackOptions(const std::vector<std::string>& words, SPackOptions& options,
                                    const SPackHelp& help) {
    const std::optional<int> status = ParseOnce(words, options, help);
    return status || options.m_JobFile.empty() ? status : ParseOverJob(words, options, help);
}

std::string RepeatingCommand(const SInvocation& invocation, const std::string& ends) {
    std::string command = ShellQuoted(invocation.m_Program) + " pack";
    bool bOptions = true;  // until a word says that no more options follow
    std::string rest;
    for (size_t i = 0; i < invocation.m_Words.size(); ++i) {
        const std::string& word = invocation.m_Words[i];
        const std::string_view name = std::string_view(word).substr(0, word.find('='));
        bOptions = bOptions && word != "--";
        if (bOptions && std::find(ENDS.begin(), ENDS.end(), name) != ENDS.end()) {
            i += name.size() == word.size() ? 1 : 0;  // its value
        } else {
            (bOptions ? command : rest).append(" ").append(ShellQuoted(word));
        }
    }
    return command + ends + rest;
}

}  // namespace nestrix
