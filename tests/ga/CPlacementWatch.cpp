#include "tests/ga/CPlacementWatch.h"

#include <cstdlib>
#include <utility>

namespace nestrix {

namespace {

CPlacementWatch* g_pWatch = nullptr;

}  // namespace

extern "C" {
// Names that the linker's --wrap gives.
void __real_qsort(void* pBase, size_t nCount, size_t nSize, int (*compare)(const void*, const void*));
void __wrap_qsort(void* pBase, size_t nCount, size_t nSize, int (*compare)(const void*, const void*)) {
    if (g_pWatch != nullptr) {
        g_pWatch->CountOne();
    }
    __real_qsort(pBase, nCount, nSize, compare);
}
}

CPlacementWatch::CPlacementWatch(int nPlacement, std::function<void()> action)
    : m_nActionAt(nPlacement), m_Action(std::move(action)) {
    g_pWatch = this;
}

CPlacementWatch::~CPlacementWatch() {
    g_pWatch = nullptr;
}

void CPlacementWatch::CountOne() {
    if (m_nCount++ == m_nActionAt) {
        m_Action();
    }
}

}  // namespace nestrix
