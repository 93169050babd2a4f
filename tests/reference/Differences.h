#pragma once

#include <cstddef>
#include <string>

#include "ga/CChromosome.h"
#include "geom/CPolygon.h"

namespace nestrix::reference {

/// Two numbers that should be the same, in words.
[[nodiscard]] std::string Differs(const char* pWhat, float fEngine, float fReference);

// Whether two are the same bit for bit.

[[nodiscard]] bool Same(const mgVector3& a, const mgVector3& b);
[[nodiscard]] bool Same(const CPoint& a, const CPoint& b);
[[nodiscard]] bool Same(const CLine& a, const CLine& b);
[[nodiscard]] bool Same(const SGene& a, const SGene& b);

template <class TA, class TB>
[[nodiscard]] bool SameLists(const TA& a, const TB& b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (size_t i = 0; i < a.size(); ++i) {
        if (!Same(a[i], b[i])) {
            return false;
        }
    }
    return true;
}

}  // namespace nestrix::reference
