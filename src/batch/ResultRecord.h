#pragma once

#include <vector>

#include "batch/SPackTask.h"
#include "formats/json/PackingRecord.h"

namespace nestrix {

/// A free search's result with all that repeats and certifies it.
/// @param pieces the set with the demands of the options.
[[nodiscard]] SPackingRecord RecordOf(const SPackTask& task, const std::vector<SPiece>& pieces,
                                      const SPackResult& result);

/// The same of a search that goes on: what ended it is not known.
[[nodiscard]] SPackingRecord RecordSoFar(const SPackTask& task, const std::vector<SPiece>& pieces,
                                         const SFreePacking& packing, const SPackProgress& progress);

/// The same for a dropped search.
struct SDroppedResult {
    const std::vector<CPolygon>& m_Polygons;  ///< one for every copy
    const SPacking& m_Packing;
    int m_nGenerations = 0;  ///< complete ones after the first
    double m_Seconds = 0.0;
};
[[nodiscard]] SPackingRecord RecordOf(const SPackTask& task, const SDroppedResult& result);

}  // namespace nestrix
