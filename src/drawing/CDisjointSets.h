#pragma once

#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

namespace nestrix {

/// Things, numbered from 0, that are put together into sets.
class CDisjointSets {
public:
    explicit CDisjointSets(size_t nCount) : m_Parents(nCount) {
        std::iota(m_Parents.begin(), m_Parents.end(), size_t{0});
    }

    /// The number that stands for the whole set: the lowest in it.
    [[nodiscard]] size_t Find(size_t n) {
        while (m_Parents[n] != n) {
            m_Parents[n] = m_Parents[m_Parents[n]];
            n = m_Parents[n];
        }
        return n;
    }

    void Unite(size_t a, size_t b) {
        a = Find(a);
        b = Find(b);
        m_Parents[std::max(a, b)] = std::min(a, b);
    }

private:
    std::vector<size_t> m_Parents;
};

}  // namespace nestrix
