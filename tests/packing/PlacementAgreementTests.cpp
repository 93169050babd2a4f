#include <gtest/gtest.h>

#include "ga/CDecoder.h"
#include "tests/reference/Agreement.h"
#include "tests/reference/ReferencePlacement.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/FamilyParameter.h"
#include "tests/support/RandomCases.h"
#include "tests/support/SameBits.h"

namespace nestrix {

// The placement against the plain reference, bit for bit, on every family of pieces.

namespace {

using namespace support;

class RandomLayouts : public testing::TestWithParam<SFamily> {};

/// Many small sets, some larger ones.
int RandomSetSize(CSeededRandom& random) {
    const int nKind = random.Range(0, 9);
    if (nKind < 5) {
        return random.Range(1, 12);
    }
    return nKind < 9 ? random.Range(13, 45) : random.Range(46, 120);
}

void FillContainer(CContainer& container, CSeededRandom& random, const SFamily& family, int nPieces) {
    container.m_Polygons = MakeSet(random, family, nPieces);
    container.m_fContainerWidth =
        random.Percent(60) ? 400.0F : random.Pick({60.0F, 100.0F, 200.0F, 1000.0F, 0.0F});
    container.PrepareEverything(0);
    if (random.Percent(10)) {
        // A start below what is placed already: pieces appear inside others.
        container.m_fTotalHeight = container.m_fTotalHeight * random.Pick({0.25F, 0.1F, 0.0F, -1.0F});
    }
}

std::string FindClampDifference(const CContainer& container, CChromosome& chromosome) {
    std::vector<SGene> genes(chromosome.Genes().begin(), chromosome.Genes().end());
    reference::Clamp(genes, container.m_Polygons, container.m_fContainerWidth);
    container.ValidateChromosome(chromosome);
    for (size_t i = 0; i < genes.size(); ++i) {
        if (!SameBits(genes[i].m_fX, chromosome.Genes()[i].m_fX)) {
            return "gene " + std::to_string(i) + " is clamped to different offsets";
        }
    }
    return {};
}

/// Some layouts of one random set; nPieces = 0: of random size.
void ExpectAgreementOnOneSet(const SFamily& family, uint64_t nSeed, int nPieces, int nLayouts = 5) {
    CSeededRandom random(nSeed);
    CContainer container;
    FillContainer(container, random, family, nPieces > 0 ? nPieces : RandomSetSize(random));
    CDecoder decoder(container.m_Polygons, SStrip{container.m_fContainerWidth}, container.m_fTotalHeight);
    for (int nLayout = 0; nLayout < nLayouts; ++nLayout) {
        const int nPolygons = static_cast<int>(container.m_Polygons.size());
        CChromosome chromosome = MakeChromosome(random, nPolygons, container.m_fContainerWidth);
        if (random.Percent(80)) {
            ASSERT_EQ(FindClampDifference(container, chromosome), "") << "seed " << nSeed;
        }
        ASSERT_EQ(reference::FindPlacementDifference(container, chromosome, decoder), "")
            << "seed " << nSeed << ", layout " << nLayout << " of " << nPolygons << " pieces";
    }
}

TEST_P(RandomLayouts, ArePlacedAsThePlainReferencePlacesThem) {
    const int nSets = RandomCases(100);
    for (int nSet = 0; nSet < nSets && !HasFatalFailure(); ++nSet) {
        ExpectAgreementOnOneSet(GetParam(), static_cast<uint64_t>(nSet), 0);
    }
}

TEST_P(RandomLayouts, OfOnePieceArePlacedAsThePlainReferencePlacesThem) {
    for (uint64_t nSeed = 1000; nSeed < 1020 && !HasFatalFailure(); ++nSeed) {
        ExpectAgreementOnOneSet(GetParam(), nSeed, 1);
    }
}

TEST_P(RandomLayouts, OfTwoHundredPiecesArePlacedAsThePlainReferencePlacesThem) {
    ExpectAgreementOnOneSet(GetParam(), 2000, 200);
}

TEST_P(RandomLayouts, OfAThousandPiecesArePlacedAsThePlainReferencePlacesThem) {
    ExpectAgreementOnOneSet(GetParam(), 2100, 1000, 1);
}

TEST_P(RandomLayouts, CollideWithTheSamePiecesAsInThePlainReference) {
    for (uint64_t nSeed = 4000; nSeed < 4050; ++nSeed) {
        CSeededRandom random(nSeed);
        std::vector<CPolygon> placed = MakeSet(random, GetParam(), 30);
        for (CPolygon& polygon : placed) {
            const float fX = random.Quarter(-50, 200);
            const float fY = random.Quarter(-60, 200);
            polygon.m_ReferencePoint = {fX, fY, 0.0F};
        }
        std::vector<CPolygon> engine;
        std::vector<CPolygon> plain;
        CContainer().GetCollidablePolygonList(placed.back(), placed, engine);
        reference::GetCollidablePolygonList(placed.back(), placed, plain);
        ASSERT_EQ(engine.size(), plain.size()) << "seed " << nSeed;
        for (size_t i = 0; i < engine.size(); ++i) {
            ASSERT_EQ(engine[i].m_ReferencePoint, plain[i].m_ReferencePoint) << "seed " << nSeed;
        }
    }
}

TEST_P(RandomLayouts, HaveTheSameTotalHeightAsInThePlainReference) {
    for (uint64_t nSeed = 3000; nSeed < 3050; ++nSeed) {
        CSeededRandom random(nSeed);
        CContainer container;
        container.m_Polygons = MakeSet(random, GetParam(), RandomSetSize(random));
        container.PrepareEverything(0);
        ASSERT_PRED2(SameBits, container.m_fTotalHeight, reference::TotalHeight(container.m_Polygons));
    }
}

INSTANTIATE_TEST_SUITE_P(All, RandomLayouts, testing::ValuesIn(AllFamilies().begin(), AllFamilies().end()),
                         FamilyTestName);

}  // namespace

}  // namespace nestrix
