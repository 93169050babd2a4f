#include "tests/reference/Agreement.h"

#include "ga/CDecoder.h"
#include "tests/reference/Differences.h"
#include "tests/reference/ReferenceGeometry.h"
#include "tests/reference/ReferencePlacement.h"
#include "tests/support/CContactLog.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/SameBits.h"

namespace nestrix::reference {
namespace {

using support::SameBits;

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

}  // namespace nestrix::reference
