#include "nest/CCompactionProgram.h"

#include <algorithm>

#include "nest/LinearProgram.h"

namespace nestrix {

namespace {

/// What a unit of overlap that is left costs, in units of height: more than could be gained by leaving it.
constexpr double OVERLAP_COST = 30.0;

/// What a unit of mean height of the items costs.
constexpr double FALL_COST = 0.001;

// The columns are those of the items' moves, two each, that of the height, and those of the overlaps. All
// lengths are counted in reaches.

int ColumnOfX(size_t nItem) {
    return static_cast<int>(2 * nItem);
}

int ColumnOfY(size_t nItem) {
    return ColumnOfX(nItem) + 1;
}

int ColumnOfHeight(size_t nItems) {
    return ColumnOfX(nItems);
}

bool HasRoom(const SMovable& item) {
    const SPlaneBox& room = item.m_Room;
    return room.m_Low.m_X <= room.m_High.m_X && room.m_Low.m_Y <= room.m_High.m_Y;
}

void AddMoveAlong(CRows& rows, size_t nItem, SPoint normal) {
    if (nItem != NOT_MOVABLE) {
        rows.AddElement(ColumnOfX(nItem), normal.m_X);
        rows.AddElement(ColumnOfY(nItem), normal.m_Y);
    }
}

}  // namespace

CCompactionProgram::CCompactionProgram(std::span<const SMovable> items, double fixedTop, double reach)
    : m_pSolver(MakeSolver()),
      m_nItems(items.size()),
      m_Reach(reach),
      m_bRoom(std::all_of(items.begin(), items.end(), HasRoom)) {
    AddItems(items, fixedTop);
    AddTops(items);
}

CCompactionProgram::~CCompactionProgram() = default;

void CCompactionProgram::AddItems(std::span<const SMovable> items, double fixedTop) {
    const double fallCost = FALL_COST / static_cast<double>(items.size());
    CColumns columns;
    for (const SMovable& item : items) {
        const SPlaneBox& room = item.m_Room;
        columns.Add(room.m_Low.m_X / m_Reach, room.m_High.m_X / m_Reach, 0.0);
        columns.Add(room.m_Low.m_Y / m_Reach, room.m_High.m_Y / m_Reach, fallCost);
    }
    columns.Add(fixedTop / m_Reach, COIN_DBL_MAX, 1.0);
    columns.AddTo(*m_pSolver);
}

/// No item is higher than the strip.
void CCompactionProgram::AddTops(std::span<const SMovable> items) {
    CRows rows;
    for (size_t i = 0; i < items.size(); ++i) {
        rows.AddElement(ColumnOfHeight(m_nItems), 1.0);
        rows.AddElement(ColumnOfY(i), -1.0);
        rows.EndRow(items[i].m_Top / m_Reach);
    }
    rows.AddTo(*m_pSolver);
    m_Lost.resize(items.size(), 0.0);
}

/// What the items' moves leave of a pair's overlap is a column of its own, as dear as can be.
void CCompactionProgram::AddOverlaps(std::span<const SKeepApart> rows) {
    CColumns columns;
    for (const SKeepApart& row : rows) {
        m_OverlapColumns.resize(std::max(m_OverlapColumns.size(), row.m_nPair + 1));
        std::optional<int>& column = m_OverlapColumns[row.m_nPair];
        if (row.m_Least > 0.0 && !column) {
            column = m_pSolver->numberColumns() + columns.Count();
            columns.Add(0.0, COIN_DBL_MAX, OVERLAP_COST);
        }
    }
    columns.AddTo(*m_pSolver);
}

void CCompactionProgram::Add(std::span<const SKeepApart> rows) {
    AddOverlaps(rows);
    CRows added;
    for (const SKeepApart& row : rows) {
        AddMoveAlong(added, row.m_nFirst, row.m_Normal);
        AddMoveAlong(added, row.m_nSecond, -row.m_Normal);
        if (const std::optional<int> overlap = m_OverlapColumns[row.m_nPair]) {
            added.AddElement(*overlap, 1.0);
        }
        added.EndRow(row.m_Least / m_Reach);
        m_Lost.push_back(row.m_Lost / m_Reach);
    }
    added.AddTo(*m_pSolver);
}

void CCompactionProgram::Tighten() {
    double* const pLeast = m_pSolver->rowLower();
    for (double& lost : m_Lost) {
        pLeast[&lost - m_Lost.data()] -= lost;
        lost = 0.0;
    }
}

std::optional<SCompaction> CCompactionProgram::Solve() {
    if (!m_bRoom) {
        return std::nullopt;
    }
    m_pSolver->dual();
    return m_pSolver->status() == 0 ? std::optional(ReadSolution()) : std::nullopt;
}

SCompaction CCompactionProgram::ReadSolution() const {
    const double* const pSolution = m_pSolver->primalColumnSolution();
    SCompaction compaction;
    for (size_t i = 0; i < m_nItems; ++i) {
        compaction.m_Moves.push_back(SPoint{pSolution[ColumnOfX(i)], pSolution[ColumnOfY(i)]} * m_Reach);
    }
    for (int i = ColumnOfHeight(m_nItems) + 1; i < m_pSolver->numberColumns(); ++i) {
        compaction.m_Overlap += pSolution[i] * m_Reach;
    }
    return compaction;
}

}  // namespace nestrix
