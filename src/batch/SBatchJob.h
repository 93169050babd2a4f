#pragma once

#include "base/CRelaxed.h"
#include "batch/CPictureFile.h"
#include "batch/PolygonInput.h"

namespace nestrix {

/// What every method of packing is given: sound polygons, and where the result goes.
struct SBatchJob {
    const SPolygonInput& m_Input;
    unsigned int m_nSeed;
    const CRelaxed<bool>& m_Stop;  ///< becomes true when the program is asked to end
    CPictureFile& m_Picture;
};

}  // namespace nestrix
