#include "tests/faults/CAllocationFault.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

using namespace nestrix;

namespace {

std::atomic<size_t> g_nLiveBlocks = 0;
std::atomic<size_t> g_nLiveBytes = 0;
std::atomic<size_t> g_nBlocksSoFar = 0;
thread_local faults::CAllocationFault* g_pFault = nullptr;

/// Null when there is no memory or when there is supposed to be none.
void* Allocate(size_t nBytes, bool bThrows) {
    if (g_pFault != nullptr && g_pFault->Strikes(bThrows)) {
        return nullptr;
    }
    void* const pBlock = std::malloc(nBytes > 0 ? nBytes : 1);
    if (pBlock != nullptr) {
        ++g_nLiveBlocks;
        ++g_nBlocksSoFar;
        g_nLiveBytes += malloc_usable_size(pBlock);
    }
    return pBlock;
}

void* AllocateOrThrow(size_t nBytes) {
    void* const pBlock = Allocate(nBytes, true);
    if (pBlock == nullptr) {
        throw std::bad_alloc();
    }
    return pBlock;
}

void Release(void* pBlock) {
    if (pBlock != nullptr) {
        --g_nLiveBlocks;
        g_nLiveBytes -= malloc_usable_size(pBlock);
        std::free(pBlock);
    }
}

}  // namespace

// The array forms too: under the sanitizers they would not end up in the plain ones.

void* operator new(size_t nBytes) {
    return AllocateOrThrow(nBytes);
}

void* operator new[](size_t nBytes) {
    return AllocateOrThrow(nBytes);
}

void* operator new(size_t nBytes, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(nBytes, false);
}

void* operator new[](size_t nBytes, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(nBytes, false);
}

void operator delete(void* pBlock) noexcept {
    Release(pBlock);
}

void operator delete[](void* pBlock) noexcept {
    Release(pBlock);
}

void operator delete(void* pBlock, size_t /*nBytes*/) noexcept {
    Release(pBlock);
}

void operator delete[](void* pBlock, size_t /*nBytes*/) noexcept {
    Release(pBlock);
}

void operator delete(void* pBlock, const std::nothrow_t& /*tag*/) noexcept {
    Release(pBlock);
}

void operator delete[](void* pBlock, const std::nothrow_t& /*tag*/) noexcept {
    Release(pBlock);
}

namespace nestrix::faults {

size_t LiveBlocks() {
    return g_nLiveBlocks;
}

size_t LiveBytes() {
    return g_nLiveBytes;
}

size_t BlocksSoFar() {
    return g_nBlocksSoFar;
}

CAllocationFault::CAllocationFault(size_t nCall, EExhaustion exhaustion)
    : m_nCallsLeft(nCall), m_Exhaustion(exhaustion) {
    g_pFault = this;
}

CAllocationFault::~CAllocationFault() {
    g_pFault = nullptr;
}

bool CAllocationFault::Strikes(bool bThrows) {
    const bool bNow = m_nCallsLeft == 1;
    const bool bStill = m_bStruck && m_Exhaustion == EExhaustion::Lasting;
    m_nCallsLeft -= m_nCallsLeft > 0 ? 1 : 0;
    if (!bNow && !bStill) {
        return false;
    }
    m_bStruck = true;
    m_bThrown = m_bThrown || bThrows;
    return true;
}

}  // namespace nestrix::faults
