#include "nest/CPackWorker.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace nestrix {

namespace {

// All of these were measured over instances and seeds: docs/packing-freely.md.

/// The first shares by which the strip is made lower, and the last ones.
constexpr double FIRST_SQUEEZE = 0.1;
constexpr double LAST_SQUEEZE = 0.002;
constexpr SPatience SQUEEZING{40, 1};

/// Layouts that overlap more than so much of the items' size on an average are not compacted.
constexpr double MOST_OVERLAP_SHARE = 0.1;

/// Of more items than this a compaction takes long: it waits for less overlap, and then each time until the
/// overlap has become so much less.
constexpr size_t FEW_ITEMS = 64;
constexpr double MOST_OVERLAP_SHARE_OF_MANY = 0.003;
constexpr double NEXT_TRY = 0.5;

/// How far the items move in one compaction, as a share of their size; how many compactions follow each
/// other, as long as they gain; and what overlap must become for another try to take the rest apart.
constexpr double REACH_SHARE = 0.1;
constexpr int COMPACTIONS = 8;
constexpr int COMPACTIONS_OF_MANY = 3;
constexpr double STILL_LESS = 0.7;

/// Exploring asks for a strip lower by a share between these. More than one compaction away, a packing is
/// found on the way more often than by asking for little.
constexpr SPatience EXPLORING{200, 3};
constexpr double SHORTEST_STEP = 0.001;
constexpr double LONGEST_STEP = 0.02;
constexpr int MOST_FAILURES = 30;  ///< in a row; then compressing has its turn
constexpr size_t MOST_FAILURES_KEPT = 20;

constexpr SPatience COMPRESSING{100, 2};
constexpr double FIRST_COMPRESSION = 0.0005;
constexpr double LAST_COMPRESSION = 0.00002;
constexpr double NEXT_COMPRESSION = 0.7;
constexpr int COMPRESSION_TRIES = 5;

/// Less than this share is no gain.
constexpr double LEAST_GAIN = 1e-5;

std::vector<SPlace> PlacesOf(const CPackProblem& problem, std::span<const SFreePlacement> placed) {
    std::vector<SPlace> places;
    for (const SFreePlacement& placement : placed) {
        const size_t nVersion = *problem.FindVersion(static_cast<size_t>(placement.m_nPiece),
                                                     placement.m_Degrees, placement.m_bMirrored);
        const SGridPoint at = placement.m_At + problem.Versions()[nVersion].m_Reference;
        places.push_back({{static_cast<double>(at.m_nX), static_cast<double>(at.m_nY)}, nVersion});
    }
    return places;
}

}  // namespace

CPackWorker::CPackWorker(const CPackProblem& problem, CFieldTable& fields,
                         std::span<const SFreePlacement> first, CIncumbent& incumbent, CExchange& exchange,
                         CStepLimit& limit, size_t nWorker, uint64_t nSeed)
    : m_Problem(problem),
      m_Incumbent(incumbent),
      m_Random(nSeed),
      m_pBest(std::make_shared<SSolution>(SSolution{0.0, PlacesOf(problem, first)})),
      m_Steps(limit, nWorker, CExchange::STEPS,
              [this, &exchange, nWorker] { m_pShown = exchange.Meet(nWorker, m_pBest); }),
      m_Layout(problem, fields, m_pBest->m_Places),
      m_Separator(m_Layout, m_Random, m_Steps),
      m_Compactor(problem),
      m_nWorkers(limit.Workers()) {
    m_pBest = std::make_shared<SSolution>(SSolution{HeightOf(m_pBest->m_Places), m_pBest->m_Places});
    m_pShown = m_pBest;
    const double share = first.size() > FEW_ITEMS ? MOST_OVERLAP_SHARE_OF_MANY : MOST_OVERLAP_SHARE;
    m_MostOverlap = share * std::sqrt(problem.TotalArea() * static_cast<double>(first.size()));
    for (size_t i = 0; i < first.size(); ++i) {
        m_LargeFirst.push_back(i);
    }
    std::stable_sort(m_LargeFirst.begin(), m_LargeFirst.end(), [&](size_t a, size_t b) {
        return problem.AreaOf(problem.Items()[a]) > problem.AreaOf(problem.Items()[b]);
    });
}

