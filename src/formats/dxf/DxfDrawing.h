#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "drawing/SDrawing.h"

namespace nestrix {

/// What a file may draw before it is taken for a trap: a few bytes of nested blocks with rows and columns can
/// stand for more than any memory holds.
struct SDxfLimits {
    size_t m_nMostCopies = 2'000'000;     ///< of lines, texts and blocks, drawn through INSERT
    size_t m_nMostStretches = 5'000'000;  ///< of all lines together
};

/// Reads a text DXF file of any version. Never throws on bad input: what is wrong or left out becomes a
/// finding.
///
/// Lines, arcs, circles, ellipses, polylines with bulges and splines become paths, with all blocks resolved;
/// what lies flat but upside down is seen from above. Splines are exact but for those of a degree above three
/// and those with weights that are no conic: they are followed to a millionth of their extent. Splines that
/// have fit points only run through them as smoothly as can be. Texts are placed by the width that their
/// letters are likely to have where they are not aligned to the left.
///
/// Left out: layers that are off or frozen, paper space, what is invisible, hatches, dimensions and all else;
/// each kind is named once in the findings.
[[nodiscard]] SDrawing ReadDxf(const std::string& path);

/// The same for the content of a file.
/// @param file its name, for the findings.
[[nodiscard]] SDrawing ReadDxfText(std::string_view text, const std::string& file,
                                   const SDxfLimits& limits = {});

}  // namespace nestrix
