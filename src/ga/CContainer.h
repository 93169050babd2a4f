#pragma once

#include <vector>

#include "base/CRelaxed.h"
#include "ga/CChromosome.h"
#include "ga/CSearchSink.h"
#include "ga/CSearchState.h"
#include "ga/CStatisticsQueue.h"
#include "geom/Geom.h"
#include "packing/SStrip.h"

class CPolyDisplay;
class wxEvtHandler;

/// The id of the progress event: a wxCommandEvent of type wxEVT_COMMAND_MENU_SELECTED whose integer is the
/// number of the generation that is done, 0 for the first. No control or menu item may have this id.
inline constexpr int ID_GENERATION_DONE = 200;

/// The face of the genetic search: the polygon set, the strip, the search's state and its operations by their
/// own names. The strip spans x from 0 to m_fContainerWidth, its floor is y = 0.
///
/// Order of use: AddPolygon for each file, then RunGA (or RunSearch without a window). Clear before
/// another run.
///
/// Threads: one thread searches. Meanwhile any other may write m_bStop, m_bAbandoned and
/// g_MutationProbability, read the relaxed scalars and the polygon set, and call PopulationSize,
/// CopyBestChromosome and EvaluateFitnessValue; the one that handles the search's notices may call
/// TakeStatistics. Nothing else may be touched until the search has returned.
class CContainer : public nestrix::CSearchState {
public:
    /// Loads one polygon file into the set. On failure says so on standard output, leaves the set as it is
    /// and returns false.
    bool AddPolygon(char const* path);

    /// Empties the polygon set and the population, before another run. The best chromosome and the
    /// statistics stay until that run resets them.
    void Clear();

    /// Computes m_fTotalHeight and appends nPopulation fresh chromosomes to the population.
    void PrepareEverything(unsigned int nPopulation);

    /// Clamps every gene's offset into the strip: see nestrix::ClampIntoStrip.
    void ValidateChromosome(CChromosome& chromosome) const;

    /// Appends to `collidable` copies of those placed polygons that the falling polygon can touch: the
    /// bounding boxes' x ranges overlap or touch, and the placed one lies neither above it nor below the
    /// floor.
    void GetCollidablePolygonList(CPolygon const& polygon, std::vector<CPolygon> const& placed,
                                  std::vector<CPolygon>& collidable) const;

    /// Builds the packing of the chromosome into `placed`, cleared first, and returns its fitness: the height
    /// of all polygons in one column, as PrepareEverything left it, less the height that the packing reaches.
    /// Bigger is better. Does not write the chromosome's fitness. With the window's library only.
    ///
    /// @param bRecordContacts whether to append each contact to the markers of m_pContactDisplay, if any.
    float EvaluateFitnessValue(CChromosome const& chromosome, std::vector<CPolygon>& placed,
                               bool bRecordContacts);

    /// The roulette: see nestrix::DrawEntry.
    /// @param pShares fractions that add up to about 1, one for each of nShares entries.
    /// @return the entry's index, or −1, after a line on standard output, if the wheel fell short of the
    /// draw.
    int RandomEventCore(float* pShares, int nShares);

    /// As RandomEventCore; for nExclude ≥ 0 that entry is left out: see nestrix::DrawEntryExcept.
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
    /// With the window's library only.
    void RunGA(int nPopulation, int nGenerations);

    /// RunGA with a given seed and any listener, which alone is asked when to end: m_bStop and m_bAbandoned
    /// are neither read nor written. The same seed gives the same history.
    void RunSearch(int nPopulation, int nGenerations, unsigned int nSeed, nestrix::CSearchSink& sink);

    /// The statistics as they were when this generation ended, once for each of RunGA's notices, in their
    /// order; for any other generation, or for a receiver that is far behind, as they are now. For whoever
    /// handles the notices.
    [[nodiscard]] nestrix::SGenerationStatistics TakeStatistics(int nGeneration);

    [[nodiscard]] nestrix::SStrip Strip() const { return {m_fContainerWidth, m_fContainerHeight}; }

    CPolyDisplay* m_pContactDisplay = nullptr;     ///< receives contact markers; may be null
    wxEvtHandler* m_pEventHandler = nullptr;       ///< receives progress events; null means none
    nestrix::CRelaxed<bool> m_bStop = false;       ///< the request to stop
    nestrix::CRelaxed<bool> m_bAbandoned = false;  ///< the request to leave at once; only its owner clears it
    float m_fContainerWidth = nestrix::SStrip().m_fWidth;
    float m_fContainerHeight = nestrix::SStrip().m_fHeight;  ///< for the window; the search never reads it
    nestrix::CRelaxed<float> m_fTotalHeight = 0.0F;          ///< of all bounding boxes stacked in one column
    std::vector<CPolygon> m_Polygons;                        ///< in the order of the files; genes index it
    float m_fCullThreshold = 0.7F;  ///< the user's setting; deliberately read by no step of the search

private:
    nestrix::CStatisticsQueue m_Reported;  ///< of the generations whose notices have been posted
};
