#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

#include "drawing/SDrawing.h"
#include "drawing/SMap.h"

namespace nestrix {

/// A reference to a block: it is drawn once for each row and column.
struct SDxfInsert {
    std::string m_Block;
    SMap m_Map;  ///< takes the block's base point, as 0, 0, to the place of the first copy
    int m_nColumns = 1;
    int m_nRows = 1;
    SPoint m_ColumnStep;  ///< from one copy to the next
    SPoint m_RowStep;
    std::string m_Layer;
    int m_nLine = 0;
};

/// Something of a kind that is not read.
struct SDxfUnread {
    std::string m_Kind;
    std::string m_Layer;
    int m_nLine = 0;
};

using CDxfEntity = std::variant<SDrawnPath, SDrawnText, SDxfInsert, SDxfUnread>;

/// Entities under a name, to be inserted elsewhere.
struct SDxfBlock {
    std::string m_Name;
    SPoint m_Base;
    bool m_bElsewhere = false;  ///< it refers to another file
    std::vector<CDxfEntity> m_Entities;
};

/// Whether what lies on a layer can be seen.
struct SDxfLayer {
    bool m_bFrozen = false;  ///< hides whole blocks that are inserted on it
    bool m_bOff = false;
};

/// What stands in a DXF file, as it stands there: blocks are not resolved.
struct SDxfContent {
    int m_nUnitCode = 0;                        ///< $INSUNITS; 0 for none
    std::map<std::string, SDxfLayer> m_Layers;  ///< by folded name
    std::map<std::string, SDxfBlock> m_Blocks;  ///< by folded name
    SDxfBlock m_Model;                          ///< what is not in any block
};

/// The names of layers and blocks are the same in upper and lower case.
[[nodiscard]] std::string Folded(std::string name);

}  // namespace nestrix
