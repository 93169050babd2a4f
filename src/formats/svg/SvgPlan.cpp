#include "formats/svg/SvgPlan.h"

#include <algorithm>
#include <cmath>
#include <pugixml.hpp>
#include <sstream>

#include "base/NumberText.h"
#include "drawing/SMap.h"
#include "drawing/Unit.h"
#include "formats/LabelPoint.h"
#include "formats/svg/SvgPathText.h"
#include "formats/svg/SvgText.h"
#include "formats/svg/XmlText.h"

namespace nestrix {

namespace {

// Colours that cutters' programs tell apart.
constexpr char const* CUT_COLOUR = "#ff0000";
constexpr char const* MARK_COLOUR = "#0000ff";
constexpr char const* LABEL_COLOUR = "#000000";
constexpr char const* STRIP_COLOUR = "#8a8f98";

constexpr double THIN_MILLIMETRES = 0.1;
constexpr double THIN_SHARE = 1.0 / 4000.0;  ///< of the strip's width, where there is no unit

/// Of a grid's unit. That is a ten millionth of the width, more or less.
constexpr int MORE_DECIMALS = 3;

/// The largest label, as a share of the strip's width.
constexpr double LARGEST_LABEL = 1.0 / 30.0;

/// How much of its room a label fills.
constexpr double FILLED = 0.9;

class CPlanWriter {
public:
    explicit CPlanWriter(const SCutPlan& plan)
        : m_Plan(plan),
          m_Packing(plan.m_Packing),
          m_Width(plan.m_Packing.m_Strip.m_Width),
          m_Height(plan.m_Packing.m_nHeight > 0 ? plan.m_Packing.m_Grid.Length(plan.m_Packing.m_nHeight)
                                                : m_Width),
          m_LengthText(MORE_DECIMALS - plan.m_Packing.m_Grid.m_nExponent) {}

    std::string Write() {
        BeginPage();
        DrawStrip();
        DrawCuts();
        DrawMarks();
        DrawLabels();
        std::ostringstream text;
        m_Document.save(text, " ", pugi::format_default, pugi::encoding_utf8);
        return std::move(text).str();
    }

private:
    using CNode = pugi::xml_node;

    void BeginPage();
    void DrawStrip();
    void DrawCuts();
    void DrawMarks();
    void DrawLabels();
    CNode AddLayer(char const* pName, char const* pStroke);
    CNode AddPiece(CNode layer, const std::string& id, size_t nPlacement);
    void AddPath(CNode group, char const* pClass, const SPath& path, const SMap& map);
    void AddText(CNode group, const SDrawnText& text);
    void AddLabelLine(CNode layer, const std::string& text, double x, double y, double size);

    static void Set(CNode node, char const* pName, const std::string& value) {
        node.append_attribute(pName).set_value(value.c_str());
    }
    void Set(CNode node, char const* pName, double length) const { Set(node, pName, m_LengthText(length)); }

    [[nodiscard]] const SFreePlacement& Placement(size_t nPlacement) const {
        return m_Packing.m_Placed[nPlacement];
    }
    [[nodiscard]] size_t PieceOf(size_t nPlacement) const {
        return static_cast<size_t>(Placement(nPlacement).m_nPiece);
    }
    [[nodiscard]] std::string NameOf(size_t nPlacement) const {
        return XmlText(m_Plan.m_Pieces[PieceOf(nPlacement)].m_Name);
    }
    [[nodiscard]] SMap IntoStrip(size_t nPlacement) const {
        return MapOf(m_Plan.m_Pieces[PieceOf(nPlacement)].m_Shape, m_Packing, Placement(nPlacement));
    }
    /// Into the page, where y counts from its upper edge downward.
    [[nodiscard]] SMap IntoPage(size_t nPlacement) const {
        return SMap{1.0, 0.0, 0.0, -1.0, 0.0, m_Height} * IntoStrip(nPlacement);
    }
    [[nodiscard]] double Thin() const {
        return m_Plan.m_Unit ? THIN_MILLIMETRES / MillimetresIn(*m_Plan.m_Unit) : THIN_SHARE * m_Width;
    }

