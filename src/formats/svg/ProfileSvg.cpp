#include "formats/svg/ProfileSvg.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "formats/CSvgWriter.h"
#include "formats/SvgNumber.h"
#include "formats/svg/XmlText.h"

namespace nestrix {

namespace {

// As the window's overlays have them.
constexpr char const* OUTLINE = "#999999";
constexpr char const* FRONT = "#ff0000";
constexpr char const* BACK = "#0000ff";
constexpr char const* REFERENCE = "#000000";

constexpr double PICTURE_PIXELS = 1000.0;  ///< the longer side, for viewers that ask for a size
constexpr double GLYPH_WIDTH = 0.556;      ///< of a digit in the sheet's font, in sizes of the text
constexpr double ROW_OF_SQUARE = 1.5;      ///< a row's length, counted in sides of the square of all cells

struct SSheetBox {
    double m_Left = std::numeric_limits<double>::infinity();
    double m_Low = std::numeric_limits<double>::infinity();
    double m_Right = -std::numeric_limits<double>::infinity();
    double m_High = -std::numeric_limits<double>::infinity();

    void Include(double x, double y) {
        m_Left = std::min(m_Left, x);
        m_Low = std::min(m_Low, y);
        m_Right = std::max(m_Right, x);
        m_High = std::max(m_High, y);
    }
    [[nodiscard]] bool Has(double x, double y) const {
        return x >= m_Left && x <= m_Right && y >= m_Low && y <= m_High;
    }
    [[nodiscard]] double Width() const { return m_Right - m_Left; }
    [[nodiscard]] double Height() const { return m_High - m_Low; }
    [[nodiscard]] bool IsFinite() const { return std::isfinite(Width()) && std::isfinite(Height()); }
};

SSheetBox BoxOf(const SProfiledPiece& piece) {
    SSheetBox box;
    const auto include = [&box](const mgVector3& at) { box.Include(at.x, at.y); };
    include(piece.m_Polygon.m_BoundingBoxMin);
    include(piece.m_Polygon.m_BoundingBoxMax);
    for (const CPoint& point : piece.m_Polygon.m_Points) {
        include(point.m_Position);
    }
    return box;
}

/// How wide and how high a piece is, for its reader.
std::string SizeText(const CPolygon& polygon) {
    const mgVector3 size = polygon.m_BoundingBoxMax - polygon.m_BoundingBoxMin;
    return SvgNumber(double{size.x}) + " x " + SvgNumber(double{size.y});
}

/// A piece's place on the sheet: where its 0, 0 lies, y downward.
struct SCell {
    SSheetBox m_Box;
    double m_X = 0.0;
    double m_Y = 0.0;
};

/// The sheet in the making.
class CSheet {
public:
    explicit CSheet(std::span<const SProfiledPiece> pieces) : m_Pieces(pieces) { LayOut(); }

    /// Empty when some number is not finite.
    [[nodiscard]] std::string Draw() {
        if (!std::isfinite(m_Width) || !std::isfinite(m_Height)) {
            return {};
        }
        Begin();
        for (size_t i = 0; i < m_Pieces.size(); ++i) {
            DrawPiece(m_Pieces[i], m_Cells[i]);
        }
        m_Svg.EndContent("svg");
        return m_Svg.Document();
    }

private:
    /// In rows, each as high as its highest piece, with room for two lines of text below.
    void LayOut() {
        double area = 0.0;
        for (const SProfiledPiece& piece : m_Pieces) {
            m_Cells.push_back({BoxOf(piece)});
            const double side = std::max(m_Cells.back().m_Box.Width(), m_Cells.back().m_Box.Height());
            area += side * side;
        }
        const double row = ROW_OF_SQUARE * std::sqrt(area);
        m_Unit = row / 400.0;
        double x = Gap();
        double top = Gap();
        double height = 0.0;
        for (size_t i = 0; i < m_Cells.size(); ++i) {
            SCell& cell = m_Cells[i];
            if (x > Gap() && x + cell.m_Box.Width() > row) {
                x = Gap();
                top += height + Gap();
                height = 0.0;
            }
            height = std::max(height, cell.m_Box.Height() + 2.5 * TextSize());
            cell.m_X = x - cell.m_Box.m_Left;
            cell.m_Y = top + cell.m_Box.m_High;
            x += std::max(cell.m_Box.Width(), WidthOfTexts(m_Pieces[i])) + Gap();
            m_Width = std::max(m_Width, x);
            m_Height = std::max(m_Height, top + height + Gap());
        }
    }

    void Begin() {
        const double pixels = PICTURE_PIXELS / std::max(m_Width, m_Height);
        m_Svg.Element("svg").Set("xmlns", "http://www.w3.org/2000/svg");
        m_Svg.Set("viewBox", "0 0 " + SvgNumber(m_Width) + " " + SvgNumber(m_Height));
        m_Svg.Set("width", std::ceil(m_Width * pixels)).Set("height", std::ceil(m_Height * pixels));
        m_Svg.Set("font-family", "Liberation Sans, Arial, Helvetica, sans-serif").BeginContent();
        m_Svg.Element("title").EndWithText("Profiles of pieces");
        m_Svg.Element("rect").Set("width", m_Width).Set("height", m_Height).Set("fill", "#ffffff").End();
    }

