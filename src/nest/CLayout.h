#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "base/Lanes.h"
#include "nest/CFieldTable.h"
#include "nest/Places.h"

namespace nestrix {

/// All items in a strip of some height, overlapping or not: the state that a search works on. Finds the
/// neighbours of any place quickly: bands of the strip hold the boxes of all items that reach into them.
class CLayout {
public:
    /// @param places one for each item.
    CLayout(const CPackProblem& problem, CFieldTable& fields, std::span<const SPlace> places);

    /// Puts every item where it is said, in a strip of another height; what sticks out of that is put back.
    void Assign(std::span<const SPlace> places, double height);

    void Move(size_t nItem, const SPlace& place);

    /// From now on items are tried in all their versions, or in the main ones only.
    void TryAllVersions(bool bAll) { m_bAllVersions = bAll; }
    [[nodiscard]] const std::vector<size_t>& VersionsOf(size_t nItem) const {
        const size_t nPiece = m_Problem.Items()[nItem];
        return m_bAllVersions ? m_Problem.VersionsOf(nPiece) : m_Problem.MainVersionsOf(nPiece);
    }

    [[nodiscard]] size_t Count() const { return m_Places.size(); }
    [[nodiscard]] double Height() const { return m_Height; }
    [[nodiscard]] const std::vector<SPlace>& Places() const { return m_Places; }
    [[nodiscard]] const SPlace& PlaceOf(size_t nItem) const { return m_Places[nItem]; }

    /// Where the reference point of a version may lie, the borders included. Low above high where the strip
    /// is too low for it.
    [[nodiscard]] const SPlaneBox& RoomFor(size_t nVersion) const { return m_Rooms[nVersion]; }

    /// Calls visit(nOther) for the items that a copy of the version at this place may overlap, itself
    /// among them if it is there, until one returns false.
    template <class TVisit>
    void VisitNeighbours(const SPlace& place, TVisit&& visit) const {
        VisitVicinity(place, 0.0, visit);
    }

    /// The same for a copy that is moved so far along either axis at most.
    template <class TVisit>
    void VisitVicinity(const SPlace& place, double reach, TVisit&& visit) const;

    [[nodiscard]] CFieldTable& Fields() const { return m_Fields; }
    [[nodiscard]] const CPackProblem& Problem() const { return m_Problem; }

private:
    /// The boxes of the items that reach into a band, side by side, filled up to whole lanes.
    struct SBand {
        std::vector<float> m_Left, m_Right, m_Bottom, m_Top;
        std::vector<uint32_t> m_Items;

        void Add(uint32_t nItem, const SPlaneBox& box);
        void Remove(uint32_t nItem);
    };

    [[nodiscard]] SPlaneBox BoxOf(const SPlace& place) const {
        const SPlaneBox& box = m_Boxes[place.m_nVersion];
        return {place.m_At + box.m_Low, place.m_At + box.m_High};
    }
    [[nodiscard]] size_t BandAt(double y) const {
        const double band = y * m_BandsPerUnit;
        return band > 0.0 ? std::min(static_cast<size_t>(band), m_Bands.size() - 1) : 0;
    }
    void MeasureVersions();
    void Enter(size_t nItem);
    void Leave(size_t nItem);

    const CPackProblem& m_Problem;
    CFieldTable& m_Fields;
    std::vector<SPlace> m_Places;
    bool m_bAllVersions = false;
    double m_Height = 0.0;
    std::vector<SPlaneBox> m_Boxes;  ///< of each version, enlarged by what single precision may lose
    std::vector<SPlaneBox> m_Rooms;  ///< of each version
    double m_BandsPerUnit = 0.0;
    std::vector<SBand> m_Bands;
    std::vector<uint32_t> m_FirstBands;  ///< the lowest band of each item
};

template <class TVisit>
void CLayout::VisitVicinity(const SPlace& place, double reach, TVisit&& visit) const {
    const SPlaneBox box = BoxOf(place);
    const float fLeft = static_cast<float>(box.m_Low.m_X - reach);
    const float fRight = static_cast<float>(box.m_High.m_X + reach);
    const float fBottom = static_cast<float>(box.m_Low.m_Y - reach);
    const float fTop = static_cast<float>(box.m_High.m_Y + reach);
    const size_t nFirst = BandAt(box.m_Low.m_Y - reach);
    const size_t nLast = BandAt(box.m_High.m_Y + reach);
    for (size_t nBand = nFirst; nBand <= nLast; ++nBand) {
        const SBand& band = m_Bands[nBand];
        for (size_t i = 0; i < band.m_Left.size(); i += LANES) {
            unsigned int nHits =
                BitsOf((LoadLanes(&band.m_Left[i]) < fRight) & (LoadLanes(&band.m_Right[i]) > fLeft) &
                       (LoadLanes(&band.m_Bottom[i]) < fTop) & (LoadLanes(&band.m_Top[i]) > fBottom));
            for (; nHits != 0; nHits &= nHits - 1) {
                const size_t nItem = band.m_Items[i + static_cast<size_t>(__builtin_ctz(nHits))];
                // Met in several bands, it is visited in the first of them.
                if (nBand == std::max<size_t>(nFirst, m_FirstBands[nItem]) && !visit(nItem)) {
                    return;
                }
            }
        }
    }
}

}  // namespace nestrix
