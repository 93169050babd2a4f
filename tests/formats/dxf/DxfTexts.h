#pragma once

#include <string>
#include <vector>

#include "drawing/SDrawing.h"
#include "formats/dxf/DxfDrawing.h"

namespace nestrix::support {

// DXF files as short as they can be written by hand. Groups are words in one string, codes and values by
// turns: "0 LINE 10 1 20 2".

/// One group on two lines for every two words.
[[nodiscard]] std::string DxfGroups(const std::string& words);

/// A file with these entities in its drawing, and these blocks.
[[nodiscard]] std::string DxfFile(const std::string& entities, const std::string& blocks = "",
                                  const std::string& header = "");

/// The drawing of such a file.
[[nodiscard]] SDrawing ReadEntities(const std::string& entities, const std::string& blocks = "",
                                    const std::string& header = "");

/// "line: message" of each finding.
[[nodiscard]] std::vector<std::string> FindingsOf(const SDrawing& drawing);

/// Points on the path, the same stretch of it between each two neighbours.
[[nodiscard]] std::vector<SPoint> PointsOn(const SPath& path, int nOnEachStretch);

}  // namespace nestrix::support
