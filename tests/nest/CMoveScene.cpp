#include "tests/nest/CMoveScene.h"

#include <algorithm>
#include <utility>

#include "tests/nest/FreeSets.h"

namespace nestrix::support {

namespace {

/// Some pairs' weights after a few passes.
void GrowSome(CPairWeights& weights, size_t nItems, CSeededRandom& random) {
    constexpr int PASSES = 4;
    for (int i = 0; nItems > 1 && i < PASSES; ++i) {
        std::vector<SOverlap> overlaps;
        for (size_t k = 0; k < nItems; ++k) {
            const size_t nFirst = random.Index(nItems - 1);
            const size_t nSecond = nFirst + 1 + random.Index(nItems - 1 - nFirst);
            overlaps.push_back({static_cast<uint32_t>(nFirst), static_cast<uint32_t>(nSecond),
                                static_cast<double>(random.Between(1.0F, 9.0F))});
        }
        weights.Update(overlaps);
    }
}

}  // namespace

CMoveScene::CMoveScene(std::vector<SPiece> pieces, const SFreeStrip& strip, double height, uint64_t nSeed)
    : m_Fields(nSeed, std::move(pieces), strip),
      m_Layout(m_Fields.Problem(), m_Fields.Table(), std::vector<SPlace>(m_Fields.Problem().Items().size())),
      m_Weights(m_Fields.Problem().Items().size()) {
    SetHeight(height);
    for (size_t nItem = 0; nItem < m_Layout.Count(); ++nItem) {
        m_Layout.Move(nItem, DrawPlace(nItem));
    }
    GrowSome(m_Weights, m_Layout.Count(), Random());
}

void CMoveScene::Put(size_t nItem, double x, double y) {
    m_Layout.Move(nItem, {{InUnits(x), InUnits(y)}, VersionsOf(nItem).front()});
}

void CMoveScene::SetHeight(double height) {
    const std::vector<SPlace> places = m_Layout.Places();
    m_Layout.Assign(places, InUnits(height));
}

const std::vector<size_t>& CMoveScene::VersionsOf(size_t nItem) const {
    return m_Fields.Problem().VersionsOf(m_Fields.Problem().Items()[nItem]);
}

bool CMoveScene::IsInRoom(const SPlace& place) const {
    return m_Layout.RoomFor(place.m_nVersion).Contains(place.m_At);
}

SPlace CMoveScene::DrawPlace(size_t nItem) {
    const std::vector<size_t>& versions = VersionsOf(nItem);
    const size_t nVersion = versions[Random().Index(versions.size())];
    const SPlaneBox& room = m_Layout.RoomFor(nVersion);
    const double right = static_cast<double>(Random().Unit());
    const double up = static_cast<double>(Random().Unit());
    const SPoint size = room.m_High - room.m_Low;
    return {room.m_Low + SPoint{size.m_X * right, size.m_Y * up}, nVersion};
}

SPoint CMoveScene::DrawAround(SPoint middle, double reach) {
    return m_Fields.DrawAround(middle, InUnits(reach));
}

CMoveScene MixedScene(uint64_t nSeed) {
    return {MixedSet(), {80.0, 1.0, 2.0}, 60.0, nSeed};
}

}  // namespace nestrix::support
