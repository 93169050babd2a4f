#include <algorithm>
#include <cstdint>
#include <vector>

#include "fuzz/PackingInput.h"
#include "fuzz/Require.h"
#include "ga/CDecoder.h"
#include "tests/reference/Agreement.h"
#include "tests/reference/ReferencePlacement.h"
#include "tests/support/SameBits.h"

using namespace nestrix;

// A few polygons of any shape, dropped onto each other by the engine and by the plain reference.

namespace {

using fuzz::Require;
using fuzz::SPackingInput;
using support::SameBits;

/// Every polygon over every other one, both where the genes put them.
void CheckApproaches(const SPackingInput& input) {
    std::vector<CPolygon> polygons = input.m_Container.m_Polygons;
    const std::span<const SGene> genes = input.m_Chromosome.Genes();
    for (size_t i = 0; i < polygons.size(); ++i) {
        polygons[i].m_ReferencePoint.x = genes[i].m_fX;
        polygons[i].m_ReferencePoint.y = static_cast<float>(genes[i].m_nOrder);
    }
    for (CPolygon& obstacle : polygons) {
        for (const CPolygon& moving : polygons) {
            fuzz::RequireNone(reference::FindApproachDifference(moving, obstacle));
        }
    }
}

/// The engine's clamp has been applied, or not, by the input's own choice; here the two are compared.
void CheckClamp(const SPackingInput& input) {
    CChromosome engine = input.m_Chromosome;
    CChromosome plain = input.m_Chromosome;
    input.m_Container.ValidateChromosome(engine);
    reference::Clamp(plain.Genes(), input.m_Container.m_Polygons, input.m_Container.m_fContainerWidth);
    for (size_t i = 0; i < engine.Genes().size(); ++i) {
        Require(SameBits(engine.Genes()[i].m_fX, plain.Genes()[i].m_fX),
                "offsets are clamped as by the reference");
    }
}

/// One layout of a placement that may have made others before.
void CheckLayout(CDecoder& decoder, const SPackingInput& input, const CChromosome& chromosome) {
    const std::span<const SGene> genes = chromosome.Genes();
    const reference::SPlainPacking plain =
        reference::Place(genes, input.m_Container.m_Polygons, input.m_Container.m_fTotalHeight);
    Require(SameBits(decoder.Evaluate(genes), plain.m_fFitness), "the fitness is that of the reference");
    const std::vector<SPlacedPiece> drops = decoder.Packing().m_Placed;
    Require(drops.size() == plain.m_Placed.size(), "as many polygons are placed as by the reference");
    for (size_t i = 0; i < drops.size(); ++i) {
        Require(SameBits(drops[i].m_At.x, plain.m_Placed[i].m_ReferencePoint.x) &&
                    SameBits(drops[i].m_At.y, plain.m_Placed[i].m_ReferencePoint.y),
                "every polygon rests where the reference puts it");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t nBytes) {
    SPackingInput input;
    fuzz::Decode(fuzz::CByteSource({pBytes, nBytes}), input);
    Require(SameBits(input.m_Container.m_fTotalHeight, reference::TotalHeight(input.m_Container.m_Polygons)),
            "the stacked height is that of the reference");
    CheckClamp(input);
    CheckApproaches(input);
    fuzz::RequireNone(reference::FindPlacementDifference(input.m_Container, input.m_Chromosome));

    CDecoder decoder(input.m_Container.m_Polygons, SStrip{input.m_Container.m_fContainerWidth},
                     input.m_Container.m_fTotalHeight);
    CheckLayout(decoder, input, input.m_Chromosome);
    // Once more the other way round: nothing of the layout before may be left.
    CChromosome other = input.m_Chromosome;
    for (SGene& gene : other.Genes()) {
        gene.m_nOrder = -gene.m_nOrder;
    }
    CheckLayout(decoder, input, other);
    return 0;
}
