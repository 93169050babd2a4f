#include "batch/InputOptions.h"

#include "batch/COptionGroup.h"
#include "batch/CommandLine.h"
#include "drawing/Unit.h"

namespace nestrix {

namespace {

char const* const INPUT_GROUP = "Inputs";

constexpr SValueKind<EUnit> UNIT{FindUnit, "one of the units: mm, cm, m, in, ft, pt, px"};

}  // namespace

void AddInputOptions(CLI::App& app, SInputOptions& options) {
    SReadOptions& reading = options.m_Reading;
    AddFiles(app, "INPUT", options.m_Inputs,
             "files, folders whose files are taken by name,\nor FILE:12 for twelve copies");
    const COptionGroup group(app, INPUT_GROUP);
    group.Add("--unit", "UNIT", reading.m_Unit, UNIT,
              "of the inputs that name none: mm, cm, m, in, ft, pt, px");
    group.Add("--scale", "F", reading.m_Scale, POSITIVE, "every length is taken so many times (1)");
    group.Add("--tolerance", "T", reading.m_FlatTolerance, POSITIVE,
              "how far a polygon may leave its curve, never\ninto the material (0.05)");
    group.Add("--join", "D", reading.m_JoinTolerance, DISTANCE, "ends of lines so near are one point (0.1)");
    group.AddFlag("--lenient", reading.m_bLenient, "take faulty files as far as they go, as the window does");
}

void DemandInputs(const SInputOptions& options) {
    if (options.m_Inputs.empty()) {
        Refuse("INPUT", "is required: files or folders with the pieces");
    }
}

}  // namespace nestrix
