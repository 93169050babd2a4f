#pragma once

#include <string>
#include <vector>

#include "batch/InputFile.h"

namespace CLI {
class App;
}

namespace nestrix {

/// What every command that reads pieces is told about them.
struct SInputOptions {
    std::vector<std::string> m_Inputs;
    SReadOptions m_Reading;
};

/// Adds the inputs, as the bare words of the command, and the options that say how they are read.
void AddInputOptions(CLI::App& app, SInputOptions& options);

/// Refuses a command line without any input.
void DemandInputs(const SInputOptions& options);

}  // namespace nestrix
