#include "formats/PackingSvg.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "base/CNumericLocale.h"
#include "formats/CSvgWriter.h"
#include "formats/LabelPoint.h"
#include "formats/SvgNumber.h"

namespace nestrix {

namespace {

constexpr double PICTURE_PIXELS = 1000.0;  ///< the longer side, for viewers that ask for a size
constexpr double LARGEST_LABEL = 12.0;
constexpr double SMALLEST_LABEL = 2.5;

struct SColour {
    char const* m_pFill;
    char const* m_pStroke;
};

// Neighbours in drop order differ clearly, and all are light enough for dark text.
constexpr std::array<SColour, 10> PALETTE{{{"#cfe3f5", "#5b8db8"},
                                           {"#fbe0c3", "#c98b45"},
                                           {"#d3ecd0", "#6aa565"},
                                           {"#f6d3d8", "#c0707f"},
                                           {"#e2d8f0", "#8c74b5"},
                                           {"#fbf1c1", "#b8a23f"},
                                           {"#cdeeea", "#4fa39a"},
                                           {"#ecdccd", "#a0805f"},
                                           {"#dbe2ea", "#748699"},
                                           {"#eed3ea", "#a86c9f"}}};
constexpr char const* STRIP_COLOUR = "#30343b";
constexpr char const* SCALE_COLOUR = "#8a8f98";
constexpr char const* HEIGHT_COLOUR = "#c0392b";

/// One drawing in the making. World coordinates come in, y upward.
class CPackingPicture {
public:
    CPackingPicture(std::span<const CPolygon> pieces, const SPacking& packing)
        : m_Pieces(pieces), m_Packing(packing), m_View(FindPictureView(pieces, packing)) {}

    std::string Draw() {
        BeginDocument();
        DrawScale();
        DrawOutlines();
        DrawNumbers();
        DrawStrip();
        DrawHeight();
        m_Svg.EndContent("svg");
        return m_Svg.Document();
    }

private:
    void BeginDocument() {
        const double left = m_View.m_Left - Sized(36.0);
        const double top = -m_View.m_Top - Sized(30.0);
        const double width = m_View.m_Right + Sized(16.0) - left;
        const double height = -m_View.m_Bottom + Sized(16.0) - top;
        const double pixels = PICTURE_PIXELS / std::max(width, height);
        std::string viewBox;
        for (const double value : {left, top, width, height}) {
            viewBox.append(viewBox.empty() ? "" : " ").append(SvgNumber(value));
        }
        m_Svg.Element("svg").Set("xmlns", "http://www.w3.org/2000/svg").Set("viewBox", viewBox);
        m_Svg.Set("width", std::ceil(width * pixels)).Set("height", std::ceil(height * pixels));
        m_Svg.Set("font-family", "Liberation Sans, Arial, Helvetica, sans-serif").BeginContent();
        const size_t nPieces = m_Packing.m_Placed.size();
        m_Svg.Element("title").EndWithText("Packing of " + std::to_string(nPieces) +
                                           (nPieces == 1 ? " piece" : " pieces"));
        m_Svg.Element("rect").Set("x", left).Set("y", top).Set("width", width).Set("height", height);
        m_Svg.Set("fill", "#ffffff").End();
    }

    void DrawScale() {
        const double top = std::max(m_Packing.m_fHeight, 0.0F);
        const double step = FindScaleStep(m_View.Extent());
        BeginLines("scale", SCALE_COLOUR, 0.8);
        for (int i = 0; i * step <= top; ++i) {
            Line(-Sized(5.0), i * step, 0.0, i * step);
        }
        m_Svg.EndContent("g");
        BeginTexts("scale", SCALE_COLOUR, "end");
        for (int i = 0; i * step <= top; ++i) {
            Text(-Sized(8.0), i * step - Sized(3.0), Sized(9.0), SvgNumber(i * step));
        }
        m_Svg.EndContent("g");
    }

