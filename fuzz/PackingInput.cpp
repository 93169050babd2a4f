#include "fuzz/PackingInput.h"

#include <array>
#include <limits>

#include "tests/support/PolygonMaking.h"

namespace nestrix::fuzz {
namespace {

constexpr size_t MAX_POLYGONS = 8;
constexpr size_t MAX_VERTICES = 60;

constexpr float INFINITE = std::numeric_limits<float>::infinity();

constexpr std::array WIDTHS = {400.0F, 50.0F,  120.0F, 10.0F, 1000.0F, 0.0F,
                               -50.0F, 1e-30F, 1e17F,  3e38F, 1e-39F};

constexpr std::array SPECIAL_VALUES = {0.0F,
                                       -0.0F,
                                       1.0F,
                                       -1.0F,
                                       20.0F,
                                       50.0F,
                                       std::numeric_limits<float>::denorm_min(),
                                       std::numeric_limits<float>::epsilon(),
                                       16777216.0F,
                                       1e18F,
                                       -1e18F,
                                       std::numeric_limits<float>::max(),
                                       std::numeric_limits<float>::lowest(),
                                       INFINITE,
                                       -INFINITE,
                                       std::numeric_limits<float>::quiet_NaN()};

/// Coarse numbers make corners and sides line up, which random ones never do.
float Number(CByteSource& bytes, size_t nKind) {
    switch (nKind) {
        case 0:
            return static_cast<float>(bytes.SignedByte());
        case 1:
            return static_cast<float>(bytes.SignedByte() / 16 * 10);
        case 2:
            return static_cast<float>(bytes.SignedByte()) * 0.25F;
        case 3:
            return static_cast<float>(bytes.SignedByte() * 256 + bytes.Byte()) / 300.0F;
        case 4:
            return 1e7F + static_cast<float>(bytes.SignedByte());
        case 5:
            return static_cast<float>(bytes.SignedByte()) * 1e16F;
        case 6:
            return SPECIAL_VALUES[bytes.Below(SPECIAL_VALUES.size())];
        default:
            return bytes.AnyFloat();
    }
}

mgVector3 Point(CByteSource& bytes, size_t nKind) {
    const float fX = Number(bytes, nKind);
    return {fX, Number(bytes, nKind), 0.0F};
}

CPolygon Polygon(CByteSource& bytes, const std::vector<CPolygon>& before) {
    const uint8_t nForm = bytes.Byte();
    const size_t nKind = nForm & 7U;
    if ((nForm & 0x30U) == 0x30U && !before.empty()) {
        return before.back();
    }
    support::Outline outline;
    for (size_t nLeft = bytes.Below(MAX_VERTICES + 1); nLeft > 0; --nLeft) {
        outline.push_back(Point(bytes, nKind));
    }
    if ((nForm & 8U) == 0) {
        return support::MakePolygon(outline);
    }
    const mgVector3 low = Point(bytes, nKind);
    return support::MakePolygon(outline, low, Point(bytes, nKind));
}

void Decode(CByteSource& bytes, std::span<SGene> genes, bool bChosen) {
    for (SGene& gene : genes) {
        gene.m_nOrder = bytes.SignedByte();
        const size_t nKind = bytes.Below(8);
        gene.m_fX = Number(bytes, nKind);
        if (bChosen) {
            gene.m_nPolygon = static_cast<int>(bytes.Below(genes.size() + 2)) - 1;
        }
    }
}

}  // namespace

void Decode(CByteSource bytes, SPackingInput& input) {
    input.m_Container.m_fContainerWidth = WIDTHS[bytes.Below(WIDTHS.size())];
    std::vector<CPolygon>& polygons = input.m_Container.m_Polygons;
    for (size_t nLeft = 1 + bytes.Below(MAX_POLYGONS); nLeft > 0; --nLeft) {
        polygons.push_back(Polygon(bytes, polygons));
    }
    input.m_Container.PrepareEverything(1);
    input.m_Chromosome = input.m_Container.m_Population.front();
    const uint8_t nForm = bytes.Byte();
    Decode(bytes, input.m_Chromosome.Genes(), (nForm & 2U) != 0);
    if ((nForm & 1U) == 0) {
        input.m_Container.ValidateChromosome(input.m_Chromosome);
    }
}

}  // namespace nestrix::fuzz
