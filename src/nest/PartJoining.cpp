#include "nest/PartJoining.h"

#include <algorithm>
#include <map>
#include <utility>

#include "nest/GridGeometry.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

class CPartJoiner {
public:
    CPartJoiner(const CGridRing& ring, std::vector<CCorners> parts)
        : m_Ring(ring), m_Parts(std::move(parts)) {
        for (size_t nPart = 0; nPart < m_Parts.size(); ++nPart) {
            Enter(nPart);
        }
    }

    std::vector<CCorners> Join() {
        // Each cut is looked at once: what cannot be joined there never can, since parts only grow.
        std::vector<std::pair<size_t, size_t>> cuts;
        for (const auto& [cut, nPart] : m_Sides) {
            if (cut.first < cut.second) {
                cuts.push_back(cut);
            }
        }
        std::stable_sort(cuts.begin(), cuts.end(),
                         [this](const auto& a, const auto& b) { return LengthOf(a) > LengthOf(b); });
        for (const auto& [nFrom, nTo] : cuts) {
            JoinAt(nFrom, nTo);
        }
        std::erase_if(m_Parts, [](const CCorners& part) { return part.empty(); });
        return m_Parts;
    }

private:
    void Enter(size_t nPart) {
        const CCorners& part = m_Parts[nPart];
        for (size_t i = 0; i < part.size(); ++i) {
            m_Sides[{part[i], part[(i + 1) % part.size()]}] = nPart;
        }
    }

    [[nodiscard]] double LengthOf(const std::pair<size_t, size_t>& cut) const {
        return Length(AsPoint(m_Ring[cut.second] - m_Ring[cut.first]));
    }

    /// The same corners, beginning with one of them.
    static CCorners From(const CCorners& part, size_t nFirst) {
        CCorners turned = part;
        std::rotate(turned.begin(), std::find(turned.begin(), turned.end(), nFirst), turned.end());
        return turned;
    }

    [[nodiscard]] bool IsConvex(const CCorners& part) const {
        for (size_t i = 0; i < part.size(); ++i) {
            const SGridPoint a = m_Ring[part[i]];
            const SGridPoint b = m_Ring[part[(i + 1) % part.size()]];
            const SGridPoint c = m_Ring[part[(i + 2) % part.size()]];
            if (Turn(a, b, c) < 0) {
                return false;
            }
        }
        return true;
    }

    void JoinAt(size_t nFrom, size_t nTo) {
        const auto one = m_Sides.find({nFrom, nTo});
        const auto other = m_Sides.find({nTo, nFrom});
        if (one == m_Sides.end() || other == m_Sides.end() || one->second == other->second) {
            return;
        }
        const size_t nOne = one->second;
        const size_t nOther = other->second;
        CCorners joined = From(m_Parts[nOne], nTo);          // nTo … nFrom
        const CCorners rest = From(m_Parts[nOther], nFrom);  // nFrom … nTo
        joined.insert(joined.end(), rest.begin() + 1, rest.end() - 1);
        if (!IsConvex(joined)) {
            return;
        }
        m_Parts[nOne] = std::move(joined);
        m_Parts[nOther].clear();
        m_Sides.erase({nFrom, nTo});
        m_Sides.erase({nTo, nFrom});
        Enter(nOne);
    }

    const CGridRing& m_Ring;
    std::vector<CCorners> m_Parts;
    std::map<std::pair<size_t, size_t>, size_t> m_Sides;  ///< which part has which side
};

}  // namespace

std::vector<CCorners> JoinParts(const CGridRing& ring, std::vector<CCorners> parts) {
    return CPartJoiner(ring, std::move(parts)).Join();
}

}  // namespace nestrix
