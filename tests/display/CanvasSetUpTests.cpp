#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "display/CPolyDisplay.h"
#include "tests/display/CCanvasHost.h"
#include "tests/display/CanvasPlaces.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/CTemporaryFolder.h"

namespace nestrix {

namespace {

using support::BLACK;
using support::CCanvasHost;
using support::CPicture;
using support::PixelX;
using support::PixelY;

TEST(CanvasAttributes, AskForDoubleBufferedRgbWithoutDepth) {
    EXPECT_TRUE(std::ranges::equal(g_OpenGLAttribList, std::array{1, 4, 7, 1, 8, 1, 9, 1, 11, 0, 0}));
}

/// As they were before any test ran.
const bool ANY_OPTION_AT_START = std::ranges::any_of(g_PolyOptions, [](bool bOn) { return bOn; });

TEST(CanvasOptions, AreAllOffWhenTheProgramStarts) {
    EXPECT_FALSE(ANY_OPTION_AT_START);
}

TEST(CanvasOffTheScreen, IsSetUpAtItsFirstPaint) {
    wxFrame frame(nullptr, wxID_ANY, "Not shown yet");
    auto* pPanel = new wxPanel(&frame);
    auto* pDisplay = new CPolyDisplay(pPanel);
    pDisplay->Initialize(400.0F, 600.0F);
    EXPECT_EQ(pDisplay->m_fViewHeight, 620.0F);
    frame.SetClientSize(450, 650);
    frame.Show();
    const CPicture picture = CCanvasHost::AwaitPaint(*pDisplay);
    EXPECT_EQ(pDisplay->m_fViewHeight, 720.0F);
    EXPECT_EQ(picture.At(33, 300), BLACK);
    EXPECT_EQ(picture.At(366, 300), BLACK);
    EXPECT_FALSE(picture.IsBlank(0, 16 + 3, 28, 16 + 11));
    EXPECT_TRUE(picture.IsBlank(40, 60, 360, 600));
    // Only at the first: like any other canvas it does not follow a change of its size.
    pDisplay->SetSize(400, 300);
    (void)CCanvasHost::Paint(*pDisplay);
    EXPECT_EQ(pDisplay->m_fViewHeight, 720.0F);
}

/// A canvas whose font was looked for in another folder.
class CanvasWithoutFont : public testing::Test {
protected:
    void SetUp() override { std::filesystem::current_path(m_Folder.Path()); }
    void TearDown() override { std::filesystem::current_path(m_Home); }

    /// Paints everything without a word on standard output.
    [[nodiscard]] CPicture PaintEverything() {
        auto* pDisplay = new CPolyDisplay(m_Host.Parent());
        std::ranges::fill(g_PolyOptions, true);
        EXPECT_EQ(support::PrintedBy([&] {
                      pDisplay->Initialize(400.0F, 600.0F);
                      support::AddPlaced(*pDisplay, support::MakeRectangle(100.0F, 60.0F), 50.0F, 90.0F);
                      (void)CCanvasHost::Paint(*pDisplay);
                  }),
                  "");
        return CCanvasHost::Paint(*pDisplay);
    }

    static void ExpectAllButText(const CPicture& picture) {
        EXPECT_EQ(picture.At(33, 300), BLACK);
        EXPECT_TRUE(picture.Touches(BLACK, PixelX(200.0F), PixelY(150.0F)));
        EXPECT_TRUE(picture.IsBlank(0, 20, 28, 600));
    }

    CCanvasHost m_Host;
    std::filesystem::path m_Home = std::filesystem::current_path();
    support::CTemporaryFolder m_Folder;
};

TEST_F(CanvasWithoutFont, PaintsAllButTheText) {
    ExpectAllButText(PaintEverything());
}

TEST_F(CanvasWithoutFont, TakesAFileThatIsNoFontForAMissingOne) {
    (void)m_Folder.Write("arial.ttf", "This is not a font.");
    ExpectAllButText(PaintEverything());
}

}  // namespace

}  // namespace nestrix
