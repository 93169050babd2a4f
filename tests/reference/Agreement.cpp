#include "tests/reference/Agreement.h"

#include <cstdio>
#include <cstdlib>

#include "ga/CDecoder.h"
#include "tests/reference/CReferenceSearch.h"
#include "tests/reference/ReferenceGeometry.h"
#include "tests/reference/ReferencePlacement.h"
#include "tests/support/CContactLog.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/SameBits.h"

namespace nestrix::reference {
namespace {

using support::SameBits;

std::string Differs(const char* pWhat, float fEngine, float fReference) {
    char text[200];
    std::snprintf(text, sizeof text, "%s: the engine has %a (%.9g), the reference %a (%.9g)", pWhat,
                  static_cast<double>(fEngine), static_cast<double>(fEngine), static_cast<double>(fReference),
                  static_cast<double>(fReference));
    return text;
}

bool Same(const mgVector3& a, const mgVector3& b) {
    return SameBits(a.x, b.x) && SameBits(a.y, b.y) && SameBits(a.z, b.z);
}

bool Same(const CPoint& a, const CPoint& b) {
    return a.m_nPrevLine == b.m_nPrevLine && a.m_nNextLine == b.m_nNextLine &&
           Same(a.m_Position, b.m_Position) && a.m_bFront == b.m_bFront && a.m_bBack == b.m_bBack;
}

bool Same(const CLine& a, const CLine& b) {
    return a.m_nStart == b.m_nStart && a.m_nEnd == b.m_nEnd && a.m_bFront == b.m_bFront &&
           Same(a.m_Direction, b.m_Direction);
}

bool Same(const SGene& a, const SGene& b) {
    return a.m_nPolygon == b.m_nPolygon && a.m_nOrder == b.m_nOrder && SameBits(a.m_fX, b.m_fX);
}

template <class TA, class TB>
bool SameLists(const TA& a, const TB& b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (size_t i = 0; i < a.size(); ++i) {
        if (!Same(a[i], b[i])) {
            return false;
        }
    }
    return true;
}

std::string FindPolygonDifference(const CPolygon& a, const CPolygon& b) {
    const std::pair<bool, const char*> comparisons[] = {
        {SameLists(a.m_Points, b.m_Points), "vertices"},
        {SameLists(a.m_Lines, b.m_Lines), "edges"},
        {SameLists(a.m_FrontPoints, b.m_FrontPoints), "front vertices"},
        {SameLists(a.m_BackPoints, b.m_BackPoints), "back vertices"},
        {SameLists(a.m_FrontLines, b.m_FrontLines), "front edges"},
        {SameLists(a.m_BackLines, b.m_BackLines), "back edges"},
        {Same(a.m_BoundingBoxMin, b.m_BoundingBoxMin) && Same(a.m_BoundingBoxMax, b.m_BoundingBoxMax), "box"},
        {Same(a.m_ReferencePoint, b.m_ReferencePoint), "place"},
    };
    for (const auto& [bSame, pWhat] : comparisons) {
        if (!bSame) {
            return std::string(pWhat) + " differ";
        }
    }
    return {};
}

/// `placed` is read after the call that fills it, so it comes by reference.
std::string FindPackingDifference(const std::vector<CPolygon>& placed, float fFitness,
                                  const SPlainPacking& plain) {
    if (placed.size() != plain.m_Placed.size()) {
        return "the numbers of placed polygons differ";
    }
    for (size_t i = 0; i < placed.size(); ++i) {
        const mgVector3& engineAt = placed[i].m_ReferencePoint;
        const mgVector3& plainAt = plain.m_Placed[i].m_ReferencePoint;
        if (!SameBits(engineAt.y, plainAt.y)) {
            return "drop " + std::to_string(i) + ", " + Differs("resting place", engineAt.y, plainAt.y);
        }
        const std::string difference = FindPolygonDifference(placed[i], plain.m_Placed[i]);
        if (!difference.empty()) {
            return "drop " + std::to_string(i) + ": " + difference;
        }
    }
    return SameBits(fFitness, plain.m_fFitness) ? std::string()
                                                : Differs("fitness", fFitness, plain.m_fFitness);
}

std::string FindDropDifference(std::span<const SPlacedPiece> drops, const std::vector<CPolygon>& placed) {
    if (drops.size() != placed.size()) {
        return "the numbers of drops differ";
    }
    for (size_t i = 0; i < drops.size(); ++i) {
        if (!Same(drops[i].m_At, placed[i].m_ReferencePoint)) {
            return "drop " + std::to_string(i) + ", " +
                   Differs("resting place", drops[i].m_At.y, placed[i].m_ReferencePoint.y);
        }
    }
    return {};
}

std::string FindIndividualDifference(const CChromosome& engine, const SIndividual& reference) {
    if (!SameLists(engine.Genes(), reference.m_Genes)) {
        return "genes differ";
    }
    if (!SameBits(engine.m_fFitness, reference.m_fFitness)) {
        return Differs("fitness", engine.m_fFitness, reference.m_fFitness);
    }
    return {};
}

/// The report of a generation in the console, between the lines, so that its place among them is compared
/// too.
std::string ReportText(int nGeneration, float fAverage, float fBest, float fWorst, size_t nPopulation) {
    std::string text;
    Print(text, "report %d: %a %a %a of %zu\n", nGeneration, static_cast<double>(fAverage),
          static_cast<double>(fBest), static_cast<double>(fWorst), nPopulation);
    return text;
}

class CReportPrinter final : public support::CContainerSink {
public:
    CReportPrinter(CContainer& container, int nStopAt) : CContainerSink(container), m_nStopAt(nStopAt) {}

