#include <gtest/gtest.h>
#include <wx/log.h>
#include <wx/xrc/xmlres.h>

#include <algorithm>
#include <array>

#include "display/CPolyDisplay.h"
#include "tests/display/CCanvasHost.h"
#include "tests/display/EventPump.h"
#include "tests/support/CTemporaryFolder.h"

namespace nestrix {

namespace {

using support::CCanvasHost;

struct SOverlayItem {
    ERenderOption m_Option;
    const char* m_pName;
};

constexpr std::array ITEMS{SOverlayItem{RENDER_REFERENCE, "ID_RENDER_DRAW_REFERENCE"},
                           SOverlayItem{RENDER_BOUNDING_BOX, "ID_RENDER_DRAW_BOUNDING_BOX"},
                           SOverlayItem{RENDER_FRONT_LINES, "ID_RENDER_DRAW_FRONT_LINES"},
                           SOverlayItem{RENDER_BACK_LINES, "ID_RENDER_DRAW_BACK_LINES"},
                           SOverlayItem{RENDER_FRONT_POINTS, "ID_RENDER_DRAW_FRONT_POINTS"},
                           SOverlayItem{RENDER_BACK_POINTS, "ID_RENDER_DRAW_BACK_POINTS"},
                           SOverlayItem{RENDER_SEQ_NUMBER, "ID_RENDER_DRAW_SEQ_NUMBER"}};

std::string MenuItemText(const char* pName, bool bChecked) {
    return std::string("<object class=\"wxMenuItem\" name=\"") + pName +
           "\"><label>x</label><checkable>1</checkable><checked>" + (bChecked ? "1" : "0") +
           "</checked></object>";
}

/// A resource file with a render menu of these items.
std::string MenuText(const std::string& items, const char* pTitle = "Options") {
    return std::string("<?xml version=\"1.0\"?><resource><object class=\"wxMenuBar\" name=\"RenderMenu\">") +
           "<object class=\"wxMenu\"><label>" + pTitle + "</label>" + items + "</object></object></resource>";
}

class RenderMenu : public testing::Test {
protected:
    void SetUp() override {
        std::ranges::fill(g_PolyOptions, false);
        wxXmlResource::Get()->InitAllHandlers();
    }
    void TearDown() override { wxXmlResource::Get()->Unload(m_File); }

    /// A canvas with the menu that the resource file defines.
    CPolyDisplay& MakeCanvas(const std::string& resources) {
        m_File = m_Folder.Write("menu.xrc", resources);
        EXPECT_TRUE(wxXmlResource::Get()->Load(m_File));
        return MakeCanvas();
    }

    CPolyDisplay& MakeCanvas() {
        auto* pDisplay = new CPolyDisplay(m_Host.Parent());
        pDisplay->Initialize(400.0F, 600.0F);
        return *pDisplay;
    }

    static std::string AllItems(bool bChecked) {
        std::string items;
        for (const SOverlayItem& item : ITEMS) {
            items += MenuItemText(item.m_pName, bChecked);
        }
        return items;
    }

    static void Choose(CPolyDisplay& display, const char* pName, bool bOn) {
        wxCommandEvent event(wxEVT_MENU, wxXmlResource::GetXRCID(pName));
        event.SetInt(bOn ? 1 : 0);
        EXPECT_TRUE(display.ProcessWindowEvent(event));
    }

    static bool IsChecked(CPolyDisplay& display, const char* pName) {
        return display.m_pMenu->IsChecked(wxXmlResource::GetXRCID(pName));
    }

