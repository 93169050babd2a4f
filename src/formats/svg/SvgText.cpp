#include "formats/svg/SvgText.h"

#include <algorithm>
#include <cmath>

#include "formats/svg/SvgStyle.h"

namespace nestrix {

namespace {

constexpr int DEEPEST = 16;

/// The characters of a text in UTF-8.
double LettersOf(std::string_view text) {
    return static_cast<double>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

/// Appends with every run of white space as one blank, and none at the beginning.
void AppendCollapsed(std::string_view more, std::string& text) {
    for (const char c : more) {
        if (c != ' ' && c != '\n' && c != '\t' && c != '\r') {
            text.push_back(c);
        } else if (!text.empty() && text.back() != ' ') {
            text.push_back(' ');
        }
    }
}

/// Collects the lines of one text.
class CLines {
public:
    CLines(const CSvgElement& text, const CSvgFile& file) : m_File(file) { Take(text, 0); }

    [[nodiscard]] std::vector<SDrawnText> Finish() {
        EndLine();
        return std::move(m_Lines);
    }

private:
    void Take(const CSvgElement& element, int nDepth) {
        const std::optional<double> x = FirstOf(element, "x", EDirection::ACROSS);
        const std::optional<double> y = FirstOf(element, "y", EDirection::DOWN);
        if (x || y) {
            EndLine();
        }
        m_At.m_X = x.value_or(m_At.m_X) + FirstOf(element, "dx", EDirection::ACROSS).value_or(0.0);
        m_At.m_Y = y.value_or(m_At.m_Y) + FirstOf(element, "dy", EDirection::DOWN).value_or(0.0);
        for (const pugi::xml_node child : element.Node().children()) {
            if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
                Append(element, child.value());
            } else if (nDepth < DEEPEST && IsPart(child)) {
                SSvgContext context = element.Context();
                TakeFont(child, context);
                Take(element.Inner(child, context), nDepth + 1);
            }
        }
    }

    [[nodiscard]] bool IsPart(pugi::xml_node child) const {
        const std::string_view name = m_File.NameOf(child);
        return (name == "tspan" || name == "textPath" || name == "a") &&
               FindProperty(child, "display") != "none";
    }

    /// The first of a list of lengths: letters with places of their own are not followed.
    static std::optional<double> FirstOf(const CSvgElement& element, char const* pName,
                                         EDirection eDirection) {
        const std::string_view list = element.Text(pName);
        const std::string_view first = list.substr(0, list.find_first_of(", \t\r\n"));
        const std::optional<SSvgLength> length = ParseLength(first);
        return length ? std::optional(UserUnits(*length, eDirection, element.Context())) : std::nullopt;
    }

    void Append(const CSvgElement& element, std::string_view text) {
        if (m_Text.empty()) {
            m_Context = element.Context();
            m_Start = m_At;
            m_nLine = m_File.LineOf(element.Node());
        }
        AppendCollapsed(text, m_Text);
    }

    void EndLine() {
        if (m_Text.ends_with(' ')) {
            m_Text.pop_back();
        }
        if (!m_Text.empty() && m_Context.m_bVisible) {
            const double width = LettersOf(m_Text) * LETTER_WIDTH * m_Context.m_FontSize;
            SDrawnText line;
            line.m_Text = m_Text;
            line.m_At = {m_Start.m_X - m_Context.m_Anchor * width, m_Start.m_Y};
            line.m_Height = CAPITAL_HEIGHT * m_Context.m_FontSize;
            // With y down, what reads well stands on its head and backwards.
            line.m_bMirrored = true;
            line.m_Degrees = 180.0;
            line.m_Layer = m_Context.m_Layer.value();
            line.m_nLine = m_nLine;
            m_Lines.push_back(m_Context.m_Map(line));
        }
        m_Text.clear();
    }

    const CSvgFile& m_File;
    SPoint m_At;
    SPoint m_Start;
    SSvgContext m_Context;  ///< of the line's first letter
    int m_nLine = 0;
    std::string m_Text;
    std::vector<SDrawnText> m_Lines;
};

}  // namespace

void TakeFont(pugi::xml_node element, SSvgContext& context) {
    if (const std::optional<SSvgLength> size = ParseLength(FindProperty(element, "font-size"))) {
        context.m_FontSize = size->m_eKind == SSvgLength::EKind::PERCENT
                                 ? size->m_Value / 100.0 * context.m_FontSize
                                 : UserUnits(*size, EDirection::NEITHER, context);
    }
    const std::string_view anchor = FindProperty(element, "text-anchor");
    if (anchor == "start" || anchor == "middle" || anchor == "end") {
        context.m_Anchor = anchor == "start" ? 0.0 : anchor == "middle" ? 0.5 : 1.0;
    }
}

std::vector<SDrawnText> TextsOf(const CSvgElement& element, const CSvgFile& file) {
    return CLines(element, file).Finish();
}

}  // namespace nestrix
