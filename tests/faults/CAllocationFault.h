#pragma once

#include <cstddef>

// The test programs that link this have operator new and delete of their own, which count and, on demand,
// fail. The C library's own use of memory (streams, qsort beyond a kilobyte) passes them by.

namespace nestrix::faults {

/// Blocks that operator new gave out and nobody has returned yet.
[[nodiscard]] size_t LiveBlocks();

/// The size of those blocks, in bytes.
[[nodiscard]] size_t LiveBytes();

/// Blocks that operator new has given out since the program began.
[[nodiscard]] size_t BlocksSoFar();

enum class EExhaustion {
    Passing,  ///< one call fails, the next one succeeds again
    Lasting   ///< every further call fails
};

/// While it lives, the calling thread's operator new fails at its n-th call, counted from 1. Not to be
/// nested.
class CAllocationFault {
public:
    CAllocationFault(size_t nCall, EExhaustion exhaustion);
    ~CAllocationFault();
    CAllocationFault(const CAllocationFault&) = delete;
    CAllocationFault& operator=(const CAllocationFault&) = delete;

    /// Whether there were enough calls for the fault to strike.
    [[nodiscard]] bool HasStruck() const { return m_bStruck; }

    /// Whether it struck a call that reports by std::bad_alloc. The standard library's stable algorithms ask
    /// for their buffers by the other kind, and do without.
    [[nodiscard]] bool HasThrown() const { return m_bThrown; }

    /// One call of operator new: whether it must fail.
    [[nodiscard]] bool Strikes(bool bThrows);

private:
    size_t m_nCallsLeft;
    EExhaustion m_Exhaustion;
    bool m_bStruck = false;
    bool m_bThrown = false;
};

}  // namespace nestrix::faults
