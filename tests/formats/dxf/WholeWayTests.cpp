#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawing/SDrawnPiece.h"
#include "formats/dxf/DxfDrawing.h"
#include "formats/dxf/DxfPlan.h"
#include "nest/PackFreely.h"
#include "tests/formats/dxf/PlanLook.h"

namespace nestrix {

namespace {

class CSilentPackSink final : public CPackSink {
public:
    void BetterPacking(const SFreePacking& /*packing*/, const SPackProgress& /*progress*/) override {}
    [[nodiscard]] bool IsToStop() const override { return false; }
};

/// The number behind a word.
double NumberBehind(const std::string& word, const std::string& text) {
    return std::stod(text.substr(text.find(word) + word.size()));
}

TEST(DrawingWithHolesAndArcs, IsPackedIntoAFileInWhichOthersFindTheSpacing) {
    const SDrawing drawing = ReadDxf("samples/holes-and-arcs.dxf");
    const SDrawnPieces found = FindPieces(drawing, "holes-and-arcs.dxf", {});
    ASSERT_EQ(found.m_Pieces.size(), 9U);
    std::vector<SPiece> pieces;
    for (const SDrawnPiece& drawn : found.m_Pieces) {
        pieces.push_back({drawn.m_Name, Flattened(drawn, 0.05), 1, {false, {0.0, 90.0, 180.0, 270.0}}, true});
    }
    SPackSettings settings;
    settings.m_Limits.m_nSteps = 2000;
    CSilentPackSink sink;
    const SPackResult result =
        PackFreely(pieces, {.m_Width = 200.0, .m_Spacing = 2.0, .m_Margin = 1.0}, settings, sink);
    ASSERT_TRUE(result.m_Packing) << result.m_Unfit.at(0).m_Reason;
    const auto seen =
        support::LookAtPlan(WriteDxfPlan({pieces, found.m_Pieces, *result.m_Packing, drawing.m_Unit}));
    EXPECT_EQ(seen.front(), "AC1015, $INSUNITS 4, $MEASUREMENT 1, 0 errors, 0 fixes");
    EXPECT_EQ(NumberBehind("pieces ", seen.back()), 9.0);
    EXPECT_GE(NumberBehind("spacing ", seen.back()), 1.999);
    EXPECT_GE(NumberBehind("border ", seen.back()), -0.001);
}

}  // namespace

}  // namespace nestrix
