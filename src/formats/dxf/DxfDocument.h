#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "drawing/Unit.h"
#include "formats/dxf/CDxfWriter.h"

namespace nestrix {

// The frame of a DXF file of AutoCAD 2000: everything that a strict reader wants to find around the entities.

/// A layer of a written file.
struct SDxfLayerStyle {
    std::string m_Name;
    int m_nColour = 7;  ///< of AutoCAD's palette; 7 is black or white, whichever can be seen
};

/// What a drawing program handles as one.
struct SDxfEntityGroup {
    std::string m_Name;         ///< of plain characters
    std::string m_Description;  ///< as EncodedText has it
    std::vector<CDxfWriter::CHandle> m_Entities;
};

/// The bounding box of a drawing.
struct SDxfExtent {
    SPoint m_Low;
    SPoint m_High;
};

/// All of a document but its entities.
struct SDxfParts {
    std::optional<EUnit> m_Unit;
    SDxfExtent m_Extent;  ///< what is shown at first
    std::vector<SDxfLayerStyle> m_Layers;
    std::vector<SDxfEntityGroup> m_Groups;
};

/// The block that all entities belong to.
inline constexpr CDxfWriter::CHandle MODEL_SPACE = 0x1F;

/// A writer for entities, whose handles keep clear of those of the frame.
[[nodiscard]] CDxfWriter DxfEntityWriter();

/// The whole document.
/// @param entities a DxfEntityWriter with all of them; nothing is left in it.
[[nodiscard]] std::string DxfDocument(const SDxfParts& parts, CDxfWriter& entities);

}  // namespace nestrix
