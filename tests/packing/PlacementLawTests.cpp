#include <gtest/gtest.h>

#include "ga/CContainer.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/FamilyParameter.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

// Laws that hold for any pieces whose coordinates leave room for exact arithmetic.

namespace {

using support::CSeededRandom;
using support::MakeChromosome;
using support::MakePolygon;

class PlacementLaw : public testing::TestWithParam<support::SFamily> {
protected:
    static constexpr int SETS = 40;

    /// A set with a chromosome for it, all coordinates whole numbers so that sums are exact.
    struct SLayout {
        CContainer m_Container;
        CChromosome m_Chromosome;
    };

    static void Fill(SLayout& layout, CSeededRandom& random) {
        for (const CPolygon& polygon : support::MakeSet(random, GetParam(), random.Range(1, 25))) {
            support::Outline outline;
            for (const CPoint& point : polygon.m_Points) {
                outline.push_back(point.m_Position);
            }
            layout.m_Container.m_Polygons.push_back(MakePolygon(support::Snapped(outline, 1.0F)));
        }
        layout.m_Container.PrepareEverything(0);
        layout.m_Chromosome =
            MakeChromosome(random, static_cast<int>(layout.m_Container.m_Polygons.size()), 400,
                           support::EKeys::Few, support::EOffsets::Quarters, support::EIndices::Own);
    }

    static std::vector<CPolygon> Place(const SLayout& layout, float* pFitness = nullptr) {
        std::vector<CPolygon> placed;
        const float fFitness =
            support::PlaceChromosome(layout.m_Container, layout.m_Chromosome, placed, nullptr);
        if (pFitness != nullptr) {
            *pFitness = fFitness;
        }
        return placed;
    }
};

TEST_P(PlacementLaw, DoublingEveryLengthDoublesEveryHeight) {
    CSeededRandom random(21);
    for (int i = 0; i < SETS; ++i) {
        SLayout layout;
        Fill(layout, random);
        float fFitness = 0.0F;
        const std::vector<CPolygon> placed = Place(layout, &fFitness);
        for (CPolygon& polygon : layout.m_Container.m_Polygons) {
            support::Outline outline;
            for (const CPoint& point : polygon.m_Points) {
                outline.push_back(point.m_Position);
            }
            polygon = MakePolygon(support::Scaled(outline, 2));
        }
        for (SGene& gene : layout.m_Chromosome.Genes()) {
            gene.m_fX *= 2;
        }
        layout.m_Container.PrepareEverything(0);
        float fDoubled = 0.0F;
        const std::vector<CPolygon> doubled = Place(layout, &fDoubled);
        ASSERT_EQ(fDoubled, 2 * fFitness) << "set " << i;
        for (size_t j = 0; j < placed.size(); ++j) {
            ASSERT_EQ(doubled[j].m_ReferencePoint.y, 2 * placed[j].m_ReferencePoint.y) << "set " << i;
        }
    }
}

TEST_P(PlacementLaw, LaterPiecesDoNotMoveEarlierOnes) {
    CSeededRandom random(22);
    for (int i = 0; i < SETS; ++i) {
        SLayout layout;
        Fill(layout, random);
        for (int j = 0; j < layout.m_Chromosome.m_nGenes; ++j) {
            layout.m_Chromosome.m_pGenes[j].m_nOrder = j;
        }
        const std::vector<CPolygon> all = Place(layout);
        CChromosome head;
        head.SetGeneCount(random.Range(0, layout.m_Chromosome.m_nGenes));
        std::copy_n(layout.m_Chromosome.m_pGenes, head.m_nGenes, head.m_pGenes);
        layout.m_Chromosome = head;
        const std::vector<CPolygon> some = Place(layout);
        ASSERT_TRUE(std::equal(some.begin(), some.end(), all.begin())) << "set " << i;
    }
}

TEST_P(PlacementLaw, MovingAllPiecesSidewaysChangesNoHeight) {
    CSeededRandom random(23);
    for (int i = 0; i < SETS; ++i) {
        SLayout layout;
        Fill(layout, random);
        float fFitness = 0.0F;
        Place(layout, &fFitness);
        const auto fShift = static_cast<float>(random.Range(-500, 500));
        for (SGene& gene : layout.m_Chromosome.Genes()) {
            gene.m_fX += fShift;
        }
        float fShifted = 0.0F;
        Place(layout, &fShifted);
        // Heights on slopes may round differently at another x.
        ASSERT_NEAR(fShifted, fFitness, 1e-3) << "set " << i;
    }
}

TEST_P(PlacementLaw, FitnessIsTheColumnsHeightLessTheHighestTop) {
    CSeededRandom random(24);
    for (int i = 0; i < SETS; ++i) {
        SLayout layout;
        Fill(layout, random);
        float fFitness = 0.0F;
        float fTop = 0.0F;
        for (const CPolygon& polygon : Place(layout, &fFitness)) {
            fTop = std::max(fTop, polygon.m_ReferencePoint.y + polygon.m_BoundingBoxMax.y);
            ASSERT_GE(polygon.m_ReferencePoint.y + polygon.m_BoundingBoxMin.y, 0.0F) << "below the floor";
        }
        ASSERT_EQ(fFitness, layout.m_Container.m_fTotalHeight - fTop) << "set " << i;
    }
}

std::vector<support::SFamily> SoundFamilies() {
    std::vector<support::SFamily> sound;
    for (const char* pName : {"aligned rectangles", "combs", "letters", "lattice pieces", "sound mixture"}) {
        sound.push_back(support::FamilyNamed(pName));
    }
    return sound;
}

INSTANTIATE_TEST_SUITE_P(All, PlacementLaw, testing::ValuesIn(SoundFamilies()), support::FamilyTestName);

}  // namespace

}  // namespace nestrix
