#pragma once

#include <functional>

namespace nestrix {

/// While it lives, counts the placements of this thread: each sorts its genes once, with the C library's
/// qsort. Works in programs linked with --wrap=qsort. One at a time.
class CPlacementWatch {
public:
    /// Calls `action` at the beginning of the placement with the given number, counted from 0.
    CPlacementWatch(int nPlacement, std::function<void()> action);
    CPlacementWatch() : CPlacementWatch(-1, nullptr) {}
    ~CPlacementWatch();
    CPlacementWatch(const CPlacementWatch&) = delete;
    CPlacementWatch& operator=(const CPlacementWatch&) = delete;

    [[nodiscard]] int Count() const { return m_nCount; }

    /// One more. For the wrapper of qsort() only.
    void CountOne();

private:
    int m_nCount = 0;
    int m_nActionAt;
    std::function<void()> m_Action;
};

}  // namespace nestrix
