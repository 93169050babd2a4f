#include "formats/dxf/CInsertResolver.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "formats/dxf/DxfRecordKinds.h"

namespace nestrix {

namespace {

/// Blocks in blocks in blocks: nobody draws deeper, and each takes some of the stack.
constexpr int GREATEST_DEPTH = 100;

constexpr const char* PLAIN_LAYER = "0";

bool IsWithin(SPoint point) {
    // Not the other way round: what is not a number is not within.
    return std::abs(point.m_X) <= LARGEST_NUMBER && std::abs(point.m_Y) <= LARGEST_NUMBER;
}

bool IsWithin(const SLineTo& line) {
    return IsWithin(line.m_End);
}

bool IsWithin(const SArcTo& arc) {
    return IsWithin(arc.m_Centre) && IsWithin(arc.m_FirstRadius) && IsWithin(arc.m_SecondRadius) &&
           IsWithin(arc.m_End) && std::isfinite(arc.m_From) && std::isfinite(arc.m_Sweep);
}

bool IsWithin(const SCurveTo& curve) {
    return IsWithin(curve.m_FirstControl) && IsWithin(curve.m_SecondControl) && IsWithin(curve.m_End);
}

bool IsWithin(const SPath& path) {
    return IsWithin(path.m_Start) &&
           std::all_of(path.m_Stretches.begin(), path.m_Stretches.end(), [](const CStretch& stretch) {
               return std::visit([](const auto& plain) { return IsWithin(plain); }, stretch);
           });
}

const std::string& LayerOf(const std::string& own, const std::string& inherited) {
    return own == PLAIN_LAYER ? inherited : own;
}

}  // namespace

CInsertResolver::CInsertResolver(const SDxfContent& content, const SDxfLimits& limits, CDxfFindings& findings)
    : m_Content(content), m_Limits(limits), m_Findings(findings) {}

void CInsertResolver::Resolve(double scale, SDrawing& drawing) {
    m_pDrawing = &drawing;
    SSurroundings surroundings;
    surroundings.m_Map = {scale, 0.0, 0.0, scale, 0.0, 0.0};
    Draw(m_Content.m_Model, surroundings);
}

void CInsertResolver::Draw(const SDxfBlock& block, const SSurroundings& surroundings) {
    m_Open.insert(&block);
    for (const CDxfEntity& entity : block.m_Entities) {
        std::visit([&](const auto& plain) { Draw(plain, surroundings); }, entity);
        if (m_bFull) {
            break;
        }
    }
    m_Open.erase(&block);
}

void CInsertResolver::Draw(const SDrawnPath& path, const SSurroundings& surroundings) {
    const std::string& layer = LayerOf(path.m_Layer, surroundings.m_Layer);
    if (IsHidden(layer, false) || !HasRoomFor(path.m_Path.m_Stretches.size(), surroundings.m_nDepth)) {
        return;
    }
    SDrawnPath drawn{surroundings.m_Map(path.m_Path), path.m_Name.empty() ? surroundings.m_Name : path.m_Name,
                     layer, path.m_nLine};
    if (IsWithin(drawn.m_Path)) {
        m_pDrawing->m_Paths.push_back(std::move(drawn));
    } else {
        m_Findings.Fault(path.m_nLine, "what is drawn here is too large");
    }
}

void CInsertResolver::Draw(const SDrawnText& text, const SSurroundings& surroundings) {
    const std::string& layer = LayerOf(text.m_Layer, surroundings.m_Layer);
    if (IsHidden(layer, false) || !HasRoomFor(1, surroundings.m_nDepth)) {
        return;
    }
    SDrawnText drawn = surroundings.m_Map(text);
    drawn.m_Layer = layer;
    if (IsWithin(drawn.m_At) && drawn.m_Height <= LARGEST_NUMBER && std::isfinite(drawn.m_Degrees)) {
        m_pDrawing->m_Texts.push_back(std::move(drawn));
    } else {
        m_Findings.Fault(text.m_nLine, "the text here is too large");
    }
}

void CInsertResolver::Draw(const SDxfUnread& unread, const SSurroundings& surroundings) {
    if (!IsHidden(LayerOf(unread.m_Layer, surroundings.m_Layer), false) &&
        HasRoomFor(1, surroundings.m_nDepth)) {
        m_Findings.LeaveOut(unread.m_Kind, unread.m_nLine);
    }
}

void CInsertResolver::Draw(const SDxfInsert& insert, const SSurroundings& surroundings) {
    const std::string& layer = LayerOf(insert.m_Layer, surroundings.m_Layer);
    const SDxfBlock* const pBlock =
        IsHidden(layer, true) ? nullptr : FindBlock(insert, surroundings.m_nDepth);
    if (pBlock == nullptr) {
        return;
    }
    const bool bAnonymous = pBlock->m_Name.starts_with('*');
    SSurroundings inner{surroundings.m_Map, layer, bAnonymous ? surroundings.m_Name : pBlock->m_Name,
                        surroundings.m_nDepth + 1};
    DrawCopies(insert, *pBlock, inner);
}

void CInsertResolver::DrawCopies(const SDxfInsert& insert, const SDxfBlock& block,
                                 const SSurroundings& surroundings) {
    const SMap place = insert.m_Map * SMap{1.0, 0.0, 0.0, 1.0, -block.m_Base.m_X, -block.m_Base.m_Y};
    SSurroundings inner = surroundings;
    for (int nRow = 0; nRow < insert.m_nRows; ++nRow) {
        for (int nColumn = 0; nColumn < insert.m_nColumns; ++nColumn) {
            // Also of what has nothing in it: looking into it takes time, too.
            if (!HasRoomFor(0, inner.m_nDepth)) {
                return;
            }
            const SMap step{1.0,
                            0.0,
                            0.0,
                            1.0,
                            nColumn * insert.m_ColumnStep.m_X + nRow * insert.m_RowStep.m_X,
                            nColumn * insert.m_ColumnStep.m_Y + nRow * insert.m_RowStep.m_Y};
            inner.m_Map = surroundings.m_Map * (step * place);
            Draw(block, inner);
        }
    }
}

const SDxfBlock* CInsertResolver::FindBlock(const SDxfInsert& insert, int nDepth) {
    const auto position = m_Content.m_Blocks.find(Folded(insert.m_Block));
    const char* pFault = nullptr;
    if (position == m_Content.m_Blocks.end()) {
        pFault = "is not in the file";
    } else if (position->second.m_bElsewhere) {
        pFault = "is in another file";
    } else if (m_Open.contains(&position->second)) {
        pFault = "is inserted into itself";
    } else if (nDepth >= GREATEST_DEPTH) {
        pFault = "is inserted too deep in other blocks";
    }
    if (pFault != nullptr) {
        m_Findings.AddOnce(SFinding::ESeverity::FAULT, insert.m_nLine,
                           "the block \"" + insert.m_Block + "\" " + pFault);
        return nullptr;
    }
    return &position->second;
}

bool CInsertResolver::IsHidden(const std::string& layer, bool bInsert) {
    const auto position = m_Content.m_Layers.find(Folded(layer));
    if (position == m_Content.m_Layers.end()) {
        return false;
    }
    const auto& [bFrozen, bOff] = position->second;
    const bool bHidden = bFrozen || (bOff && !bInsert);
    if (bHidden) {
        m_Findings.AddOnce(
            SFinding::ESeverity::NOTE, 0,
            "what is on the layer \"" + layer + "\" is left out: it is " + (bFrozen ? "frozen" : "off"));
    }
    return bHidden;
}

/// Only what blocks multiply is counted; the rest is no more than the file has room for.
bool CInsertResolver::HasRoomFor(size_t nStretches, int nDepth) {
    if (nDepth == 0) {
        return true;
    }
    if (m_bFull || m_Limits.m_nMostCopies == 0 || m_Limits.m_nMostStretches < nStretches) {
        m_bFull = true;
        m_Findings.AddOnce(SFinding::ESeverity::FAULT, 0,
                           "its blocks draw too much: more than any drawing does");
        return false;
    }
    --m_Limits.m_nMostCopies;
    m_Limits.m_nMostStretches -= nStretches;
    return true;
}

}  // namespace nestrix
