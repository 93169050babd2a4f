#include "tests/support/Chromosomes.h"

#include "ga/CDecoder.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <vector>

namespace nestrix::support {
namespace {

std::vector<int> MakeKeys(CSeededRandom& random, int nPolygons, EKeys keys) {
    std::vector<int> values(static_cast<size_t>(nPolygons), 0);
    switch (keys) {
        case EKeys::Permutation:
            std::iota(values.begin(), values.end(), 0);
            for (size_t i = values.size(); i > 1; --i) {
                std::swap(values[i - 1], values[random.Index(i)]);
            }
            break;
        case EKeys::Few:
            std::generate(values.begin(), values.end(), [&] { return random.Range(0, nPolygons / 4); });
            break;
        case EKeys::Equal:
            break;
        case EKeys::Wild:  // differences of two keys still fit an int
            std::generate(values.begin(), values.end(),
                          [&] { return random.Range(-1'000'000'000, 1'000'000'000); });
            break;
    }
    return values;
}

float MakeOffset(CSeededRandom& random, float fWidth, EOffsets offsets) {
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    switch (offsets) {
        case EOffsets::Uniform:
            return random.Between(0.0F, fWidth);
        case EOffsets::Beyond:
            return random.Between(-fWidth, 2.0F * fWidth);
        case EOffsets::Columns:
            return random.Pick({0.0F, 40.0F, fWidth});
        case EOffsets::Far:
            return 16'777'000.0F + static_cast<float>(random.Range(0, 500));
        case EOffsets::Quarters:
            return random.Quarter(0, static_cast<int>(fWidth) / 4);
        default:
            return random.Percent(80)
                       ? random.Between(0.0F, fWidth)
                       : random.Pick({INFINITE, -INFINITE, std::numeric_limits<float>::quiet_NaN()});
    }
}

int MakeIndex(CSeededRandom& random, int nOwn, int nPolygons, EIndices indices) {
    switch (indices) {
        case EIndices::Own:
            return nOwn;
        case EIndices::Shuffled:
            return random.Range(0, nPolygons - 1);
        default:
            return random.Pick({nOwn, -1, nPolygons, std::numeric_limits<int>::max(),
                                std::numeric_limits<int>::min(), nOwn});
    }
}

}  // namespace

CChromosome MakeChromosome(CSeededRandom& random, int nPolygons, float fStripWidth, EKeys keys,
                           EOffsets offsets, EIndices indices) {
    const std::vector<int> orders = MakeKeys(random, nPolygons, keys);
    CChromosome chromosome;
    chromosome.SetGeneCount(nPolygons);
    for (int i = 0; i < nPolygons; ++i) {
        SGene& gene = chromosome.m_pGenes[i];
        gene.m_nPolygon = MakeIndex(random, i, nPolygons, indices);
        gene.m_nOrder = orders[static_cast<size_t>(i)];
        gene.m_fX = MakeOffset(random, fStripWidth, offsets);
    }
    return chromosome;
}

CChromosome MakeChromosome(CSeededRandom& random, int nPolygons, float fStripWidth) {
    using enum EKeys;
    using enum EOffsets;
    const EKeys keys = random.Pick({Permutation, Permutation, Permutation, Few, Equal, Wild});
    const EOffsets offsets = random.Pick(
        {Uniform, Uniform, Uniform, Beyond, Beyond, Columns, Columns, Quarters, Quarters, Far, NotFinite});
    const EIndices indices =
        random.Percent(90) ? EIndices::Own : random.Pick({EIndices::Shuffled, EIndices::OutOfRange});
    return MakeChromosome(random, nPolygons, fStripWidth, keys, offsets, indices);
}

CChromosome MakeChromosome(std::initializer_list<SGene> genes) {
    CChromosome chromosome;
    chromosome.SetGeneCount(static_cast<int>(genes.size()));
    std::copy(genes.begin(), genes.end(), chromosome.m_pGenes);
    return chromosome;
}

float PlaceChromosome(const CContainer& container, const CChromosome& chromosome,
                      std::vector<CPolygon>& placed, CContactSink* pContacts) {
    CDecoder decoder(container.m_Polygons, container.Strip(), container.m_fTotalHeight);
    const float fFitness = decoder.Evaluate(chromosome.Genes(), pContacts);
    placed = PlacedPolygons(container.m_Polygons, decoder.Packing());
    return fFitness;
}

}  // namespace nestrix::support
