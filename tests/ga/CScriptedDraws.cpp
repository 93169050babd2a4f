#include "tests/ga/CScriptedDraws.h"

#include <cstdlib>
#include <utility>

namespace nestrix {

namespace {

CScriptedDraws* g_pScript = nullptr;

}  // namespace

extern "C" {
// Names that the linker's --wrap gives.
int __real_rand();
int __wrap_rand() {
    return g_pScript == nullptr ? __real_rand() : g_pScript->Draw();
}
}

CScriptedDraws::CScriptedDraws(std::vector<int> values) : m_Values(std::move(values)) {
    g_pScript = this;
}

CScriptedDraws::~CScriptedDraws() {
    g_pScript = nullptr;
}

void CScriptedDraws::Before(int nDraw, std::function<void()> action) {
    m_nActionAt = nDraw;
    m_Action = std::move(action);
}

int CScriptedDraws::Draw() {
    const int nDraw = m_nCount++;
    if (nDraw == m_nActionAt) {
        m_Action();
    }
    const auto at = static_cast<size_t>(nDraw);
    return at < m_Values.size() ? m_Values[at] : __real_rand();
}

int DrawOfPercent(double fPercent) {
    return static_cast<int>(fPercent / 100.0 * RAND_MAX);
}

}  // namespace nestrix
