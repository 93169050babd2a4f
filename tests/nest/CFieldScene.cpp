#include "tests/nest/CFieldScene.h"

#include <utility>

#include "packing/PointVectors.h"

namespace nestrix::support {

CFieldScene::CFieldScene(uint64_t nSeed, std::vector<SPiece> pieces, const SFreeStrip& strip)
    : m_Pieces(std::move(pieces)), m_Problem(m_Pieces, strip, true), m_Table(m_Problem), m_Random(nSeed) {}

SPoint CFieldScene::DrawAround(SPoint middle, double reach) {
    const double x = static_cast<double>(m_Random.Between(-1.0F, 1.0F)) * reach;
    return middle + SPoint{x, static_cast<double>(m_Random.Between(-1.0F, 1.0F)) * reach};
}

}  // namespace nestrix::support
