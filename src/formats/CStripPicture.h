#pragma once

#include <string>
#include <string_view>

#include "formats/CSvgWriter.h"
#include "formats/LabelPoint.h"
#include "formats/PictureView.h"

namespace nestrix {

/// A picture of a packing in the making: what those of all kinds of packings have in common. World
/// coordinates come in, y upward. Order of use: what lies behind is drawn first, Finish last.
class CStripPicture {
public:
    /// @param nPieces that will be shown.
    CStripPicture(const SPictureView& view, size_t nPieces);

    /// Marks along the left wall, from the floor up to this height.
    void DrawScale(double height);

    /// The pieces' outlines come into the one element that is turned over, so that their points are the world
    /// coordinates themselves.
    void BeginOutlines();

    /// The colours of the element that has begun.
    /// @param nColour any number: the palette repeats itself.
    void SetColours(size_t nColour);

    void BeginNumbers();

    /// A piece's number, as large as its room allows, but readable.
    void DrawNumber(size_t nNumber, const SLabelPoint& label);

    /// The walls and the floor.
    void DrawStrip(double width);

    /// A line along the top of the packing with a caption above it.
    void DrawHeight(double width, double height, std::string_view caption);

    /// Thin dashes between the walls, at this distance from them and from the floor.
    void DrawMargin(double width, double margin);

    /// Ends a group of elements that has begun.
    void EndGroup() { m_Svg.EndContent("g"); }

    /// The elements of what only one kind of packing has.
    [[nodiscard]] CSvgWriter& Svg() { return m_Svg; }

    /// @return the whole document.
    [[nodiscard]] std::string Finish();

private:
    void BeginDocument(size_t nPieces);
    void BeginLines(char const* pClass, char const* pColour, double width);
    void BeginTexts(char const* pClass, char const* pColour, char const* pAnchor);
    void Line(double fromX, double fromY, double toX, double toY);
    void DrawWalls(double left, double right, double floor);
    void Text(double x, double y, double size, std::string_view text);
    [[nodiscard]] double Sized(double size) const { return size * m_View.m_Scale; }

    SPictureView m_View;
    CSvgWriter m_Svg;
};

}  // namespace nestrix
