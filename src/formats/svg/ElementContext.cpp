#include "formats/svg/ElementContext.h"

#include "formats/svg/SvgStyle.h"
#include "formats/svg/SvgText.h"

namespace nestrix {

namespace {

/// Its label, or its id.
void TakeNames(pugi::xml_node node, SSvgContext& context) {
    const bool bLayer = std::string_view(node.attribute("inkscape:groupmode").value()) == "layer";
    const pugi::xml_attribute label = node.attribute("inkscape:label");
    const pugi::xml_attribute id = node.attribute("id");
    if (bLayer) {
        context.m_Layer = *label.value() != '\0' ? label : id;
        return;
    }
    if (*label.value() != '\0') {
        context.m_Label = label;
    }
    if (*id.value() != '\0') {
        context.m_Id = id;
    }
}

void TakeVisibility(pugi::xml_node node, SSvgContext& context) {
    const std::string_view visibility = FindProperty(node, "visibility");
    if (!visibility.empty() && visibility != "inherit") {
        context.m_bVisible = visibility == "visible";
    }
}

void TakeTransform(pugi::xml_node node, SSvgContext& context, CSvgFindings& findings) {
    const std::string_view text = node.attribute("transform").value();
    if (text.empty() || text == "none") {
        return;
    }
    if (const std::optional<SMap> transform = ParseTransform(text)) {
        context.m_Map = context.m_Map * *transform;
    } else {
        findings.Fault(node, "transform is not understood: " + Quoted(text));
    }
}

}  // namespace

SSvgContext ContextOf(pugi::xml_node node, const SSvgContext& around, CSvgFindings& findings) {
    SSvgContext context = around;
    TakeTransform(node, context, findings);
    TakeVisibility(node, context);
    TakeFont(node, context);
    TakeNames(node, context);
    return context;
}

void MentionOddities(pugi::xml_node node, CSvgFindings& findings) {
    for (char const* pName : {"clip-path", "mask"}) {
        const std::string_view value = FindProperty(node, pName);
        if (!value.empty() && value != "none") {
            findings.Odd(node, std::string(pName) + " is not looked at: outlines are taken whole");
        }
    }
    if (node.attribute("transform-origin") || FindProperty(node, "transform-origin") != "") {
        findings.Odd(node, "transform-origin is not looked at");
    }
}

void MentionStyleSheet(pugi::xml_node style, CSvgFindings& findings) {
    const std::string_view sheet = style.child_value();
    if (sheet.find("display") != sheet.npos || sheet.find("visibility") != sheet.npos) {
        findings.Odd(style, "style sheets are not read: what they hide is not left out");
    }
}

}  // namespace nestrix
