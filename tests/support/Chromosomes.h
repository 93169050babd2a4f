#pragma once

#include "ga/CContainer.h"
#include "packing/CContactSink.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix::support {

enum class EKeys {
    Permutation,
    Few,    ///< many ties
    Equal,  ///< nothing but ties
    Wild    ///< negative and far apart
};

enum class EOffsets {
    Uniform,   ///< across the strip
    Beyond,    ///< far enough past both walls that many are clamped
    Columns,   ///< three places only: pieces of one column line up exactly
    Quarters,  ///< multiples of a quarter
    Far,       ///< so far to the right that world coordinates lose their last bits
    NotFinite  ///< some infinite or not a number
};

enum class EIndices {
    Own,       ///< gene i belongs to polygon i
    Shuffled,  ///< any polygon, some several times
    OutOfRange
};

/// Genes for nPolygons polygons in a strip of the given width.
[[nodiscard]] CChromosome MakeChromosome(CSeededRandom& random, int nPolygons, float fStripWidth, EKeys keys,
                                         EOffsets offsets, EIndices indices);

/// The same with a random choice of keys, offsets and indices, most often those of a search.
[[nodiscard]] CChromosome MakeChromosome(CSeededRandom& random, int nPolygons, float fStripWidth);

/// A chromosome with the given genes.
[[nodiscard]] CChromosome MakeChromosome(std::initializer_list<SGene> genes);

/// One placement as the container's search makes it, with its fitness.
/// @param placed receives the placed polygons, in drop order.
/// @param pContacts hears of every contact; may be null.
float PlaceChromosome(const CContainer& container, const CChromosome& chromosome,
                      std::vector<CPolygon>& placed, CContactSink* pContacts = nullptr);

}  // namespace nestrix::support
