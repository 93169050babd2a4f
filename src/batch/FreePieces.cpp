#include "batch/FreePieces.h"

#include <filesystem>
#include <map>

namespace nestrix {

namespace {

CRing OutlineOf(const CPolygon& polygon) {
    CRing outline;
    outline.reserve(polygon.m_Lines.size());
    for (const CLine& line : polygon.m_Lines) {
        const mgVector3& start = polygon.PositionOf(line.m_nStart);
        outline.push_back({start.x, start.y});
    }
    return outline;
}

}  // namespace

SFreePieces FreePiecesOf(const SPolygonInput& input, const SFreeOptions& options) {
    SFreePieces pieces;
    std::map<std::string, size_t> found;
    for (size_t i = 0; i < input.m_Files.size(); ++i) {
        const std::string& path = input.m_Files[i];
        CRing outline = OutlineOf(input.m_Polygons[i]);
        const auto [entry, bNew] = found.try_emplace(path, pieces.m_Pieces.size());
        // Somebody may have written the file anew in between.
        if (!bNew && pieces.m_Pieces[entry->second].m_Shape.m_Outline == outline) {
            ++pieces.m_Pieces[entry->second].m_nQuantity;
            continue;
        }
        const std::string name = std::filesystem::path(path).filename();
        pieces.m_Pieces.push_back({name, {std::move(outline), {}}, 1, options.m_Turns, options.m_bMirror});
        pieces.m_Files.push_back(path);
    }
    return pieces;
}

}  // namespace nestrix