void CPackWorker::Run() {
    Squeeze();
    while (!m_Steps.IsOver()) {
        Explore();
        Compress();
    }
}

void CPackWorker::Squeeze() {
    for (double share = FIRST_SQUEEZE; share >= LAST_SQUEEZE && !m_Steps.IsOver();) {
        const double height = m_pBest->m_Height * (1.0 - share);
        if (!Separate(Lowered(m_pBest->m_Places, height), height, SQUEEZING)) {
            share /= 2.0;
        }
    }
}

void CPackWorker::Explore() {
    int nFails = 0;
    while (nFails < MOST_FAILURES && !m_Steps.IsOver()) {
        Learn();
        std::vector<SPlace> from = m_pBest->m_Places;
        std::vector<SFailure> failures;
        while (nFails < MOST_FAILURES && !m_Steps.IsOver()) {
            // Small steps more often: the square of a random number.
            const double longest = LONGEST_STEP - SHORTEST_STEP;
            const double share = SHORTEST_STEP + longest * m_Random.Share() * m_Random.Share();
            const double height = m_pBest->m_Height * (1.0 - share);
            if (Separate(Lowered(from, height), height, EXPLORING)) {
                nFails = 0;
                break;
            }
            ++nFails;
            Remember(failures);
            // The better ones more often: the cube of a random number is mostly small.
            const double rank = m_Random.Share() * m_Random.Share() * m_Random.Share();
            const auto nFailure = static_cast<size_t>(rank * static_cast<double>(failures.size()));
            from = Disturbed(failures[nFailure].m_Places, height);
        }
    }
}

void CPackWorker::Compress() {
    for (double share = FIRST_COMPRESSION; share > LAST_COMPRESSION && !m_Steps.IsOver();) {
        bool bGain = false;
        for (int i = 0; i < COMPRESSION_TRIES && !bGain && !m_Steps.IsOver(); ++i) {
            Learn();
            const double height = m_pBest->m_Height * (1.0 - share);
            bGain = Separate(Cut(height), height, COMPRESSING);
        }
        share *= bGain ? 1.0 : NEXT_COMPRESSION;
    }
}

/// Separates the layout in a strip of this height. On the way, layouts that overlap little are compacted:
/// what comes out may be lower than the best, though not as low as was asked for.
/// @return whether there is a better packing now.
bool CPackWorker::Separate(std::span<const SPlace> places, double height, const SPatience& patience) {
    // An attempt is a step by itself: where nothing overlaps, there are no others.
    if (!m_Steps.Take()) {
        return false;
    }
    const double before = m_pBest->m_Height * (1.0 - LEAST_GAIN);
    m_Layout.Assign(places, height);
    double tried = m_MostOverlap;
    const auto improved = [&](double overlap) {
        if (overlap > tried) {
            return false;
        }
        tried = m_Layout.Count() > FEW_ITEMS ? overlap * NEXT_TRY : m_MostOverlap;
        return TakeLayout() && m_pBest->m_Height < before;
    };
    if (m_Separator.Separate(patience, improved)) {
        (void)TakeLayout();
    }
    return m_pBest->m_Height < before;
}

/// Compacts the layout, as long as that gains, and keeps it if it is the best.
/// @return whether it could be made valid.
bool CPackWorker::TakeLayout() {
    std::vector<SPlace> places = m_Layout.Places();
    const double reach =
        REACH_SHARE * std::sqrt(m_Problem.TotalArea() / static_cast<double>(m_Layout.Count()));
    const int nRounds = m_Layout.Count() > FEW_ITEMS ? COMPACTIONS_OF_MANY : COMPACTIONS;
    bool bValid = false;
    double overlap = HUGE_VAL;
    for (int i = 0; i < nRounds; ++i) {
        std::optional<CCompactor::SResult> compacted = m_Compactor.Compact(places, reach);
        if (!compacted) {
            break;
        }
        const double before = HeightOf(places);
        places = std::move(compacted->m_Places);
        if (compacted->m_Overlap > 0.0) {
            if (compacted->m_Overlap > STILL_LESS * overlap || bValid) {
                break;
            }
            overlap = compacted->m_Overlap;
            continue;
        }
        if (!Take(places)) {
            break;
        }
        if (bValid && HeightOf(places) >= before * (1.0 - LEAST_GAIN)) {
            break;
        }
        bValid = true;
    }
    return bValid;
}

