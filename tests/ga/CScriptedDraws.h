#pragma once

#include <functional>
#include <vector>

namespace nestrix {

/// While it lives, rand() returns the given values one after another, and then what the C library draws.
/// Works in programs linked with --wrap=rand. One at a time, for one thread.
class CScriptedDraws {
public:
    explicit CScriptedDraws(std::vector<int> values = {});
    ~CScriptedDraws();
    CScriptedDraws(const CScriptedDraws&) = delete;
    CScriptedDraws& operator=(const CScriptedDraws&) = delete;

    /// How often rand() has been called.
    [[nodiscard]] int Count() const { return m_nCount; }

    /// Calls `action` before the draw with the given number, counted from 0.
    void Before(int nDraw, std::function<void()> action);

    /// The next draw. For the wrapper of rand() only.
    int Draw();

private:
    std::vector<int> m_Values;
    int m_nCount = 0;
    int m_nActionAt = -1;
    std::function<void()> m_Action;
};

/// The draw that makes the roulette's r about the given percentage.
[[nodiscard]] int DrawOfPercent(double fPercent);

}  // namespace nestrix
