#include <array>

#include "tests/app/FrameFixture.h"
#include "tests/support/CCommaLocale.h"

namespace nestrix {

namespace {

using support::FrameFixture;

class Sliders : public FrameFixture {
protected:
    void Scroll(const char* pSlider, int nValue, wxEventType nType = wxEVT_SCROLL_CHANGED) {
        Control<wxSlider>(pSlider).SetValue(nValue);
        wxScrollEvent event(nType, wxXmlResource::GetXRCID(pSlider), nValue);
        EXPECT_TRUE(m_pFrame->ProcessWindowEvent(event));
    }

    static float MutationProbability() { return g_MutationProbability; }
};

const std::array SCROLL_EVENTS{wxEVT_SCROLL_TOP,        wxEVT_SCROLL_BOTTOM,       wxEVT_SCROLL_LINEUP,
                               wxEVT_SCROLL_LINEDOWN,   wxEVT_SCROLL_PAGEUP,       wxEVT_SCROLL_PAGEDOWN,
                               wxEVT_SCROLL_THUMBTRACK, wxEVT_SCROLL_THUMBRELEASE, wxEVT_SCROLL_CHANGED};

TEST_F(Sliders, ShowTheMutationProbabilityOnEveryKindOfScroll) {
    int nValue = 10;
    for (const wxEventType nType : SCROLL_EVENTS) {
        nValue += 5;
        Scroll("ID_SLIDER_MUTATION", nValue, nType);
        EXPECT_EQ(Text("ID_TXT_MUTATION_PROBABILITY"), "0." + std::to_string(nValue));
        EXPECT_EQ(MutationProbability(), static_cast<float>(nValue) / 100.0F);
    }
}

TEST_F(Sliders, ShowTheCullThresholdOnEveryKindOfScroll) {
    int nValue = 10;
    for (const wxEventType nType : SCROLL_EVENTS) {
        nValue += 5;
        Scroll("ID_SLIDER_CULL_THRESHOLD", nValue, nType);
        EXPECT_EQ(Text("ID_TXT_THRESHOLD"), "0." + std::to_string(nValue));
    }
}

TEST_F(Sliders, ShowNoughtAndOneAtTheirEnds) {
    for (const auto& [pSlider, pText] : {std::pair{"ID_SLIDER_MUTATION", "ID_TXT_MUTATION_PROBABILITY"},
                                         std::pair{"ID_SLIDER_CULL_THRESHOLD", "ID_TXT_THRESHOLD"}}) {
        Scroll(pSlider, 0);
        EXPECT_EQ(Text(pText), "0.00");
        Scroll(pSlider, 100);
        EXPECT_EQ(Text(pText), "1.00");
    }
}

TEST_F(Sliders, ChangeTheMutationOfARunningSearchButNotItsThreshold) {
    StartLongRun();
    const float fThreshold = m_pFrame->m_Container.m_fCullThreshold;
    Scroll("ID_SLIDER_CULL_THRESHOLD", 15);
    Scroll("ID_SLIDER_MUTATION", 90);
    EXPECT_EQ(m_pFrame->m_Container.m_fCullThreshold, fThreshold);
    EXPECT_EQ(MutationProbability(), 0.9F);
}

TEST_F(Sliders, MeasureFromTheirLowerEnd) {
    Control<wxSlider>("ID_SLIDER_MUTATION").SetRange(20, 60);
    Scroll("ID_SLIDER_MUTATION", 30);
    EXPECT_EQ(Text("ID_TXT_MUTATION_PROBABILITY"), "0.25");
}

TEST_F(Sliders, NeverDivideByZeroSinceTheToolkitKeepsTheirEndsApart) {
    Control<wxSlider>("ID_SLIDER_MUTATION").SetRange(5, 5);
    Scroll("ID_SLIDER_MUTATION", 5);
    EXPECT_EQ(Text("ID_TXT_MUTATION_PROBABILITY"), "0.00");
    EXPECT_EQ(MutationProbability(), 0.0F);
}

TEST_F(Sliders, ShowAPointUnderALocaleWithAComma) {
    const support::CCommaLocale comma;
    Scroll("ID_SLIDER_MUTATION", 25);
    EXPECT_EQ(Text("ID_TXT_MUTATION_PROBABILITY"), "0.25");
}

}  // namespace

}  // namespace nestrix
