#include "ga/CChromosome.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "base/CNumericLocale.h"
#include "ga/RandomScale.h"

using namespace nestrix;

CRelaxed<float> g_MutationProbability = 0.01F;

int GeneSortCallBack(void const* a, void const* b) {
    return static_cast<SGene const*>(a)->m_nOrder - static_cast<SGene const*>(b)->m_nOrder;
}

CChromosome::CChromosome(const CChromosome& other) {
    *this = other;
}

CChromosome::CChromosome(CChromosome&& other) noexcept {
    *this = std::move(other);
}

CChromosome& CChromosome::operator=(const CChromosome& other) {
    if (m_nGenes != other.m_nGenes) {
        SGene* pGenes = other.m_nGenes > 0 ? new SGene[static_cast<size_t>(other.m_nGenes)] : nullptr;
        delete[] m_pGenes;
        m_pGenes = pGenes;
        m_nGenes = other.m_nGenes;
    }
    std::copy_n(other.m_pGenes, m_nGenes, m_pGenes);
    m_fFitness = other.m_fFitness;
    return *this;
}

CChromosome& CChromosome::operator=(CChromosome&& other) noexcept {
    std::swap(m_pGenes, other.m_pGenes);
    std::swap(m_nGenes, other.m_nGenes);
    std::swap(m_fFitness, other.m_fFitness);
    return *this;
}

void CChromosome::SetGeneCount(int n) {
    if (m_nGenes == n) {
        return;
    }
    SGene* pGenes = n > 0 ? new SGene[static_cast<size_t>(n)] : nullptr;
    delete[] m_pGenes;
    m_pGenes = pGenes;
    m_nGenes = std::max(n, 0);
    for (int j = 0; j < m_nGenes; ++j) {
        m_pGenes[j].m_nPolygon = j;
    }
}

int CChromosome::Mutate(int nOrderLow, int nOrderHigh, float fXLow, float fXHigh) {
    if (m_nGenes == 0) {
        return 0;
    }
    const int nLot = std::rand() % 1000;
    // The equality gives a probability of 0 one chance in a thousand, and p a chance of
    // (floor(1000 p) + 1) / 1000. The bias is intended. Not a number compares false and never mutates.
    if (!(1000.0 * static_cast<double>(g_MutationProbability) >= nLot)) {
        return 0;
    }
    const int nKind = std::rand();
    SGene& gene = m_pGenes[std::rand() % m_nGenes];
    const int nDraw = std::rand();
    if (nKind % 100 > 49) {
        const double range = static_cast<double>(fXHigh - fXLow);
        gene.m_fX = static_cast<float>(range * static_cast<double>(GA_RANDOM_SCALE) * nDraw +
                                       (range * -0.5 + static_cast<double>(gene.m_fX)));
    } else {
        const int nKeys = nOrderHigh - nOrderLow + 1;
        gene.m_nOrder = nKeys > 0 ? nOrderLow + nDraw % nKeys : gene.m_nOrder;
    }
    return 1;
}

void CChromosome::CrossOver(CChromosome& other, CChromosome* pChildren, int nChildren) {
    if (nChildren == 0) {
        return;
    }
    if (m_nGenes != other.m_nGenes) {
        std::puts("PANIC");
        PrintInfo();
        other.PrintInfo();
        return;
    }
    if (m_nGenes == 0) {
        return;
    }
    const int nHead = std::rand() % m_nGenes + 1;
    const auto breed = [nHead](CChromosome& child, const CChromosome& head, const CChromosome& tail) {
        child.SetGeneCount(head.m_nGenes);
        std::copy(head.m_pGenes, head.m_pGenes + nHead, child.m_pGenes);
        std::copy(tail.m_pGenes + nHead, tail.m_pGenes + tail.m_nGenes, child.m_pGenes + nHead);
        // A tripwire: it cannot print as long as parents without genes are turned away above.
        if (child.m_nGenes == 0) {
            std::puts("Erroneous Gene Found");
        }
    };
    breed(pChildren[0], *this, other);
    if (nChildren > 1) {
        breed(pChildren[1], other, *this);
    }
}

void CChromosome::PrintInfo() const {
    const CNumericLocale numericLocale;
    std::puts("Chromosome Info ---");
    std::printf("nGenes: %d\n", m_nGenes);
    std::printf("Fitness: %f\n", static_cast<double>(m_fFitness));
}
