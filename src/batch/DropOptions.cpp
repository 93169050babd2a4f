#include "batch/DropOptions.h"

#include <limits>

#include "batch/COptionGroup.h"

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
    const COptionGroup group(app, pGroup);
    group
        .AddWholeNumber("--population", "N", options.m_nPopulation, 1, MOST_CHROMOSOMES,
                        "chromosomes in each generation")
        ->capture_default_str();
    group
        .AddWholeNumber("--generations", "N", options.m_nGenerations, 0, std::numeric_limits<int>::max(),
                        "generations bred after the first")
        ->capture_default_str();
    app.add_option("--mutation", options.m_fMutation, "chance that a child is mutated, 0 to 1")
        ->check(CheckProbability)
        ->type_name("P")
        ->capture_default_str()
        ->group(pGroup);
}

}  // namespace nestrix