    void DrawPiece(const SProfiledPiece& piece, const SCell& cell) {
        const CPolygon& polygon = piece.m_Polygon;
        m_Svg.Element("g").Set("class", "piece");
        m_Svg.Set("transform",
                  "translate(" + SvgNumber(cell.m_X) + " " + SvgNumber(cell.m_Y) + ") scale(1 -1)");
        m_Svg.Set("fill", "none").Set("stroke-width", m_Unit / 2.0).BeginContent();
        DrawBox(polygon);
        DrawOutline(piece);
        DrawProfile(polygon, polygon.m_FrontLines, polygon.m_FrontPoints, "front", FRONT);
        DrawProfile(polygon, polygon.m_BackLines, polygon.m_BackPoints, "back", BACK);
        if (cell.m_Box.Has(0.0, 0.0)) {
            Dot({0.0F, 0.0F, 0.0F}, REFERENCE);  // that of a drawing may lie far away
        }
        m_Svg.EndContent("g");
        Text(piece.m_Name, cell, 1.0);
        Text(SizeText(polygon), cell, 2.1);
    }

    void DrawBox(const CPolygon& polygon) {
        const mgVector3& low = polygon.m_BoundingBoxMin;
        const mgVector3 size = polygon.m_BoundingBoxMax - low;
        m_Svg.Element("rect").Set("class", "box").Set("x", double{low.x}).Set("y", double{low.y});
        m_Svg.Set("width", std::max(double{size.x}, 0.0)).Set("height", std::max(double{size.y}, 0.0));
        m_Svg.Set("stroke", FRONT).Set("stroke-width", m_Unit / 8.0).End();
    }

    void DrawOutline(const SProfiledPiece& piece) {
        CRing outline;
        for (const CPoint& point : piece.m_Polygon.m_Points) {
            outline.push_back({point.m_Position.x, point.m_Position.y});
        }
        std::string path = RingText(outline);
        for (const CRing& hole : piece.m_Holes) {
            path.append(RingText(hole));
        }
        m_Svg.Element("path").Set("class", "outline").Set("d", path).Set("stroke", OUTLINE).End();
    }

    void DrawProfile(const CPolygon& polygon, const std::vector<CLine>& lines,
                     const std::vector<CPoint>& points, char const* pClass, char const* pColour) {
        std::string path;
        for (const CLine& line : lines) {
            path.append("M").append(PairText(polygon.PositionOf(line.m_nStart)));
            path.append("L").append(PairText(polygon.PositionOf(line.m_nEnd)));
        }
        if (!path.empty()) {
            m_Svg.Element("path").Set("class", pClass).Set("d", path).Set("stroke", pColour);
            m_Svg.Set("stroke-width", m_Unit).End();
        }
        for (const CPoint& point : points) {
            Dot(point.m_Position, pColour);
        }
    }

    void Dot(const mgVector3& at, char const* pColour) {
        m_Svg.Element("circle").Set("cx", double{at.x}).Set("cy", double{at.y}).Set("r", 1.2 * m_Unit);
        m_Svg.Set("fill", pColour).End();
    }

    void Text(const std::string& text, const SCell& cell, double line) {
        const double y = cell.m_Y - cell.m_Box.m_Low + line * TextSize();
        m_Svg.Element("text").Set("x", cell.m_X + cell.m_Box.m_Left).Set("y", y).Set("font-size", TextSize());
        m_Svg.EndWithText(Escaped(text));
    }

    [[nodiscard]] static std::string PairText(const mgVector3& at) {
        return SvgNumber(at.x) + "," + SvgNumber(at.y);
    }

    [[nodiscard]] static std::string RingText(const CRing& ring) {
        std::string text;
        for (const SPoint point : ring) {
            text.append(text.empty() ? "M" : " ").append(SvgNumber(point.m_X)).append(",");
            text.append(SvgNumber(point.m_Y));
        }
        return text + "Z";
    }

    [[nodiscard]] static std::string Escaped(const std::string& text) {
        std::string escaped;
        for (const char c : XmlText(text)) {
            switch (c) {
                case '&':
                    escaped += "&amp;";
                    break;
                case '<':
                    escaped += "&lt;";
                    break;
                default:
                    escaped += c;
            }
        }
        return escaped;
    }

    [[nodiscard]] double Gap() const { return 12.0 * m_Unit; }
    [[nodiscard]] double WidthOfTexts(const SProfiledPiece& piece) const {
        const size_t nLetters = std::max(piece.m_Name.size(), SizeText(piece.m_Polygon).size());
        return static_cast<double>(nLetters) * GLYPH_WIDTH * TextSize();
    }
    [[nodiscard]] double TextSize() const { return 7.0 * m_Unit; }

    std::span<const SProfiledPiece> m_Pieces;
    std::vector<SCell> m_Cells;
    double m_Unit = 1.0;  ///< how thick a profile is drawn
    double m_Width = 0.0;
    double m_Height = 0.0;
    CSvgWriter m_Svg;
};

}  // namespace

std::string DrawProfilesSvg(std::span<const SProfiledPiece> pieces) {
    const bool bFinite = std::all_of(pieces.begin(), pieces.end(),
                                     [](const SProfiledPiece& piece) { return BoxOf(piece).IsFinite(); });
    return bFinite ? CSheet(pieces).Draw() : std::string();
}

}  // namespace nestrix