    void GenerationDone(int nGeneration) override {
        const std::string text =
            ReportText(nGeneration, m_Container.m_fAverageFitness, m_Container.m_fBestFitness,
                       m_Container.m_fWorstFitness, m_Container.m_Population.size());
        std::fputs(text.c_str(), stdout);
        if (nGeneration == m_nStopAt) {
            m_Container.m_bStop = true;
        }
    }

private:
    int m_nStopAt;
};

/// A value that is not a number may carry a sign, which says nothing.
std::string WithoutSignOfNan(std::string text) {
    for (size_t nAt = text.find("-nan"); nAt != std::string::npos; nAt = text.find("-nan", nAt)) {
        text.erase(nAt, 1);
    }
    return text;
}

std::string FindTextDifference(const std::string& engine, const std::string& reference) {
    if (engine == reference) {
        return {};
    }
    size_t nAt = 0;
    while (nAt < engine.size() && nAt < reference.size() && engine[nAt] == reference[nAt]) {
        ++nAt;
    }
    const size_t nLine = nAt == 0 ? std::string::npos : engine.rfind('\n', nAt - 1);
    const size_t nFrom = nLine == std::string::npos ? 0 : nLine + 1;
    return "console lines differ; the engine goes on with\n" + engine.substr(nFrom, 300) +
           "\nthe reference with\n" + reference.substr(nFrom, 300);
}

void RunReference(const SSearchCase& searchCase, CReferenceSearch& search) {
    search.m_Polygons = searchCase.m_Polygons;
    search.m_fContainerWidth = searchCase.m_fContainerWidth;
    search.m_fMutationProbability = searchCase.m_fMutationProbability;
    search.m_OnGeneration = [&](int nGeneration) {
        search.m_Console += ReportText(nGeneration, search.m_fAverageFitness, search.m_fBestFitness,
                                       search.m_fWorstFitness, search.m_Population.size());
        search.m_bStop = nGeneration == searchCase.m_nStopAt;
    };
    search.Run(static_cast<unsigned int>(searchCase.m_nPopulation), searchCase.m_nGenerations,
               searchCase.m_nSeed);
}

std::string RunEngine(const SSearchCase& searchCase, CContainer& container) {
    container.m_Polygons = searchCase.m_Polygons;
    container.m_fContainerWidth = searchCase.m_fContainerWidth;
    g_MutationProbability = searchCase.m_fMutationProbability;
    CReportPrinter printer(container, searchCase.m_nStopAt);
    return support::PrintedBy([&] {
        container.RunSearch(searchCase.m_nPopulation, searchCase.m_nGenerations, searchCase.m_nSeed, printer);
    });
}

std::string FindPopulationDifference(const std::vector<CChromosome>& engine,
                                     const std::vector<SIndividual>& reference) {
    if (engine.size() != reference.size()) {
        return "the populations' sizes differ";
    }
    for (size_t i = 0; i < engine.size(); ++i) {
        const std::string difference = FindIndividualDifference(engine[i], reference[i]);
        if (!difference.empty()) {
            return "chromosome " + std::to_string(i) + ": " + difference;
        }
    }
    return {};
}

}  // namespace

std::string FindProfileDifference(const support::Outline& outline) {
    CPolygon engine = support::MakeRawPolygon(outline, {}, {});
    CPolygon plain = engine;
    engine.Process();
    Process(plain);
    return FindPolygonDifference(engine, plain);
}

std::string FindHitDifference(const mgVector3& point, const mgVector3& start, const mgVector3& end,
                              const mgVector3& direction) {
    constexpr float UNTOUCHED = -12345.0F;
    float fEngine = UNTOUCHED;
    float fPlain = UNTOUCHED;
    if (::DoesPointHitDownward(point, start, end, direction, &fEngine) !=
        reference::DoesPointHitDownward(point, start, end, direction, &fPlain)) {
        return "only one of the two hits downward";
    }
    if (!SameBits(fEngine, fPlain)) {
        return Differs("downward height", fEngine, fPlain);
    }
    fEngine = fPlain = UNTOUCHED;
    if (::DoesPointHitUpward(point, start, end, direction, &fEngine) !=
        reference::DoesPointHitUpward(point, start, end, direction, &fPlain)) {
        return "only one of the two hits upward";
    }
    return SameBits(fEngine, fPlain) ? std::string() : Differs("upward height", fEngine, fPlain);
}

std::string FindApproachDifference(const CPolygon& moving, CPolygon& obstacle) {
    constexpr float UNTOUCHED = -12345.0F;
    float engine[3] = {UNTOUCHED, UNTOUCHED, UNTOUCHED};
    float plain[3] = {UNTOUCHED, UNTOUCHED, UNTOUCHED};
    const bool bEngine = moving.GetApproachDistanceFromTop(obstacle, &engine[0], &engine[1], &engine[2]);
    const bool bPlain = GetApproachDistanceFromTop(moving, obstacle, &plain[0], &plain[1], &plain[2]);
    if (bEngine != bPlain) {
        return bEngine ? "only the engine finds a contact" : "only the reference finds a contact";
    }
    const char* const names[3] = {"distance", "contact x", "contact y"};
    for (size_t i = 0; i < 3; ++i) {
        if (!SameBits(engine[i], plain[i])) {
            return Differs(names[i], engine[i], plain[i]);
        }
    }
    return {};
}

std::string FindPlacementDifference(const CContainer& container, const CChromosome& chromosome,
                                    CDecoder& decoder) {
    const SPlainPacking plain = Place(chromosome.Genes(), container.m_Polygons, container.m_fTotalHeight);
    support::CContactLog log;
    std::vector<CPolygon> placed;
    // Whoever listens for contacts may be served in another way than who does not: both must agree, and so
    // must a placement that has been used before.
    std::string difference =
        FindPackingDifference(placed, support::PlaceChromosome(container, chromosome, placed, &log), plain);
    if (!difference.empty()) {
        return "with contacts, " + difference;
    }
    if (!SameLists(log.m_Contacts, plain.m_Contacts)) {
        return "contacts differ";
    }
    difference = FindPackingDifference(
        placed, support::PlaceChromosome(container, chromosome, placed, nullptr), plain);
    if (!difference.empty()) {
        return "without contacts, " + difference;
    }
    const float fFitness = decoder.Evaluate(chromosome.Genes());
    difference = FindDropDifference(decoder.Packing().m_Placed, plain.m_Placed);
    if (difference.empty() && !SameBits(fFitness, plain.m_fFitness)) {
        difference = Differs("fitness", fFitness, plain.m_fFitness);
    }
    return difference.empty() ? difference : "in a used placement, " + difference;
}

std::string FindPlacementDifference(const CContainer& container, const CChromosome& chromosome) {
    CDecoder decoder(container.m_Polygons, SStrip{container.m_fContainerWidth}, container.m_fTotalHeight);
    return FindPlacementDifference(container, chromosome, decoder);
}

std::string FindSearchDifference(const SSearchCase& searchCase) {
    CReferenceSearch plain;
    RunReference(searchCase, plain);
    const int nNextDraw = std::rand();
    CContainer container;
    const std::string printed = RunEngine(searchCase, container);
    std::string difference = FindTextDifference(WithoutSignOfNan(printed), WithoutSignOfNan(plain.m_Console));
    if (difference.empty()) {
        difference = FindPopulationDifference(container.m_Population, plain.m_Population);
    }
    if (difference.empty()) {
        difference = FindIndividualDifference(container.m_BestChromosome, plain.m_Best);
        difference = difference.empty() ? difference : "best chromosome: " + difference;
    }
    if (difference.empty() && std::rand() != nNextDraw) {
        difference = "the numbers of draws differ";
    }
    return difference;
}

}  // namespace nestrix::reference
