#pragma once

#include <cstdint>
#include <vector>

#include "nest/CLayout.h"
#include "nest/CPairWeights.h"
#include "tests/nest/CFieldScene.h"

namespace nestrix::support {

/// Items in a strip, as a move finds them: laid anywhere, many on others, with weights between some of them.
/// Lengths are those of the pieces as drawn; places are in units of the grid, as everywhere in a search.
class CMoveScene {
public:
    CMoveScene(std::vector<SPiece> pieces, const SFreeStrip& strip, double height, uint64_t nSeed);

    [[nodiscard]] CLayout& Layout() { return m_Layout; }
    [[nodiscard]] const CPairWeights& Weights() const { return m_Weights; }
    [[nodiscard]] CSeededRandom& Random() { return m_Fields.Random(); }

    [[nodiscard]] double InUnits(double length) const { return m_Fields.InUnits(length); }
    /// In units, too.
    [[nodiscard]] double Slack() const { return m_Fields.Problem().Slack(); }

    /// The middle of an item's first version, which need not be in the strip.
    void Put(size_t nItem, double x, double y);

    /// The strip gets another height; what sticks out of it then is put back.
    void SetHeight(double height);

    [[nodiscard]] const std::vector<size_t>& VersionsOf(size_t nItem) const;
    [[nodiscard]] bool IsInRoom(const SPlace& place) const;

    /// A place in the room of any version of the item.
    [[nodiscard]] SPlace DrawPlace(size_t nItem);
    /// So far at most from another point, along either axis.
    [[nodiscard]] SPoint DrawAround(SPoint middle, double reach);

private:
    CFieldScene m_Fields;
    CLayout m_Layout;
    CPairWeights m_Weights;
};

/// MixedSet in a strip 80 wide and 60 high, with a spacing and a margin.
[[nodiscard]] CMoveScene MixedScene(uint64_t nSeed);

}  // namespace nestrix::support
