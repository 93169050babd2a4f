#pragma once

#include <cstdint>
#include <vector>

#include "nest/CHingeModel.h"
#include "nest/CItemOverlap.h"

namespace nestrix {

/// The neighbours of an item that is moved a little: gathered once, asked often, while they stay where they
/// are.
class CVicinity {
public:
    explicit CVicinity(const CItemOverlap& overlap) : m_Overlap(overlap) {}

    /// @param place from which on the version is moved; first of all.
    /// @param reach how far along either axis it is expected to be moved. Farther off, neighbours are
    /// gathered anew.
    void Enter(const SPlace& place, double reach);

    /// What the item's overlaps come to.
    /// @param limit where the value is at least this, some number from here on to the exact one is returned.
    [[nodiscard]] double ValueAt(SPoint at, double limit);

    /// The overlaps as hinges.
    /// @param beyond how far behind the border each leads.
    /// @return what they come to.
    double GatherHinges(SPoint at, double beyond, std::vector<CHingeModel::SHinge>& hinges);

private:
    struct SNeighbour {
        CFieldTable::SWay m_Way;
        SPoint m_At;
        double m_Factor;
        uint32_t m_nItem;
    };

    /// Gathers neighbours anew if this is too far off.
    void Follow(SPoint at);

    const CItemOverlap& m_Overlap;
    SPlace m_Centre;
    double m_Reach = 0.0;
    std::vector<SNeighbour> m_Neighbours;
};

}  // namespace nestrix
