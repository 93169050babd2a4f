#include "batch/DropOptions.h"

#include <limits>

#include "batch/OptionValues.h"

namespace nestrix {

namespace {

constexpr uint64_t MOST_CHROMOSOMES = 1'000'000;

/// Not CLI::Range, which lets through what is not a number.
std::string CheckProbability(const std::string& text) {
    double probability = 0.0;
    const bool bNumber = CLI::detail::lexical_cast(text, probability);
    return bNumber && probability >= 0.0 && probability <= 1.0 ? "" : "'" + text + "' is not between 0 and 1";
}

}  // namespace

void AddDropOptions(CLI::App& app, SDropOptions& options, char const* pGroup) {
    app.add_option("--population", options.m_nPopulation, "chromosomes in each generation")
        ->transform(WholeNumber(1, MOST_CHROMOSOMES))
        ->type_name("N")
        ->capture_default_str()
        ->group(pGroup);
    app.add_option("--generations", options.m_nGenerations, "generations bred after the first")
        ->transform(WholeNumber(0, std::numeric_limits<int>::max()))
        ->type_name("N")
        ->capture_default_str()
        ->group(pGroup);
    app.add_option("--mutation", options.m_fMutation, "chance that a child is mutated, 0 to 1")
        ->check(CheckProbability)
        ->type_name("P")
        ->capture_default_str()
        ->group(pGroup);
}

}  // namespace nestrix
