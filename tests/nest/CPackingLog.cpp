#include "tests/nest/CPackingLog.h"

#include <gtest/gtest.h>

namespace nestrix::support {

SPackResult PackAndExamine(std::span<const SPiece> pieces, const SFreeStrip& strip,
                           const SPackSettings& settings) {
    CPackingLog log;
    SPackResult result = PackFreely(pieces, strip, settings, log);
    EXPECT_TRUE(result.m_Packing);
    if (!result.m_Packing) {
        return result;
    }
    const std::vector<SFreePacking>& packings = log.Packings();
    EXPECT_FALSE(packings.empty());
    for (size_t i = 0; i < packings.size(); ++i) {
        EXPECT_EQ(FaultOf(pieces, packings[i]), "") << "report " << i;
        EXPECT_TRUE(i == 0 || packings[i].m_nHeight < packings[i - 1].m_nHeight) << "report " << i;
        EXPECT_DOUBLE_EQ(log.Progress()[i].m_Density, DensityOf(pieces, packings[i]));
    }
    EXPECT_EQ(FaultOf(pieces, *result.m_Packing), "");
    EXPECT_EQ(result.m_Packing->m_nHeight, packings.back().m_nHeight);
    return result;
}

double HeightOf(const SPackResult& result) {
    return result.m_Packing ? result.m_Packing->m_Grid.Length(result.m_Packing->m_nHeight) : -1.0;
}

}  // namespace nestrix::support