    const SCutPlan& m_Plan;
    const SFreePacking& m_Packing;
    double m_Width;
    double m_Height;
    CLengthText m_LengthText;
    pugi::xml_document m_Document;
    CNode m_Svg;
};

void CPlanWriter::BeginPage() {
    CNode declaration = m_Document.append_child(pugi::node_declaration);
    Set(declaration, "version", std::string("1.0"));
    Set(declaration, "encoding", std::string("UTF-8"));
    m_Svg = m_Document.append_child("svg");
    Set(m_Svg, "xmlns", std::string("http://www.w3.org/2000/svg"));
    Set(m_Svg, "xmlns:inkscape", std::string("http://www.inkscape.org/namespaces/inkscape"));
    const double millimetres = m_Plan.m_Unit ? MillimetresIn(*m_Plan.m_Unit) : 1.0;
    const char* pSuffix = m_Plan.m_Unit ? "mm" : "";
    Set(m_Svg, "width", m_LengthText(m_Width * millimetres) + pSuffix);
    Set(m_Svg, "height", m_LengthText(m_Height * millimetres) + pSuffix);
    Set(m_Svg, "viewBox", "0 0 " + m_LengthText(m_Width) + " " + m_LengthText(m_Height));
    const size_t nPieces = m_Packing.m_Placed.size();
    const std::string title = "Packing of " + std::to_string(nPieces) + (nPieces == 1 ? " piece" : " pieces");
    m_Svg.append_child("title").text().set(title.c_str());
}

pugi::xml_node CPlanWriter::AddLayer(char const* pName, char const* pStroke) {
    CNode layer = m_Svg.append_child("g");
    Set(layer, "id", std::string(pName));
    Set(layer, "inkscape:groupmode", std::string("layer"));
    Set(layer, "inkscape:label", std::string(pName));
    if (pStroke != nullptr) {
        Set(layer, "fill", std::string("none"));
        Set(layer, "stroke", std::string(pStroke));
        Set(layer, "stroke-width", Thin());
    }
    return layer;
}

void CPlanWriter::DrawStrip() {
    CNode layer = AddLayer("strip", STRIP_COLOUR);
    Set(layer, ADDED_BY_PLAN, std::string("strip"));
    CNode rect = layer.append_child("rect");
    Set(rect, "width", m_Width);
    Set(rect, "height", m_Height);
}

/// The group of a piece, with all that is known of how it was laid.
pugi::xml_node CPlanWriter::AddPiece(CNode layer, const std::string& id, size_t nPlacement) {
    const std::string number = std::to_string(nPlacement + 1);
    const std::string name = NameOf(nPlacement);
    const std::string turn = ShortestDigits(Placement(nPlacement).m_Degrees);
    const bool bMirrored = Placement(nPlacement).m_bMirrored;
    CNode group = layer.append_child("g");
    Set(group, "id", id + number);
    if (!name.empty()) {
        Set(group, "inkscape:label", name);
        Set(group, "data-name", name);
    }
    Set(group, "data-number", number);
    Set(group, "data-turn", turn);
    Set(group, "data-mirrored", std::string(bMirrored ? "true" : "false"));
    const std::string title = number + (name.empty() ? "" : ": " + name) + (bMirrored ? ", mirrored" : "") +
                              (turn == "0" ? "" : ", turned by " + turn + " degrees");
    group.append_child("title").text().set(title.c_str());
    return group;
}

void CPlanWriter::AddPath(CNode group, char const* pClass, const SPath& path, const SMap& map) {
    CNode element = group.append_child("path");
    Set(element, "class", std::string(pClass));
    Set(element, "d", PathDataOf(map(path), m_LengthText));
}

void CPlanWriter::DrawCuts() {
    CNode layer = AddLayer("cut", CUT_COLOUR);
    for (size_t i = 0; i < m_Packing.m_Placed.size(); ++i) {
        const SDrawnPiece& drawn = m_Plan.m_Drawn[PieceOf(i)];
        const SMap map = IntoPage(i);
        CNode group = AddPiece(layer, "piece-", i);
        AddPath(group, "outline", drawn.m_Outline, map);
        for (const SPath& hole : drawn.m_Holes) {
            AddPath(group, "hole", hole, map);
        }
    }
}

void CPlanWriter::DrawMarks() {
    CNode layer = AddLayer("marks", MARK_COLOUR);
    for (size_t i = 0; i < m_Packing.m_Placed.size(); ++i) {
        const SDrawnPiece& drawn = m_Plan.m_Drawn[PieceOf(i)];
        if (drawn.m_Marks.empty() && drawn.m_Texts.empty()) {
            continue;
        }
        const SMap map = IntoPage(i);
        CNode group = AddPiece(layer, "marks-", i);
        for (const SPath& mark : drawn.m_Marks) {
            AddPath(group, "mark", mark, map);
        }
        for (const SDrawnText& text : drawn.m_Texts) {
            AddText(group, IntoStrip(i)(text));
        }
    }
}

/// @param text in the strip, y up.
void CPlanWriter::AddText(CNode group, const SDrawnText& text) {
    CNode element = group.append_child("text");
    const std::string place =
        "translate(" + m_LengthText(text.m_At.m_X) + " " + m_LengthText(m_Height - text.m_At.m_Y) + ")";
    const std::string turn = text.m_Degrees == 0.0 ? "" : " rotate(" + ShortestDigits(-text.m_Degrees) + ")";
    Set(element, "transform", place + turn + (text.m_bMirrored ? " scale(-1 1)" : ""));
    Set(element, "font-family", std::string("sans-serif"));
    Set(element, "font-size", text.m_Height / CAPITAL_HEIGHT);
    element.text().set(XmlText(text.m_Text).c_str());
}

void CPlanWriter::AddLabelLine(CNode layer, const std::string& text, double x, double y, double size) {
    CNode element = layer.append_child("text");
    Set(element, "x", x);
    Set(element, "y", m_Height - y);
    Set(element, "font-size", size);
    element.text().set(text.c_str());
}

void CPlanWriter::DrawLabels() {
    CNode layer = AddLayer("labels", nullptr);
    Set(layer, ADDED_BY_PLAN, std::string("labels"));
    Set(layer, "fill", std::string(LABEL_COLOUR));
    Set(layer, "font-family", std::string("sans-serif"));
    Set(layer, "text-anchor", std::string("middle"));
    const std::vector<SGridShape> placed = PlacedShapes(m_Plan.m_Pieces, m_Packing);
    for (size_t i = 0; i < placed.size(); ++i) {
        const SLabelPoint label = FindLabelPoint(EdgesOf(placed[i], m_Packing.m_Grid));
        const std::string number = std::to_string(i + 1);
        const std::string name = NameOf(i);
        // The number stands on the line through the place, the name hangs below it; each must fit by its far
        // corners into the circle that is free.
        const double room = FILLED * label.m_Room;
        const double halfNumber = LETTER_WIDTH / 2.0 * static_cast<double>(number.size());
        const double numberSize =
            std::min(room / std::hypot(halfNumber, CAPITAL_HEIGHT), LARGEST_LABEL * m_Width);
        AddLabelLine(layer, number, label.m_X, label.m_Y, numberSize);
        if (!name.empty()) {
            const double halfName = LETTER_WIDTH / 2.0 * static_cast<double>(name.size());
            const double nameSize = std::min(room / std::hypot(halfName, 1.2), numberSize / 2.0);
            AddLabelLine(layer, name, label.m_X, label.m_Y - nameSize, nameSize);
        }
    }
}

}  // namespace

std::string WriteSvgPlan(const SCutPlan& plan) {
    return CPlanWriter(plan).Write();
}

}  // namespace nestrix