/// Keeps a packing if it is the best.
/// @return whether it is valid.
bool CPackWorker::Take(std::vector<SPlace> places) {
    const double height = HeightOf(places);
    if (height >= m_pBest->m_Height) {
        return true;  // of no use, valid or not
    }
    const SFreePacking packing = PackingOf(places);
    if (!m_Incumbent.Offer(packing, m_Steps.Steps() * m_nWorkers)) {
        return false;
    }
    if (m_Incumbent.IsLowEnough(packing)) {
        m_Steps.Finish();
    }
    m_pBest = std::make_shared<SSolution>(SSolution{height, std::move(places)});
    return true;
}

/// Takes over what another worker showed, if it is better.
void CPackWorker::Learn() {
    if (m_pShown->m_Height < m_pBest->m_Height) {
        m_pBest = m_pShown;
    }
}

/// Puts what sticks out of a lower strip back into it.
std::vector<SPlace> CPackWorker::Lowered(std::vector<SPlace> places, double height) const {
    const SGridStrip& strip = m_Problem.Strip();
    for (SPlace& place : places) {
        const SGridBox& box = m_Problem.Versions()[place.m_nVersion].m_Box;
        const double right = static_cast<double>(strip.m_nWidth - strip.m_nMargin - box.m_High.m_nX);
        const double left = static_cast<double>(strip.m_nMargin - box.m_Low.m_nX);
        const double high = height - static_cast<double>(box.m_High.m_nY);
        const double low = static_cast<double>(strip.m_nMargin - box.m_Low.m_nY);
        place.m_At = {std::max(left, std::min(place.m_At.m_X, right)),
                      std::max(low, std::min(place.m_At.m_Y, high))};
    }
    return places;
}

/// The best packing with all that is above some level moved down, to fit a lower strip.
std::vector<SPlace> CPackWorker::Cut(double height) {
    std::vector<SPlace> places = m_pBest->m_Places;
    const double level = m_Random.Between(0.0, m_pBest->m_Height);
    for (SPlace& place : places) {
        place.m_At.m_Y -= place.m_At.m_Y > level ? m_pBest->m_Height - height : 0.0;
    }
    return Lowered(std::move(places), height);
}

/// Exchanges two large items of different pieces.
std::vector<SPlace> CPackWorker::Disturbed(std::vector<SPlace> places, double height) {
    constexpr int TRIES = 50;
    const size_t nLarge = std::max<size_t>(2, m_LargeFirst.size() / 2);
    for (int i = 0; i < TRIES; ++i) {
        const size_t a = m_LargeFirst[m_Random.Index(nLarge)];
        const size_t b = m_LargeFirst[m_Random.Index(nLarge)];
        if (m_Problem.Items()[a] != m_Problem.Items()[b]) {
            std::swap(places[a].m_At, places[b].m_At);
            break;
        }
    }
    return Lowered(std::move(places), height);
}

void CPackWorker::Remember(std::vector<SFailure>& failures) {
    const double overlap = m_Separator.MeasureOverlap();
    const auto place =
        std::upper_bound(failures.begin(), failures.end(), overlap,
                         [](double value, const SFailure& failure) { return value < failure.m_Overlap; });
    failures.insert(place, {overlap, m_Layout.Places()});
    if (failures.size() > MOST_FAILURES_KEPT) {
        failures.pop_back();
    }
}

double CPackWorker::HeightOf(std::span<const SPlace> places) const {
    double height = 0.0;
    for (const SPlace& place : places) {
        const double top = static_cast<double>(m_Problem.Versions()[place.m_nVersion].m_Box.m_High.m_nY);
        height = std::max(height, place.m_At.m_Y + top);
    }
    return height;
}

SFreePacking CPackWorker::PackingOf(std::span<const SPlace> places) const {
    std::vector<SFreePlacement> placed;
    placed.reserve(places.size());
    for (size_t i = 0; i < places.size(); ++i) {
        const SGridPoint at{static_cast<int64_t>(places[i].m_At.m_X),
                            static_cast<int64_t>(places[i].m_At.m_Y)};
        placed.push_back(m_Problem.PlacementOf(i, places[i].m_nVersion, at));
    }
    return m_Problem.PackingOf(placed);
}

}  // namespace nestrix
