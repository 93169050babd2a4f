#pragma once

#include <span>
#include <vector>

#include "ga/CChromosome.h"
#include "geom/CPolygon.h"

namespace nestrix::reference {

/// The sum of all bounding boxes' heights.
[[nodiscard]] float TotalHeight(const std::vector<CPolygon>& polygons);

/// Moves the genes' offsets into the strip: left wall first, right wall second.
void Clamp(std::span<SGene> genes, const std::vector<CPolygon>& polygons, float fStripWidth);

/// Appends copies of the placed polygons that the falling one can touch.
void GetCollidablePolygonList(const CPolygon& polygon, const std::vector<CPolygon>& placed,
                              std::vector<CPolygon>& collidable);

/// A packing and its fitness.
struct SPlainPacking {
    std::vector<CPolygon> m_Placed;
    std::vector<mgVector3> m_Contacts;
    float m_fFitness = 0.0F;
};

[[nodiscard]] SPlainPacking Place(std::span<const SGene> genes, const std::vector<CPolygon>& polygons,
                                  float fTotalHeight);

}  // namespace nestrix::reference
