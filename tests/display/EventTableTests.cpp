#include <gmock/gmock.h>
#include <wx/xrc/xmlres.h>

#include "display/CPlotter.h"
#include "display/CPolyDisplay.h"

namespace nestrix {

namespace {

/// Opens the event table of a canvas.
template <class TCanvas>
class CEventTableProbe : public TCanvas {
public:
    using SEntry = std::pair<wxEventType, int>;

    static std::vector<SEntry> Entries() {
        std::vector<SEntry> entries;
        for (const auto* pEntry = TCanvas::sm_eventTable.entries; pEntry->m_eventType != wxEVT_NULL;
             ++pEntry) {
            entries.emplace_back(pEntry->m_eventType, pEntry->m_id);
        }
        return entries;
    }
};

TEST(EventTableOfTheCanvas, ListsPaintEraseRightClickAndTheOverlaysInTheirOrder) {
    const auto overlay = [](const char* pName) {
        return std::pair<wxEventType, int>(wxEVT_MENU, wxXmlResource::GetXRCID(pName));
    };
    EXPECT_THAT(
        CEventTableProbe<CPolyDisplay>::Entries(),
        testing::ElementsAre(std::pair(wxEVT_PAINT, wxID_ANY), std::pair(wxEVT_ERASE_BACKGROUND, wxID_ANY),
                             std::pair(wxEVT_RIGHT_DOWN, wxID_ANY), overlay("ID_RENDER_DRAW_BOUNDING_BOX"),
                             overlay("ID_RENDER_DRAW_FRONT_POINTS"), overlay("ID_RENDER_DRAW_BACK_POINTS"),
                             overlay("ID_RENDER_DRAW_REFERENCE"), overlay("ID_RENDER_DRAW_SEQ_NUMBER"),
                             overlay("ID_RENDER_DRAW_FRONT_LINES"), overlay("ID_RENDER_DRAW_BACK_LINES")));
}

TEST(EventTableOfThePlotter, ListsPaintAndErase) {
    EXPECT_THAT(
        CEventTableProbe<CPlotter>::Entries(),
        testing::ElementsAre(std::pair(wxEVT_PAINT, wxID_ANY), std::pair(wxEVT_ERASE_BACKGROUND, wxID_ANY)));
}

}  // namespace

}  // namespace nestrix
