#pragma once

namespace CLI {
class App;
}

namespace nestrix {

/// What the user asked of the search for drop orders.
struct SDropOptions {
    int m_nPopulation = 200;
    int m_nGenerations = 500;
    float m_fMutation = 0.1F;  ///< the chance that a child is mutated, 0 .. 1
};

/// Adds the options that only dropping has, in their own group of the help.
void AddDropOptions(CLI::App& app, SDropOptions& options, char const* pGroup);

}  // namespace nestrix
