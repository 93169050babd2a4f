#pragma once

#include <cstdio>
#include <span>

#include "base/CRelaxed.h"

/// When and where one polygon is dropped.
struct SGene {
    int m_nPolygon = 0;  ///< index in the polygon set; equals the gene's own position
    int m_nOrder = 0;    ///< order key: polygons are dropped in ascending order, ties are allowed
    float m_fX = 0.0F;   ///< x of the polygon's reference point in the strip

    friend bool operator==(const SGene&, const SGene&) = default;
};

/// Compares two SGene records by order key, for qsort.
int GeneSortCallBack(void const* a, void const* b);

/// The chance that Mutate changes a gene, 0 .. 1. The window writes it while a search runs.
extern nestrix::CRelaxed<float> g_MutationProbability;

/// One candidate solution: a gene per polygon. Random keys: gene i always belongs to polygon i, so crossover
/// and mutation can neither duplicate nor lose one; sorting by order key gives the drop order.
/// (J. C. Bean, "Genetic algorithms and random keys for sequencing and optimization", 1994.)
///
/// Owns its genes; copies are deep. Not shared between threads without a guard.
class CChromosome {
public:
    CChromosome() = default;
    CChromosome(const CChromosome& other);
    CChromosome(CChromosome&& other) noexcept;
    /// Keeps its gene array where the counts are equal, so that a population is rewritten without allocating.
    CChromosome& operator=(const CChromosome& other);
    CChromosome& operator=(CChromosome&& other) noexcept;
    ~CChromosome() {
        delete[] m_pGenes;
        m_nGenes = 0;
    }

    /// Makes n indexed genes, zero otherwise; genes are kept where n is the count already. The fitness stays.
    void SetGeneCount(int n);

    /// Changes at most one gene: its offset by up to half of [fXLow, fXHigh] either way, unclamped, or its
    /// order key to one of nOrderLow .. nOrderHigh; if there are none, it stays. Draws from the C library's
    /// rand().
    /// @return 1 if it chose a gene to mutate, 0 if not (a chromosome without genes never does, and draws
    /// nothing).
    int Mutate(int nOrderLow, int nOrderHigh, float fXLow, float fXHigh);

    /// Single-point crossover of this and `other` into pChildren[0] and, for nChildren = 2, pChildren[1];
    /// the fitness of the children is not written. Draws once from rand().
    ///
    /// Parents of different lengths are reported on standard output and, like parents without genes, leave
    /// the children as they were.
    void CrossOver(CChromosome& other, CChromosome* pChildren, int nChildren);

    void PrintInfo() const;

    [[nodiscard]] std::span<SGene> Genes() { return {m_pGenes, static_cast<size_t>(m_nGenes)}; }
    [[nodiscard]] std::span<const SGene> Genes() const { return {m_pGenes, static_cast<size_t>(m_nGenes)}; }

    SGene* m_pGenes = nullptr;  ///< owned; null when empty
    int m_nGenes = 0;
    float m_fFitness = 0.0F;  ///< of the last evaluation, bigger is better; 0 until then
};
