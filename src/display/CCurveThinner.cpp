#include "display/CCurveThinner.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace nestrix {

void CCurveThinner::Begin(int nRows) {
    m_Line.clear();
    m_Dots.clear();
    m_nInColumn = 0;
    m_nStamp = 0;
    m_RowStamp.assign(static_cast<size_t>(std::max(nRows, 0)), 0);
}

void CCurveThinner::Add(const mgVector3& position) {
    if (!std::isfinite(position.x) || !std::isfinite(position.y)) {
        EndColumn();
        m_Line.push_back(position);
        return;
    }
    if (m_nInColumn == 0 || std::floor(position.x) != m_fColumn) {
        EndColumn();
        BeginColumn(position);
    }
    m_Last = {position, m_nInColumn};
    if (position.y < m_Lowest.m_Position.y) {
        m_Lowest = m_Last;
    }
    if (position.y > m_Highest.m_Position.y) {
        m_Highest = m_Last;
    }
    ++m_nInColumn;
    AddDot(position);
}

void CCurveThinner::BeginColumn(const mgVector3& position) {
    m_fColumn = std::floor(position.x);
    m_First = m_Lowest = m_Highest = {position, 0};
    ++m_nStamp;
}

void CCurveThinner::EndColumn() {
    if (m_nInColumn == 0) {
        return;
    }
    std::array extremes{m_First, m_Lowest, m_Highest, m_Last};
    std::ranges::sort(extremes, {}, &SExtreme::m_nIndex);
    int nPrevious = -1;
    for (const SExtreme& extreme : extremes) {
        if (extreme.m_nIndex != nPrevious) {
            m_Line.push_back(extreme.m_Position);
        }
        nPrevious = extreme.m_nIndex;
    }
    m_nInColumn = 0;
}

void CCurveThinner::AddDot(const mgVector3& position) {
    if (position.y < 0.0F || position.y >= static_cast<float>(m_RowStamp.size())) {
        return;
    }
    int& nStamp = m_RowStamp[static_cast<size_t>(position.y)];
    if (nStamp != m_nStamp) {
        nStamp = m_nStamp;
        m_Dots.push_back(position);
    }
}

}  // namespace nestrix
