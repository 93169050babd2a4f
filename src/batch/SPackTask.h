#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/CRelaxed.h"
#include "batch/COutputs.h"
#include "batch/CWatch.h"
#include "batch/PackOptions.h"
#include "batch/SInputSet.h"
#include "batch/SPacker.h"

namespace nestrix {

/// What every method of packing is given.
struct SPackTask {
    const SInvocation& m_Invocation;
    const SPackOptions& m_Options;
    const SInputSet& m_Set;
    const SFreeRecord* m_pFrom;  ///< an earlier packing to search on from; null for none
    const SPacker& m_Packer;
    unsigned int m_nSeed;
    const CRelaxed<bool>& m_Stop;  ///< becomes true when the program is asked to end
    CWatch& m_Watch;
    COutputs& m_Outputs;
};

}  // namespace nestrix
