#pragma once

#include <optional>

#include "formats/svg/CSvgFindings.h"
#include "formats/svg/SSvgContext.h"

namespace nestrix {

/// An element of an SVG file within what it inherits. What is wrong about its attributes goes to the
/// findings.
class CSvgElement {
public:
    CSvgElement(pugi::xml_node node, const SSvgContext& context, CSvgFindings& findings)
        : m_Node(node), m_Context(context), m_Findings(findings) {}

    [[nodiscard]] pugi::xml_node Node() const { return m_Node; }
    [[nodiscard]] const SSvgContext& Context() const { return m_Context; }
    /// An element inside this one.
    [[nodiscard]] CSvgElement Inner(pugi::xml_node node, const SSvgContext& context) const {
        return {node, context, m_Findings};
    }

    [[nodiscard]] std::string_view Text(char const* pName) const { return m_Node.attribute(pName).value(); }

    /// A length in user units; none where the attribute is missing, "auto" or not understood.
    [[nodiscard]] std::optional<double> FindLength(char const* pName, EDirection eDirection) const;

    /// The same, and 0 for none.
    [[nodiscard]] double Length(char const* pName, EDirection eDirection) const {
        return FindLength(pName, eDirection).value_or(0.0);
    }

    void Fault(const std::string& message) const { m_Findings.Fault(m_Node, message); }

private:
    pugi::xml_node m_Node;
    const SSvgContext& m_Context;
    CSvgFindings& m_Findings;
};

}  // namespace nestrix
