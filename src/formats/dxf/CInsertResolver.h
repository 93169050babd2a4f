#pragma once

#include <set>
#include <string>

#include "formats/dxf/CDxfFindings.h"
#include "formats/dxf/DxfDrawing.h"
#include "formats/dxf/SDxfContent.h"

namespace nestrix {

/// Draws what a file contains: every block where it is inserted, without what its layer hides.
///
/// Order of use: construct; Resolve once.
class CInsertResolver {
public:
    CInsertResolver(const SDxfContent& content, const SDxfLimits& limits, CDxfFindings& findings);

    /// Appends paths and texts to the drawing.
    /// @param scale takes lengths of the file to those of the drawing.
    void Resolve(double scale, SDrawing& drawing);

private:
    /// What an entity takes from the insert that brings it.
    struct SSurroundings {
        SMap m_Map;
        std::string m_Layer = "0";  ///< of what is drawn on layer 0
        std::string m_Name;         ///< of the nearest block that has one
        int m_nDepth = 0;
    };

    void Draw(const SDxfBlock& block, const SSurroundings& surroundings);
    void Draw(const SDrawnPath& path, const SSurroundings& surroundings);
    void Draw(const SDrawnText& text, const SSurroundings& surroundings);
    void Draw(const SDxfUnread& unread, const SSurroundings& surroundings);
    void Draw(const SDxfInsert& insert, const SSurroundings& surroundings);
    void DrawCopies(const SDxfInsert& insert, const SDxfBlock& block, const SSurroundings& surroundings);
    [[nodiscard]] const SDxfBlock* FindBlock(const SDxfInsert& insert, int nDepth);
    [[nodiscard]] bool IsHidden(const std::string& layer, bool bInsert);
    [[nodiscard]] bool HasRoomFor(size_t nStretches, int nDepth);

    const SDxfContent& m_Content;
    SDxfLimits m_Limits;
    CDxfFindings& m_Findings;
    SDrawing* m_pDrawing = nullptr;
    std::set<const SDxfBlock*> m_Open;  ///< those that are being drawn
    bool m_bFull = false;
};

}  // namespace nestrix
