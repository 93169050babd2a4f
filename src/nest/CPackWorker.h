#pragma once

#include <memory>
#include <span>
#include <vector>

#include "nest/CCompactor.h"
#include "nest/CExchange.h"
#include "nest/CIncumbent.h"
#include "nest/CLayout.h"
#include "nest/CRandom.h"
#include "nest/CSeparator.h"
#include "nest/CStepCounter.h"

namespace nestrix {

/// One thread of a search. Makes the strip lower than the best packing, separates what overlaps then, and
/// begins again: first in large steps from whatever there is, then by turns exploring (after a failure from
/// layouts that were disturbed) and compressing the best packing in ever smaller steps.
class CPackWorker {
public:
    /// @param first a valid packing: a placement for each item.
    CPackWorker(const CPackProblem& problem, CFieldTable& fields, std::span<const SFreePlacement> first,
                CIncumbent& incumbent, CExchange& exchange, CStepLimit& limit, size_t nWorker,
                uint64_t nSeed);

    /// Returns when the steps are used up.
    void Run();

    /// The best packing that it knows, certified.
    [[nodiscard]] SFreePacking Best() const { return PackingOf(m_pBest->m_Places); }

private:
    /// A layout that could not be separated.
    struct SFailure {
        double m_Overlap;
        std::vector<SPlace> m_Places;
    };

    void Squeeze();
    void Explore();
    void Compress();

    bool Separate(std::span<const SPlace> places, double height, const SPatience& patience);
    bool TakeLayout();
    bool Take(std::vector<SPlace> places);
    void Learn();

    [[nodiscard]] std::vector<SPlace> Lowered(std::vector<SPlace> places, double height) const;
    [[nodiscard]] std::vector<SPlace> Cut(double height);
    [[nodiscard]] std::vector<SPlace> Disturbed(std::vector<SPlace> places, double height);
    void Remember(std::vector<SFailure>& failures);
    [[nodiscard]] double HeightOf(std::span<const SPlace> places) const;
    [[nodiscard]] SFreePacking PackingOf(std::span<const SPlace> places) const;

    const CPackProblem& m_Problem;
    CIncumbent& m_Incumbent;
    CRandom m_Random;
    std::shared_ptr<const SSolution> m_pBest;   ///< its own, or one learnt from others
    std::shared_ptr<const SSolution> m_pShown;  ///< the best of all workers when they last met
    CStepCounter m_Steps;
    CLayout m_Layout;
    CSeparator m_Separator;
    CCompactor m_Compactor;
    size_t m_nWorkers;
    double m_MostOverlap = 0.0;        ///< of layouts that are worth a compaction
    std::vector<size_t> m_LargeFirst;  ///< the items by area
};

}  // namespace nestrix
