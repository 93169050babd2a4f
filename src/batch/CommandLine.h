#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace nestrix {

/// A command line, taken apart as far as its command.
struct SInvocation {
    std::string m_Program;             ///< as it was called
    std::vector<std::string> m_Words;  ///< behind the command
};

/// Reads the words of a command.
/// @param app with the command's options.
/// @param check may refuse what was read, by throwing a CLI::ParseError.
/// @return the status to exit with at once, where the words ask for help or are at fault; what there is to
///         say about it has then been said on standard output or standard error.
[[nodiscard]] std::optional<int> ParseWords(
    CLI::App& app, const std::vector<std::string>& words, const std::function<void()>& check = [] {});

/// Lays the help of a command out.
/// @param footer what comes behind the options.
void LayHelpOut(CLI::App& app, char const* pFooter);

/// Adds an option that names one file. An empty name, as of a script's variable that is not set, is refused.
CLI::Option* AddFile(CLI::App& app, const std::string& name, std::string& file, const std::string& help);

/// The bare words of a command: as many files as are given.
CLI::Option* AddFiles(CLI::App& app, const std::string& name, std::vector<std::string>& files,
                      const std::string& help);

/// Adds an option that names a file each time it is given.
/// @param take gets them in turn.
CLI::Option* AddFiles(CLI::App& app, const std::string& name, const std::string& help,
                      const std::function<void(const std::string& file)>& take);

/// Refuses options that cannot be meant.
/// @throws CLI::ValidationError with this complaint behind the option's name.
[[noreturn]] void Refuse(const std::string& option, const std::string& complaint);

/// So that a shell takes the word as it is, whatever it contains.
[[nodiscard]] std::string ShellQuoted(const std::string& word);

}  // namespace nestrix
