#include "formats/CStripPicture.h"

#include <algorithm>
#include <array>
#include <cmath>

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

// Neighbours in the list differ clearly, and all are light enough for dark text.
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

}  // namespace

CStripPicture::CStripPicture(const SPictureView& view, size_t nPieces) : m_View(view) {
    BeginDocument(nPieces);
}

void CStripPicture::BeginDocument(size_t nPieces) {
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
    m_Svg.Element("title").EndWithText("Packing of " + std::to_string(nPieces) +
                                       (nPieces == 1 ? " piece" : " pieces"));
    m_Svg.Element("rect").Set("x", left).Set("y", top).Set("width", width).Set("height", height);
    m_Svg.Set("fill", "#ffffff").End();
}

void CStripPicture::DrawScale(double height) {
    const double step = FindScaleStep(m_View.Extent());
    BeginLines("scale", SCALE_COLOUR, 0.8);
    for (int i = 0; i * step <= height; ++i) {
        Line(-Sized(5.0), i * step, 0.0, i * step);
    }
    EndGroup();
    BeginTexts("scale", SCALE_COLOUR, "end");
    for (int i = 0; i * step <= height; ++i) {
        Text(-Sized(8.0), i * step - Sized(3.0), Sized(9.0), SvgNumber(i * step));
    }
    EndGroup();
}

void CStripPicture::BeginOutlines() {
    m_Svg.Element("g").Set("class", "pieces").Set("transform", "scale(1 -1)");
    m_Svg.Set("stroke-linejoin", "round").Set("stroke-width", Sized(0.8)).BeginContent();
}

void CStripPicture::SetColours(size_t nColour) {
    const SColour& colour = PALETTE[nColour % PALETTE.size()];
    m_Svg.Set("fill", colour.m_pFill).Set("stroke", colour.m_pStroke);
}

void CStripPicture::BeginNumbers() {
    BeginTexts("numbers", STRIP_COLOUR, "middle");
}

void CStripPicture::DrawNumber(size_t nNumber, const SLabelPoint& label) {
    const std::string number = std::to_string(nNumber);
    // A digit is about 0.56 of the size wide and 0.72 high: the text's half diagonal must fit.
    const double halfDiagonal = std::hypot(0.28 * static_cast<double>(number.size()), 0.36);
    const double size =
        std::clamp(0.9 * label.m_Room / halfDiagonal, Sized(SMALLEST_LABEL), Sized(LARGEST_LABEL));
    Text(label.m_X, label.m_Y - 0.36 * size, size, number);
}

void CStripPicture::DrawStrip(double width) {
    BeginLines("strip", STRIP_COLOUR, 1.6);
    DrawWalls(0.0, width, 0.0);
    EndGroup();
}

void CStripPicture::DrawMargin(double width, double margin) {
    m_Svg.Element("g").Set("class", "margin").Set("stroke", SCALE_COLOUR).Set("stroke-width", Sized(0.4));
    m_Svg.Set("stroke-dasharray", Sized(3.0)).BeginContent();
    DrawWalls(margin, width - margin, margin);
    EndGroup();
}

void CStripPicture::DrawWalls(double left, double right, double floor) {
    const double top = m_View.m_Top + Sized(12.0);
    Line(left, top, left, floor);
    Line(left, floor, right, floor);
    Line(right, floor, right, top);
}

void CStripPicture::DrawHeight(double width, double height, std::string_view caption) {
    BeginLines("height", HEIGHT_COLOUR, 1.2);
    Line(0.0, height, width, height);
    EndGroup();
    BeginTexts("height", HEIGHT_COLOUR, "middle");
    Text(width / 2.0, height + Sized(7.0), Sized(13.0), caption);
    EndGroup();
}

std::string CStripPicture::Finish() {
    m_Svg.EndContent("svg");
    return m_Svg.Document();
}

void CStripPicture::BeginLines(char const* pClass, char const* pColour, double width) {
    m_Svg.Element("g").Set("class", pClass).Set("stroke", pColour).Set("stroke-width", Sized(width));
    m_Svg.Set("stroke-linecap", "round").BeginContent();
}

void CStripPicture::BeginTexts(char const* pClass, char const* pColour, char const* pAnchor) {
    m_Svg.Element("g").Set("class", pClass).Set("fill", pColour).Set("text-anchor", pAnchor);
    m_Svg.BeginContent();
}

void CStripPicture::Line(double fromX, double fromY, double toX, double toY) {
    m_Svg.Element("line").Set("x1", fromX).Set("y1", -fromY).Set("x2", toX).Set("y2", -toY).End();
}

/// Texts are turned over by their place only: the element that turns the outlines would mirror them.
void CStripPicture::Text(double x, double y, double size, std::string_view text) {
    m_Svg.Element("text").Set("x", x).Set("y", -y).Set("font-size", size).EndWithText(text);
}

}  // namespace nestrix
