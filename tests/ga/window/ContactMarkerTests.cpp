#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "display/CPolyDisplay.h"
#include "ga/CContainer.h"
#include "tests/display/CCanvasHost.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

using support::MakeChromosome;
using support::MakeSquare;
using testing::ElementsAre;
using testing::IsEmpty;

class ContactMarkers : public testing::Test {
protected:
    void SetUp() override {
        m_Container.m_Polygons = {MakeSquare(10), MakeSquare(10)};
        m_Container.PrepareEverything(0);
        m_Container.m_pContactDisplay = m_pDisplay;
    }

    float Evaluate(bool bRecordContacts) {
        return m_Container.EvaluateFitnessValue(MakeChromosome({{0, 0, 0}, {1, 1, 5}}), m_Placed,
                                                bRecordContacts);
    }

    support::CCanvasHost m_Host;
    CPolyDisplay* m_pDisplay = new CPolyDisplay(m_Host.Parent());  // the window owns it
    CContainer m_Container;
    std::vector<CPolygon> m_Placed;
};

TEST_F(ContactMarkers, AreAppendedInDropOrderWhenAsked) {
    m_pDisplay->m_Markers = {{1, 2, 3}};
    EXPECT_EQ(Evaluate(true), 0.0F);
    EXPECT_THAT(m_pDisplay->m_Markers,
                ElementsAre(mgVector3{1, 2, 3}, mgVector3{0, 0, 0}, mgVector3{5, 10, 0}));
}

TEST_F(ContactMarkers, AreLeftAloneWhenNotAsked) {
    EXPECT_EQ(Evaluate(false), 0.0F);
    EXPECT_THAT(m_pDisplay->m_Markers, IsEmpty());
}

TEST_F(ContactMarkers, WithoutADisplayAreNotRecorded) {
    m_Container.m_pContactDisplay = nullptr;
    EXPECT_EQ(Evaluate(true), 0.0F);
    EXPECT_THAT(m_pDisplay->m_Markers, IsEmpty());
}

TEST_F(ContactMarkers, DoNotChangeThePacking) {
    Evaluate(true);
    const std::vector<CPolygon> placed = m_Placed;
    Evaluate(false);
    EXPECT_EQ(m_Placed, placed);
    EXPECT_THAT(placed, ElementsAre(support::PlacedAt(MakeSquare(10), 0, 0),
                                    support::PlacedAt(MakeSquare(10), 5, 10)));
}

TEST_F(ContactMarkers, OfAChromosomeWithoutGenesAreNone) {
    m_Placed = {MakeSquare(1)};
    EXPECT_EQ(m_Container.EvaluateFitnessValue(CChromosome(), m_Placed, true), 20.0F);
    EXPECT_THAT(m_Placed, IsEmpty());
    EXPECT_THAT(m_pDisplay->m_Markers, IsEmpty());
}

}  // namespace

}  // namespace nestrix
