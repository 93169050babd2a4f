#include "formats/svg/CSvgWalk.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "formats/svg/ElementContext.h"
#include "formats/svg/SvgPathData.h"
#include "formats/svg/SvgPlan.h"
#include "formats/svg/SvgShapes.h"
#include "formats/svg/SvgStyle.h"
#include "formats/svg/SvgText.h"
#include "formats/svg/SvgViewport.h"

namespace nestrix {

namespace {

constexpr size_t MOST_NESTED = 1000;

// What reading takes of time and memory, counted in points.
constexpr size_t POINTS_AN_ELEMENT = 5;
constexpr size_t CHARACTERS_A_POINT = 32;

/// Times as much: a large file is large by itself, but what is copied to be as large was made for it.
constexpr size_t COST_OF_COPIES = 4;

/// No drawing is so large in any unit, and squares and products of such coordinates are finite by far.
constexpr double FARTHEST = 1e12;

template <size_t N>
bool IsOneOf(const std::array<std::string_view, N>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Elements that show their children.
constexpr std::array<std::string_view, 2> GROUPS{"g", "a"};

constexpr std::array<std::string_view, 6> SHAPES{"rect", "circle", "ellipse", "line", "polyline", "polygon"};

/// Elements that show nothing where they stand. It is no loss to leave them out.
constexpr std::array<std::string_view, 23> UNSEEN{
    "defs",    "symbol",         "clipPath",       "mask",
    "pattern", "marker",         "title",          "desc",
    "filter",  "linearGradient", "radialGradient", "meshgradient",
    "style",   "script",         "metadata",       "view",
    "font",    "font-face",      "animate",        "animateTransform",
    "set",     "cursor",         "solidColor"};

size_t LengthOfAttributes(pugi::xml_node node) {
    size_t nLength = 0;
    for (const pugi::xml_attribute attribute : node.attributes()) {
        nLength += std::string_view(attribute.value()).size();
    }
    return nLength;
}

bool IsNear(SPoint point) {
    return std::abs(point.m_X) <= FARTHEST && std::abs(point.m_Y) <= FARTHEST;  // and is a number
}

struct SNearness {
    bool operator()(const SLineTo& line) const { return IsNear(line.m_End); }
    bool operator()(const SArcTo& arc) const {
        return IsNear(arc.m_Centre) && IsNear(arc.m_FirstRadius) && IsNear(arc.m_SecondRadius) &&
               IsNear(arc.m_End) && std::isfinite(arc.m_From) && std::isfinite(arc.m_Sweep);
    }
    bool operator()(const SCurveTo& curve) const {
        return IsNear(curve.m_FirstControl) && IsNear(curve.m_SecondControl) && IsNear(curve.m_End);
    }
};

bool IsNear(const SPath& path) {
    return IsNear(path.m_Start) &&
           std::all_of(path.m_Stretches.begin(), path.m_Stretches.end(),
                       [](const CStretch& stretch) { return std::visit(SNearness(), stretch); });
}

std::string NameIn(const SSvgContext& context) {
    return context.m_Label ? context.m_Label.value() : context.m_Id.value();
}

}  // namespace

void CSvgWalk::Run() {
    const SSvgPage page = ReadPage(m_File.Root(), m_Findings);
    m_Drawing.m_Unit = page.m_Unit;
    SSvgContext inside = ContextOf(m_File.Root(), page.m_Inside, m_Findings);
    inside.m_Id = pugi::xml_attribute();  // programs give the page one, which would name everything
    inside.m_Label = pugi::xml_attribute();
    Descend(m_File.Root(), inside);
    while (!m_Frames.empty() && m_nPointsLeft > 0) {
        SFrame& frame = m_Frames.back();
        const pugi::xml_node node = frame.m_Next;
        if (!node) {
            m_nCopies -= frame.m_eChildren == EChildren::COPY ? 1 : 0;
            m_Frames.pop_back();
            continue;
        }
        frame.m_Next = frame.m_eChildren == EChildren::ALL ? node.next_sibling() : pugi::xml_node();
        Visit(node, SSvgContext(frame.m_Inside), frame.m_eChildren == EChildren::COPY);
    }
}

void CSvgWalk::Visit(pugi::xml_node node, const SSvgContext& around, bool bCopied) {
    const std::string_view name = m_File.NameOf(node);
    if (name.empty() || (IsOneOf(UNSEEN, name) && !(bCopied && name == "symbol"))) {
        if (name == "style") {
            MentionStyleSheet(node, m_Findings);
        }
        return;
    }
    if (FindProperty(node, "display") == "none" || node.attribute(ADDED_BY_PLAN) ||
        !Afford(node, POINTS_AN_ELEMENT + LengthOfAttributes(node) / CHARACTERS_A_POINT)) {
        return;
    }
    const SSvgContext context = ContextOf(node, around, m_Findings);
    MentionOddities(node, m_Findings);
    const CSvgElement element(node, context, m_Findings);
    if (IsOneOf(GROUPS, name)) {
        Descend(node, context);
    } else if (name == "svg" || name == "symbol") {
        // What shows a symbol tells its size.
        const CSvgElement sizes(bCopied ? m_Frames.back().m_Element : node, context, m_Findings);
        Descend(node, InsideViewport(element, sizes));
    } else if (name == "switch") {
        DescendIntoSwitch(node, context);
    } else if (name == "use") {
        Copy(element);
    } else if (name == "text") {
        WriteText(element);
    } else if (name == "path") {
        DrawPathData(element);
    } else if (IsOneOf(SHAPES, name)) {
        DrawShape(name, element);
    } else {
        m_Findings.Odd(node, "left out: " + Quoted(name) + ", which is no outline and no text");
    }
}

void CSvgWalk::Push(const SFrame& frame) {
    if (m_Frames.size() < MOST_NESTED) {
        m_nCopies += frame.m_eChildren == EChildren::COPY ? 1 : 0;
        m_Frames.push_back(frame);
    } else if (!m_bTooDeep) {
        m_bTooDeep = true;
        m_Findings.Fault(frame.m_Element, "more than " + std::to_string(MOST_NESTED) +
                                              " elements within each other; what is deeper is left out");
    }
}

void CSvgWalk::Descend(pugi::xml_node node, const SSvgContext& inside) {
    if (node.first_child()) {
        Push({node, node.first_child(), inside, EChildren::ALL});
    }
}

/// Of the children the first is shown that asks for nothing that a reader might not have.
void CSvgWalk::DescendIntoSwitch(pugi::xml_node node, const SSvgContext& inside) {
    for (const pugi::xml_node child : node.children()) {
        const std::string_view name = m_File.NameOf(child);
        if (!name.empty() && name != "foreignObject" && !child.attribute("requiredExtensions") &&
            !child.attribute("systemLanguage")) {
            Push({node, child, inside, EChildren::ONE});
            return;
        }
    }
}

void CSvgWalk::Copy(const CSvgElement& use) {
    pugi::xml_attribute reference = use.Node().attribute("href");
    if (!reference) {
        reference = use.Node().attribute("xlink:href");
    }
    const std::string_view target = reference.value();
    if (!target.starts_with('#')) {
        m_Findings.Odd(use.Node(),
                       target.empty() ? "left out: a 'use' of nothing" : "left out: a 'use' of another file");
        return;
    }
    const pugi::xml_node copied = FindById(target.substr(1));
    if (!copied) {
        use.Fault("there is nothing with the id " + Quoted(target.substr(1)));
        return;
    }
    if (copied == use.Node() || IsBeingDrawn(copied)) {
        use.Fault("a copy that contains itself: " + Quoted(target.substr(1)));
        return;
    }
    SSvgContext inside = use.Context();
    inside.m_Map =
        inside.m_Map *
        SMap{1.0, 0.0, 0.0, 1.0, use.Length("x", EDirection::ACROSS), use.Length("y", EDirection::DOWN)};
    Push({use.Node(), copied, inside, EChildren::COPY});
}

bool CSvgWalk::IsBeingDrawn(pugi::xml_node node) const {
    return std::any_of(m_Frames.begin(), m_Frames.end(),
                       [node](const SFrame& frame) { return frame.m_Element == node; });
}

pugi::xml_node CSvgWalk::FindById(std::string_view id) {
    if (m_ById.empty()) {
        const pugi::xml_node root = m_File.Root();
        pugi::xml_node node = root;
        while (node) {
            if (const pugi::xml_attribute attribute = node.attribute("id")) {
                m_ById.emplace(attribute.value(), node);
            }
            pugi::xml_node next = node.first_child();
            while (!next && node != root) {
                next = node.next_sibling();
                node = node.parent();
            }
            node = next;
        }
    }
    const auto found = m_ById.find(id);
    return found != m_ById.end() ? found->second : pugi::xml_node();
}

void CSvgWalk::DrawShape(std::string_view name, const CSvgElement& element) {
    if (!element.Context().m_bVisible) {
        return;
    }
    if (const std::optional<SPath> path = ShapeOf(name, element)) {
        Draw(element, *path);
    }
}

void CSvgWalk::DrawPathData(const CSvgElement& element) {
    const std::string_view text = element.Text("d");
    if (!element.Context().m_bVisible || text == "none") {
        return;
    }
    const SSvgPathData data = ParsePathData(text, m_nPointsLeft);
    if (data.m_nUnderstood < text.size()) {
        element.Fault("path data is not understood from character " + std::to_string(data.m_nUnderstood + 1) +
                      " on: " + Quoted(text.substr(data.m_nUnderstood)));
    }
    if (data.m_bTooMany) {
        Afford(element.Node(), m_nPointsLeft + 1);
        return;
    }
    for (const SPath& path : data.m_Paths) {
        Draw(element, path);
    }
}

void CSvgWalk::Draw(const CSvgElement& element, const SPath& path) {
    const SSvgContext& context = element.Context();
    std::string name = NameIn(context);
    std::string layer = context.m_Layer.value();
    if (!Afford(element.Node(),
                path.m_Stretches.size() + (name.size() + layer.size()) / CHARACTERS_A_POINT)) {
        return;
    }
    SPath drawn = context.m_Map(path);
    if (!IsNear(drawn)) {
        element.Fault("lies farther out than any drawing reaches");
        return;
    }
    m_Drawing.m_Paths.push_back(
        {std::move(drawn), std::move(name), std::move(layer), m_File.LineOf(element.Node())});
}

void CSvgWalk::WriteText(const CSvgElement& element) {
    for (SDrawnText& text : TextsOf(element, m_File)) {
        if (!Afford(element.Node(), 1 + (text.m_Text.size() + text.m_Layer.size()) / CHARACTERS_A_POINT)) {
            return;
        }
        if (IsNear(text.m_At) && text.m_Height <= FARTHEST) {
            m_Drawing.m_Texts.push_back(std::move(text));
        } else {
            element.Fault("lies farther out than any drawing reaches");
        }
    }
}

/// @return whether there was room for so many points, in all that is read.
bool CSvgWalk::Afford(pugi::xml_node node, size_t nPoints) {
    const size_t nCost = nPoints * (m_nCopies > 0 ? COST_OF_COPIES : 1);
    if (nCost >= m_nPointsLeft) {
        if (m_nPointsLeft > 0) {
            m_Findings.Fault(node,
                             "with all its copies, the drawing has too many points and elements to be read");
        }
        m_nPointsLeft = 0;
        return false;
    }
    m_nPointsLeft -= nCost;
    return true;
}

}  // namespace nestrix
