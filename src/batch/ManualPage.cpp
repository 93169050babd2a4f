#include "batch/ManualPage.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <vector>

namespace nestrix {

namespace {

/// "\fB" or "\fI" around a text.
std::string InFont(char cFont, std::string_view text) {
    return std::string("\\f") + cFont + InRoff(text) + "\\fR";
}

/// "--unit UNIT", "INPUT ...": how the option is written.
std::string Written(const CLI::Option& option) {
    if (option.get_positional()) {
        return InFont('I', option.get_name()) + " ...";
    }
    std::string names;
    for (const std::string& name : option.get_snames()) {
        names += InFont('B', "-" + name) + ", ";
    }
    names += InFont('B', "--" + option.get_single_name());
    // What a validator adds to the name is in the description, too.
    const std::string type = option.get_type_name();
    return type.empty() ? names : names + " " + InFont('I', type.substr(0, type.find(':')));
}

std::string Remarks(const CLI::Option& option) {
    const std::string byDefault = option.get_default_str();
    return (byDefault.empty() ? "" : " (" + byDefault + ")") + (option.get_required() ? " (required)" : "");
}

void PrintGroup(const std::string& heading, const std::vector<const CLI::Option*>& options) {
    if (options.empty()) {
        return;
    }
    std::printf(".SS \"%s\"\n", InRoff(heading).c_str());
    for (const CLI::Option* pOption : options) {
        std::printf(".TP\n%s\n%s\n", Written(*pOption).c_str(),
                    InRoff(pOption->get_description() + Remarks(*pOption)).c_str());
    }
}

std::string InCapitals(std::string text) {
    for (char& c : text) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return text;
}

}  // namespace

std::string InRoff(std::string_view text) {
    std::string roff = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
    for (size_t i = 0; i < text.size(); ++i) {
        const bool bOption = text[i] == '-' && (i == 0 || text[i - 1] == '-' || text[i - 1] == ' ' ||
                                                (i + 1 < text.size() && text[i + 1] == '-'));
        switch (text[i]) {
            case '\\':
                roff += "\\e";
                break;
            case '"':
                roff += "\\(dq";
                break;
            case '\n':  // the help's lines are not the page's
                roff += ' ';
                break;
            case '-':  // copied from the page, that of an option has to be one, not a hyphen
                roff += bOption ? "\\-" : "-";
                break;
            default:
                roff += text[i];
        }
    }
    return roff;
}

void PrintManualSection(const CLI::App& app) {
    const std::string& name = app.get_name();
    std::printf(".SH \"%s\"\n%s\n", InRoff(InCapitals(name.substr(name.rfind(' ') + 1))).c_str(),
                InRoff(app.get_description()).c_str());
    PrintGroup("Arguments", app.get_options([](const CLI::Option* p) { return p->get_positional(); }));
    for (const std::string& group : app.get_groups()) {
        PrintGroup(group, app.get_options([&group](const CLI::Option* pOption) {
            return !pOption->get_positional() && pOption->get_group() == group;
        }));
    }
    if (!app.get_footer().empty()) {
        std::printf(".PP\n%s\n", InRoff(app.get_footer()).c_str());
    }
}

}  // namespace nestrix
