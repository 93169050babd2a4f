#include "formats/dxf/DxfPlan.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "drawing/SMap.h"
#include "formats/LabelPoint.h"
#include "formats/dxf/CDxfEntityWriter.h"
#include "formats/dxf/DxfDocument.h"
#include "formats/dxf/DxfText.h"
#include "formats/dxf/DxfUnits.h"
#include "formats/dxf/OwnData.h"
#include "formats/dxf/TextPlaces.h"

namespace nestrix {

namespace {

constexpr const char* CUT = "CUT";
constexpr const char* MARK = "MARK";
constexpr const char* LABEL = "LABEL";
constexpr const char* STRIP = "STRIP";

constexpr int RED = 1;
constexpr int GREEN = 3;
constexpr int BLUE = 5;
constexpr int GREY = 8;

/// Longer names are cut in labels: nobody could read them on a piece.
constexpr size_t LONGEST_NAME = 40;

/// Of the strip's width.
constexpr double LARGEST_LABEL = 1.0 / 30.0;
constexpr double SMALLEST_LABEL = 1.0 / 1000.0;

/// Draws the pieces of a plan one after another.
class CPlanDrawing {
public:
    explicit CPlanDrawing(const SCutPlan& plan)
        : m_Plan(plan),
          m_Factor(CodeOf(plan.m_Unit).m_Factor),
          m_Placed(PlacedShapes(plan.m_Pieces, plan.m_Packing)),
          m_Parts{plan.m_Unit, {}, {{CUT, RED}, {MARK, BLUE}, {LABEL, GREEN}, {STRIP, GREY}}, {}} {}

    [[nodiscard]] std::string Draw() {
        DrawStrip();
        for (size_t i = 0; i < m_Placed.size(); ++i) {
            DrawPiece(i);
        }
        return DxfDocument(m_Parts, m_Writer);
    }

private:
    void DrawStrip() {
        const double right = m_Factor * m_Plan.m_Packing.m_Strip.m_Width;
        const double top = m_Factor * m_Plan.m_Packing.m_Grid.Length(m_Plan.m_Packing.m_nHeight);
        m_Parts.m_Extent = {{}, {right, top}};
        m_Entities.Write(
            SPath{{}, {SLineTo{{right, 0.0}}, SLineTo{{right, top}}, SLineTo{{0.0, top}}, SLineTo{}}, true},
            {STRIP, {std::string(own_data::GUIDE)}});
        (void)m_Entities.TakeHandles();
    }

    void DrawPiece(size_t nPlace) {
        const SFreePlacement& placement = m_Plan.m_Packing.m_Placed[nPlace];
        const auto nPiece = static_cast<size_t>(placement.m_nPiece);
        const SDrawnPiece& drawn = m_Plan.m_Drawn[nPiece];
        const std::string& name = m_Plan.m_Pieces[nPiece].m_Name;
        const SMap map = SMap{m_Factor, 0.0, 0.0, m_Factor, 0.0, 0.0} *
                         MapOf(m_Plan.m_Pieces[nPiece].m_Shape, m_Plan.m_Packing, placement);
        const std::vector<std::string> ownData{std::string(own_data::PIECE), name};
        m_Entities.Write(map(drawn.m_Outline), {CUT, ownData});
        for (const SPath& hole : drawn.m_Holes) {
            m_Entities.Write(map(hole), {CUT, ownData});
        }
        for (const SPath& mark : drawn.m_Marks) {
            m_Entities.Write(map(mark), {MARK, ownData});
        }
        for (const SDrawnText& text : drawn.m_Texts) {
            m_Entities.Write(map(text), {MARK, ownData});
        }
        const std::string number = std::to_string(nPlace + 1);
        DrawLabel(number + " " + name, m_Placed[nPlace]);
        m_Parts.m_Groups.push_back({"PIECE_" + number, EncodedText(name), m_Entities.TakeHandles()});
    }

    void DrawLabel(const std::string& label, const SGridShape& placed) {
        const SLabelPoint point = FindLabelPoint(EdgesOf(placed, m_Plan.m_Packing.m_Grid));
        const std::string text = Shortened(label);
        const double width = m_Plan.m_Packing.m_Strip.m_Width;
        const double height = std::clamp(0.9 * point.m_Room / std::hypot(EstimatedWidth(text) / 2.0, 0.5),
                                         SMALLEST_LABEL * width, LARGEST_LABEL * width);
        m_Entities.WriteLabel(text, {m_Factor * point.m_X, m_Factor * point.m_Y}, m_Factor * height,
                              {LABEL, {std::string(own_data::GUIDE)}});
    }

    static std::string Shortened(const std::string& label) {
        std::string text = label;
        while (CharacterCount(text) > LONGEST_NAME) {
            text.pop_back();
        }
        return text;
    }

    const SCutPlan& m_Plan;
    double m_Factor;
    std::vector<SGridShape> m_Placed;
    SDxfParts m_Parts;
    CDxfWriter m_Writer = DxfEntityWriter();
    CDxfEntityWriter m_Entities{m_Writer};
};

}  // namespace

std::string WriteDxfPlan(const SCutPlan& plan) {
    return CPlanDrawing(plan).Draw();
}

}  // namespace nestrix
