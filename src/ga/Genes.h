#pragma once

#include <span>
#include <vector>

#include "base/CRelaxed.h"
#include "ga/CChromosome.h"
#include "geom/CPolygon.h"

namespace nestrix {

/// Gives every chromosome a random drop order without ties and random offsets from 0 to the strip's width.
/// Draws from the C library's rand().
/// @param nPolygons the size of the polygon set.
/// @param pAbandoned once this is true, returns soon. May be null.
void RandomiseGenes(std::span<CChromosome> population, size_t nPolygons, float fStripWidth,
                    const CRelaxed<bool>* pAbandoned);

/// Clamps every gene's offset into the strip. The right edge comes second, deliberately: a polygon wider than
/// the strip ends up flush right and sticks out on the left. Genes of unknown polygons are skipped.
void ClampIntoStrip(CChromosome& chromosome, std::span<const CPolygon> polygons, float fStripWidth);

}  // namespace nestrix
