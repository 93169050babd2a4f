#pragma once

#include <memory>
#include <mutex>
#include <span>
#include <vector>

#include "CChromosome.h"
#include "CRelaxed.h"
#include "CStatisticsQueue.h"
#include "Geom.h"

class CPolyDisplay;
class wxEvtHandler;

/// The id of the progress event: a wxCommandEvent of type wxEVT_COMMAND_MENU_SELECTED whose integer is the
/// number of the generation that is done, 0 for the first. No control or menu item may have this id.
inline constexpr int ID_GENERATION_DONE = 200;

/// Hears of each generation of a search, on the search's own thread, once all its statistics are written.
class CGenerationSink {
public:
    virtual void GenerationDone(int nGeneration) = 0;

protected:
    ~CGenerationSink() = default;
};

/// Hears where each dropped polygon comes to rest, in world coordinates and in drop order.
class CContactSink {
public:
    virtual void ContactFound(const mgVector3& contact) = 0;

protected:
    ~CContactSink() = default;
};

/// The genetic search's state: the polygon set, the strip, the population, the best chromosome so far and the
/// statistics. The strip spans x from 0 to m_fContainerWidth, its floor is y = 0.
///
/// Order of use: AddPolygon for each file, then RunGA (or RunSearch without a window). Clear before
/// another run.
///
/// Threads: one thread searches. Meanwhile any other may write m_bStop, m_bAbandoned and
/// g_MutationProbability, read the relaxed scalars and the polygon set, and call PopulationSize,
/// CopyBestChromosome and EvaluateFitnessValue; the one that handles the search's notices may call
/// TakeStatistics. Nothing else may be touched until the search has returned.
class CContainer {
public:
    /// Loads one polygon file into the set. On failure says so on standard output, leaves the set as it is
    /// and returns false.
    bool AddPolygon(char const* path);

    /// Empties the polygon set and the population, before another run. The best chromosome and the
    /// statistics stay until that run resets them.
    void Clear();

    /// Computes m_fTotalHeight and appends nPopulation fresh chromosomes to the population.
    void PrepareEverything(unsigned int nPopulation);

    /// Clamps every gene's offset into the strip. The right edge comes second, deliberately: a polygon wider
    /// than the strip ends up flush right and sticks out on the left. Genes of unknown polygons are skipped.
    void ValidateChromosome(CChromosome& chromosome) const;

    /// Appends to `collidable` copies of those placed polygons that the falling polygon can touch: the
    /// bounding boxes' x ranges overlap or touch, and the placed one lies neither above it nor below the
    /// floor.
    void GetCollidablePolygonList(CPolygon const& polygon, std::vector<CPolygon> const& placed,
                                  std::vector<CPolygon>& collidable) const;

    /// Builds the packing of the chromosome into `placed`, cleared first, and returns its fitness: the height
    /// of all polygons in one column less the height that the packing reaches. Bigger is better.
    ///
    /// Each polygon falls straight down from above everything placed until it rests on the floor or on a
    /// polygon placed before it. Does not write the chromosome's fitness.
    ///
    /// @param bRecordContacts whether to append each contact to the markers of m_pContactDisplay, if any.
    float EvaluateFitnessValue(CChromosome const& chromosome, std::vector<CPolygon>& placed,
                               bool bRecordContacts);

    /// EvaluateFitnessValue for callers without a window: contacts go to the sink, which may be null.
    float PlaceChromosome(CChromosome const& chromosome, std::vector<CPolygon>& placed,
                          CContactSink* pContacts) const;

    /// The roulette: draws one of nShares entries in proportion to its share.
    ///
    /// Each slice of the wheel is one percentage point wider at its upper end than its share, at the expense
    /// of the next entry; shares that are not numbers give entry 0. Both are deliberate.
    ///
    /// @param pShares fractions that add up to about 1.
    /// @return the entry's index, or −1, after a line on standard output, if the wheel fell short of the
    /// draw.
    int RandomEventCore(float* pShares, int nShares);

    /// As RandomEventCore; for nExclude ≥ 0 that entry is left out and the others are scaled to add up to 1.
    /// The result then indexes the shortened list and is deliberately not translated back, so the second
    /// parent may equal the first, and the last chromosome is never a second parent.
    int RandomEvent(float* pShares, int nShares, int nExclude);

    /// Gives every chromosome of the population a random drop order without ties and random offsets.
    void RandomlyGenerateFirstGeneration();

    /// The whole search, seeded with the clock: a first generation and nGenerations more. Posts one progress
    /// event per generation to m_pEventHandler and prints the progress lines. Returns after the last
    /// generation, or soon after m_bStop was set; it clears the flag itself when it begins.
    ///
    /// Returns much sooner after m_bAbandoned was set: within a placement, and without another event or line.
    /// The best chromosome and its fitness are then the best of what was placed, if anything was; all else is
    /// good for nothing but Clear.
    ///
    /// An event handler that lags behind slows the search down, one that handles nothing does not stop it.
    void RunGA(int nPopulation, int nGenerations);

    /// RunGA with a given seed and any listener. The same seed gives the same history.
    void RunSearch(int nPopulation, int nGenerations, unsigned int nSeed, CGenerationSink& sink);

    /// The size of the population. Any thread, at any time.
    [[nodiscard]] int PopulationSize() const { return m_nPopulationSize; }

    /// The statistics as they were when this generation ended, once for each of RunGA's notices, in their
    /// order; for any other generation, or for a receiver that is far behind, as they are now. For whoever
    /// handles the notices.
    [[nodiscard]] SGenerationStatistics TakeStatistics(int nGeneration);

    /// A whole copy of the best chromosome. Any thread, at any time; waits at most for another copy.
    [[nodiscard]] CChromosome CopyBestChromosome() const;

    CPolyDisplay* m_pContactDisplay = nullptr;  ///< receives contact markers; may be null
    wxEvtHandler* m_pEventHandler = nullptr;    ///< receives progress events; null means none
    CRelaxed<bool> m_bStop = false;             ///< the request to stop
    CRelaxed<bool> m_bAbandoned = false;        ///< the request to leave at once; only its owner clears it
    float m_fContainerWidth = 400.0F;
    float m_fContainerHeight = 600.0F;         ///< for the window; the search never reads it
    CRelaxed<float> m_fTotalHeight = 0.0F;     ///< of all bounding boxes stacked in one column
    CRelaxed<float> m_fAverageFitness = 0.0F;  ///< of the current population
    std::vector<CPolygon> m_Polygons;          ///< in the order of the files; genes index it
    std::vector<CChromosome> m_Population;     ///< the current generation
    CChromosome
        m_BestChromosome;  ///< the fittest of this run; while a search runs, read a CopyBestChromosome
    CRelaxed<float> m_fBestFitness = 0.0F;   ///< highest of this run
    CRelaxed<float> m_fWorstFitness = 0.0F;  ///< lowest of this run
    float m_fCullThreshold = 0.7F;  ///< the user's setting; deliberately read by no step of the search

private:
    friend class CGeneticSearch;

    void ReplaceBestChromosome(const CChromosome& chromosome);

    CRelaxed<int> m_nPopulationSize = 0;
    CStatisticsQueue m_Reported;     ///< of the generations whose notices have been posted
    mutable std::mutex m_BestGuard;  ///< held while m_BestChromosome is replaced or copied, never longer
};

/// Compares two SGene records by order key, for qsort.
int GeneSortCallBack(void const* a, void const* b);
