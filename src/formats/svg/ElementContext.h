#pragma once

#include "formats/svg/CSvgFindings.h"
#include "formats/svg/SSvgContext.h"

namespace nestrix {

/// What the element makes of what it has from those around it: with its transform, visibility, font and
/// names.
[[nodiscard]] SSvgContext ContextOf(pugi::xml_node node, const SSvgContext& around, CSvgFindings& findings);

/// Mentions attributes that are not looked at, though others show the element differently for them.
void MentionOddities(pugi::xml_node node, CSvgFindings& findings);

/// Mentions a style sheet that may hide anything.
void MentionStyleSheet(pugi::xml_node style, CSvgFindings& findings);

}  // namespace nestrix
