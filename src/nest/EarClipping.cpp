#include "nest/EarClipping.h"

#include <algorithm>
#include <cmath>

#include "nest/GridGeometry.h"

namespace nestrix {

namespace {

bool IsInTriangle(SGridPoint a, SGridPoint b, SGridPoint c, SGridPoint point) {
    return Turn(a, b, point) >= 0 && Turn(b, c, point) >= 0 && Turn(c, a, point) >= 0;
}

class CEarClipper {
public:
    explicit CEarClipper(const CGridRing& ring) : m_Ring(ring), m_Left(ring.size()) {
        for (size_t i = 0; i < ring.size(); ++i) {
            m_Left[i] = i;
        }
        m_Cuts.resize(ring.size());
        for (size_t i = 0; i < ring.size(); ++i) {
            m_Cuts[i] = FindCut(i);
        }
    }

    std::vector<CCorners> Clip() {
        std::vector<CCorners> triangles;
        while (m_Left.size() >= 3) {
            const auto ear = std::min_element(m_Cuts.begin(), m_Cuts.end());
            if (*ear == NO_EAR) {
                break;
            }
            const size_t i = static_cast<size_t>(ear - m_Cuts.begin());
            if (Turn(Before(i), At(i), After(i)) > 0) {
                triangles.push_back({m_Left[Previous(i)], m_Left[i], m_Left[Next(i)]});
            }
            Remove(i);
        }
        return triangles;
    }

private:
    static constexpr double NO_EAR = HUGE_VAL;

    [[nodiscard]] size_t Previous(size_t i) const { return i == 0 ? m_Left.size() - 1 : i - 1; }
    [[nodiscard]] size_t Next(size_t i) const { return i + 1 == m_Left.size() ? 0 : i + 1; }
    [[nodiscard]] SGridPoint At(size_t i) const { return m_Ring[m_Left[i]]; }
    [[nodiscard]] SGridPoint Before(size_t i) const { return At(Previous(i)); }
    [[nodiscard]] SGridPoint After(size_t i) const { return At(Next(i)); }

    /// The squared length of the cut that takes the corner off; NO_EAR where it cannot be taken off. Corners
    /// where the ring runs straight back are taken off first. Those in a straight line stay: others may touch
    /// there.
    [[nodiscard]] double FindCut(size_t i) const {
        const SGridPoint a = Before(i);
        const SGridPoint b = At(i);
        const SGridPoint c = After(i);
        const CInt128 turn = Turn(a, b, c);
        if (turn <= 0) {
            const bool bNeedless = turn == 0 && (a == b || b == c || a == c);
            return bNeedless ? -1.0 : NO_EAR;
        }
        for (size_t k = Next(Next(i)); k != Previous(i); k = Next(k)) {
            const SGridPoint point = At(k);
            if (point != a && point != b && point != c && IsInTriangle(a, b, c, point)) {
                return NO_EAR;
            }
        }
        const double x = static_cast<double>(c.m_nX - a.m_nX);
        const double y = static_cast<double>(c.m_nY - a.m_nY);
        return x * x + y * y;
    }

    void Remove(size_t i) {
        m_Left.erase(m_Left.begin() + static_cast<std::ptrdiff_t>(i));
        m_Cuts.erase(m_Cuts.begin() + static_cast<std::ptrdiff_t>(i));
        if (m_Left.size() < 3) {
            return;
        }
        // A corner is no ear because of some other point; that point may be gone now. All are asked again
        // only when none is left.
        const size_t nNext = i == m_Left.size() ? 0 : i;
        m_Cuts[nNext] = FindCut(nNext);
        m_Cuts[Previous(nNext)] = FindCut(Previous(nNext));
        if (*std::min_element(m_Cuts.begin(), m_Cuts.end()) == NO_EAR) {
            for (size_t k = 0; k < m_Left.size(); ++k) {
                m_Cuts[k] = FindCut(k);
            }
        }
    }

    const CGridRing& m_Ring;
    CCorners m_Left;
    std::vector<double> m_Cuts;  ///< one for each corner left
};

}  // namespace

std::vector<CCorners> ClipEars(const CGridRing& ring) {
    return CEarClipper(ring).Clip();
}

}  // namespace nestrix
