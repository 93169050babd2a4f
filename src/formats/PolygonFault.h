#pragma once

#include <string>

namespace nestrix {

class CPolygonReader;

/// What makes the text of a polygon file unsound, in words that tell what to mend: whether there are other
/// vertices than announced, a comma or the semicolon is missing, or the box. Empty for a sound one.
/// @param reader that has read; the place in its text moves.
[[nodiscard]] std::string ExplainedFault(const CPolygonReader& reader);

}  // namespace nestrix
