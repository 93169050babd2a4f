#include "nest/CHingeModel.h"

#include <algorithm>

namespace nestrix {

namespace {

/// Lines that enclose a smaller angle have no crossing worth trying.
constexpr double PARALLEL = 1e-4;

/// A crossing with the border of the room may come to lie outside of it by rounding, in units.
constexpr double ROUNDING = 1e-3;

/// More hinges than this are no small move any more.
constexpr size_t MOST_HINGES = 24;

}  // namespace

bool CHingeModel::Enter(const SHinge& hinge, SPoint from, double tolerance) {
    SHinge entered = hinge;
    entered.m_Depth += Dot(hinge.m_Out, from);
    const auto known = std::find_if(m_Hinges.begin(), m_Hinges.end(),
                                    [&](const SHinge& other) { return other.m_nOther == hinge.m_nOther; });
    if (known == m_Hinges.end()) {
        const bool bRoom = m_Hinges.size() < MOST_HINGES;
        if (bRoom) {
            m_Hinges.push_back(entered);
        }
        return bRoom;
    }
    const double now = known->m_Depth - Dot(known->m_Out, from);
    if (std::abs(now - hinge.m_Depth) <= tolerance + 1e-4 * hinge.m_Depth) {
        return false;
    }
    *known = entered;
    return true;
}

double CHingeModel::ValueAt(SPoint move, double limit) const {
    double value = 0.0;
    for (const SHinge& hinge : m_Hinges) {
        value += hinge.m_Weight * std::max(0.0, hinge.m_Depth - Dot(hinge.m_Out, move));
        if (value > limit) {
            break;
        }
    }
    return value;
}

std::vector<CHingeModel::SLine>& CHingeModel::CollectLines() const {
    m_Lines.clear();
    for (const SHinge& hinge : m_Hinges) {
        m_Lines.push_back({hinge.m_Depth, hinge.m_Out});
    }
    m_Lines.push_back({m_Room.m_Low.m_X, {1.0, 0.0}});
    m_Lines.push_back({m_Room.m_High.m_X, {1.0, 0.0}});
    m_Lines.push_back({m_Room.m_Low.m_Y, {0.0, 1.0}});
    m_Lines.push_back({m_Room.m_High.m_Y, {0.0, 1.0}});
    return m_Lines;
}

SPoint CHingeModel::FindBest(SPoint move) const {
    double best = ValueAt(move);
    const auto tryMove = [&](SPoint crossing) {
        const SPoint other = m_Room.Nearest(crossing);
        if (!(std::abs(other.m_X - crossing.m_X) <= ROUNDING &&
              std::abs(other.m_Y - crossing.m_Y) <= ROUNDING)) {
            return;
        }
        const double value = ValueAt(other, best);
        if (value < best * 0.99999 - 1e-3 || (value <= best && Dot(other, other) < Dot(move, move))) {
            best = value;
            move = other;
        }
    };
    const std::vector<SLine>& lines = CollectLines();
    for (const SHinge& hinge : m_Hinges) {
        tryMove(hinge.m_Out * hinge.m_Depth);
    }
    for (size_t i = 0; i < lines.size(); ++i) {
        for (size_t k = i + 1; k < lines.size(); ++k) {
            const SLine& a = lines[i];
            const SLine& b = lines[k];
            const double turn = Cross(a.m_Normal, b.m_Normal);
            if (std::abs(turn) >= PARALLEL) {
                tryMove({(a.m_Offset * b.m_Normal.m_Y - b.m_Offset * a.m_Normal.m_Y) / turn,
                         (a.m_Normal.m_X * b.m_Offset - b.m_Normal.m_X * a.m_Offset) / turn});
            }
        }
    }
    return move;
}

}  // namespace nestrix