    CCanvasHost m_Host;
    support::CTemporaryFolder m_Folder;
    std::string m_File;
};

TEST_F(RenderMenu, StartsUncheckedExceptForTheLines) {
    CPolyDisplay& display = MakeCanvas(MenuText(AllItems(true)));
    ASSERT_NE(display.m_pMenu, nullptr);
    for (const SOverlayItem& item : ITEMS) {
        const bool bLines = item.m_Option == RENDER_FRONT_LINES || item.m_Option == RENDER_BACK_LINES;
        EXPECT_EQ(IsChecked(display, item.m_pName), bLines) << item.m_pName;
        EXPECT_FALSE(g_PolyOptions[item.m_Option]);
    }
}

TEST_F(RenderMenu, SwitchesOneOptionAndItsCheckMarkPerItem) {
    CPolyDisplay& display = MakeCanvas(MenuText(AllItems(false)));
    for (const SOverlayItem& item : ITEMS) {
        Choose(display, item.m_pName, true);
        EXPECT_TRUE(g_PolyOptions[item.m_Option]) << item.m_pName;
        EXPECT_TRUE(IsChecked(display, item.m_pName)) << item.m_pName;
        EXPECT_EQ(std::ranges::count(g_PolyOptions, true), 1) << item.m_pName;
        Choose(display, item.m_pName, false);
        EXPECT_FALSE(g_PolyOptions[item.m_Option]) << item.m_pName;
        EXPECT_FALSE(IsChecked(display, item.m_pName)) << item.m_pName;
    }
}

TEST_F(RenderMenu, RepaintsAtOnceForEveryItem) {
    CPolyDisplay& display = MakeCanvas(MenuText(AllItems(false)));
    ASSERT_TRUE(support::PumpUntil([&display] { return !CCanvasHost::IsRepainted(display); }));
    for (const SOverlayItem& item : ITEMS) {
        Choose(display, item.m_pName, true);
        (void)CCanvasHost::AwaitPaint(display);
    }
}

TEST_F(RenderMenu, DoesWithoutItemsThatTheResourcesLack) {
    CPolyDisplay& display = MakeCanvas(MenuText(MenuItemText("ID_RENDER_DRAW_REFERENCE", true)));
    ASSERT_NE(display.m_pMenu, nullptr);
    Choose(display, "ID_RENDER_DRAW_BOUNDING_BOX", true);
    EXPECT_TRUE(g_PolyOptions[RENDER_BOUNDING_BOX]);
    EXPECT_FALSE(IsChecked(display, "ID_RENDER_DRAW_REFERENCE"));
}

TEST_F(RenderMenu, DoesWithoutCheckMarksWhereAnItemHasNone) {
    CPolyDisplay& display = MakeCanvas(
        MenuText("<object class=\"wxMenuItem\" name=\"ID_RENDER_DRAW_REFERENCE\"><label>x</label></object>"));
    Choose(display, "ID_RENDER_DRAW_REFERENCE", true);
    EXPECT_TRUE(g_PolyOptions[RENDER_REFERENCE]);
}

TEST_F(RenderMenu, IsAbsentWhenItsMenuHasAnotherTitle) {
    CPolyDisplay& display = MakeCanvas(MenuText(AllItems(false), "Other"));
    EXPECT_EQ(display.m_pMenu, nullptr);
}

TEST_F(RenderMenu, IsAbsentWithoutResources) {
    CPolyDisplay& display = MakeCanvas();
    EXPECT_EQ(display.m_pMenu, nullptr);
    wxMouseEvent click(wxEVT_RIGHT_DOWN);
    EXPECT_TRUE(display.ProcessWindowEvent(click));
    Choose(display, "ID_RENDER_DRAW_REFERENCE", true);
    EXPECT_TRUE(g_PolyOptions[RENDER_REFERENCE]);
}

TEST_F(RenderMenu, LeavesTheOptionsAloneWhenAnotherCanvasIsMade) {
    CPolyDisplay& display = MakeCanvas(MenuText(AllItems(false)));
    Choose(display, "ID_RENDER_DRAW_SEQ_NUMBER", true);
    (void)MakeCanvas();
    EXPECT_TRUE(g_PolyOptions[RENDER_SEQ_NUMBER]);
}

}  // namespace

}  // namespace nestrix