    /// The one element that is turned over, so that the points are the world coordinates themselves.
    void DrawOutlines() {
        m_Svg.Element("g").Set("class", "pieces").Set("transform", "scale(1 -1)");
        m_Svg.Set("stroke-linejoin", "round").Set("stroke-width", Sized(0.8)).BeginContent();
        for (size_t i = 0; i < m_Packing.m_Placed.size(); ++i) {
            std::string points;
            for (const CPoint& point : PieceOf(i).m_Points) {
                const mgVector3 world = point.m_Position + m_Packing.m_Placed[i].m_At;
                points.append(points.empty() ? "" : " ").append(SvgNumber(world.x));
                points.append(",").append(SvgNumber(world.y));
            }
            const SColour& colour = PALETTE[i % PALETTE.size()];
            m_Svg.Element("polygon").Set("points", points);
            m_Svg.Set("fill", colour.m_pFill).Set("stroke", colour.m_pStroke).End();
        }
        m_Svg.EndContent("g");
    }

    void DrawNumbers() {
        BeginTexts("numbers", STRIP_COLOUR, "middle");
        for (size_t i = 0; i < m_Packing.m_Placed.size(); ++i) {
            const mgVector3& at = m_Packing.m_Placed[i].m_At;
            const SLabelPoint label = FindLabelPoint(PieceOf(i));
            const std::string number = std::to_string(i + 1);
            // A digit is about 0.56 of the size wide and 0.72 high: the text's half diagonal must fit.
            const double halfDiagonal = std::hypot(0.28 * static_cast<double>(number.size()), 0.36);
            const double size =
                std::clamp(0.9 * label.m_Room / halfDiagonal, Sized(SMALLEST_LABEL), Sized(LARGEST_LABEL));
            Text(label.m_X + at.x, label.m_Y + at.y - 0.36 * size, size, number);
        }
        m_Svg.EndContent("g");
    }

    void DrawStrip() {
        const double width = m_Packing.m_Strip.m_fWidth;
        const double top = m_View.m_Top + Sized(12.0);
        BeginLines("strip", STRIP_COLOUR, 1.6);
        Line(0.0, top, 0.0, 0.0);
        Line(0.0, 0.0, width, 0.0);
        Line(width, 0.0, width, top);
        m_Svg.EndContent("g");
    }

    void DrawHeight() {
        const double height = m_Packing.m_fHeight;
        const double width = m_Packing.m_Strip.m_fWidth;
        BeginLines("height", HEIGHT_COLOUR, 1.2);
        Line(0.0, height, width, height);
        m_Svg.EndContent("g");
        BeginTexts("height", HEIGHT_COLOUR, "middle");
        const CNumericLocale numericLocale;
        std::array<char, 96> caption{};
        std::snprintf(caption.data(), caption.size(), "Minimum Height = %0.2f", height);
        Text(width / 2.0, height + Sized(7.0), Sized(13.0), caption.data());
        m_Svg.EndContent("g");
    }

    void BeginLines(char const* pClass, char const* pColour, double width) {
        m_Svg.Element("g").Set("class", pClass).Set("stroke", pColour).Set("stroke-width", Sized(width));
        m_Svg.Set("stroke-linecap", "round").BeginContent();
    }

    void BeginTexts(char const* pClass, char const* pColour, char const* pAnchor) {
        m_Svg.Element("g").Set("class", pClass).Set("fill", pColour).Set("text-anchor", pAnchor);
        m_Svg.BeginContent();
    }

    void Line(double fromX, double fromY, double toX, double toY) {
        m_Svg.Element("line").Set("x1", fromX).Set("y1", -fromY).Set("x2", toX).Set("y2", -toY).End();
    }

    /// Texts are turned over by their place only: the element that turns the outlines would mirror them.
    void Text(double x, double y, double size, std::string_view text) {
        m_Svg.Element("text").Set("x", x).Set("y", -y).Set("font-size", size).EndWithText(text);
    }

    [[nodiscard]] double Sized(double size) const { return size * m_View.m_Scale; }

    [[nodiscard]] const CPolygon& PieceOf(size_t nPlaced) const {
        return m_Pieces[static_cast<size_t>(m_Packing.m_Placed[nPlaced].m_nPiece)];
    }

    std::span<const CPolygon> m_Pieces;
    const SPacking& m_Packing;
    SPictureView m_View;
    CSvgWriter m_Svg;
};

}  // namespace

std::string DrawPackingSvg(std::span<const CPolygon> pieces, const SPacking& packing) {
    return IsFinite(pieces, packing) ? CPackingPicture(pieces, packing).Draw() : std::string();
}

}  // namespace nestrix
