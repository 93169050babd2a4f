#include "batch/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "batch/ExitStatus.h"
#include "batch/ManualPage.h"

namespace nestrix {

namespace {

constexpr size_t COLUMN_OF_DESCRIPTIONS = 28;

/// The library takes an argument in brackets for a list and splits it. One more character behind the bracket
/// keeps it whole: a line end, since in an error message that does the least harm.
constexpr char GUARD = '\n';

/// The library wants the last word first.
std::vector<std::string> GuardBrackets(const std::vector<std::string>& words) {
    std::vector<std::string> guarded(words.rbegin(), words.rend());
    for (std::string& word : guarded) {
        if (word.starts_with('[') && word.ends_with(']')) {
            word += GUARD;
        }
    }
    return guarded;
}

/// Takes the guard off, and refuses an empty name.
std::string TakeFileName(std::string& name) {
    constexpr char GUARDED[] = {']', GUARD, '\0'};
    if (name.starts_with('[') && name.ends_with(GUARDED)) {
        name.pop_back();
    }
    return name.empty() ? "a file name is missing" : "";
}

}  // namespace

std::optional<int> ParseWords(CLI::App& app, const std::vector<std::string>& words,
                              const std::function<void()>& check) {
    if (words.size() == 1 && words.front() == MANUAL_WORD) {
        PrintManualSection(app);
        return BATCH_DONE;
    }
    try {
        app.parse(GuardBrackets(words));
        check();
    } catch (const CLI::ParseError& error) {
        // The library has a status for each kind of error; callers need to know only whose fault it was.
        return app.exit(error) == 0 ? BATCH_DONE : BATCH_BAD_INPUT;
    }
    return std::nullopt;
}

void LayHelpOut(CLI::App& app, char const* pFooter) {
    app.footer(pFooter);
    app.get_formatter()->column_width(COLUMN_OF_DESCRIPTIONS);
}

CLI::Option* AddFile(CLI::App& app, const std::string& name, std::string& file, const std::string& help) {
    return app.add_option(name, file, help)->transform(CLI::Validator(TakeFileName, ""))->type_name("FILE");
}

CLI::Option* AddFiles(CLI::App& app, const std::string& name, std::vector<std::string>& files,
                      const std::string& help) {
    return app.add_option(name, files, help)->transform(CLI::Validator(TakeFileName, ""))->type_name("");
}

CLI::Option* AddFiles(CLI::App& app, const std::string& name, const std::string& help,
                      const std::function<void(const std::string& file)>& take) {
    const auto takeAll = [take](const std::vector<std::string>& files) {
        std::for_each(files.begin(), files.end(), take);
    };
    return app.add_option_function<std::vector<std::string>>(name, takeAll, help)
        ->transform(CLI::Validator(TakeFileName, ""))
        ->type_name("FILE")
        ->allow_extra_args(false);  // or else it would take the words behind it, too
}

void Refuse(const std::string& option, const std::string& complaint) {
    throw CLI::ValidationError(option, complaint);
}

std::string ShellQuoted(const std::string& word) {
    constexpr char PLAIN[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_./,:=%+@";
    if (!word.empty() && word.find_first_not_of(PLAIN) == std::string::npos) {
        return word;
    }
    std::string quoted = "'";
    for (const char c : word) {
        quoted += c == '\'' ? "'\\''" : std::string(1, c);
    }
    return quoted + "'";
}

}  // namespace nestrix
