#pragma once

#include <cstddef>
#include <ostream>

#include "tests/support/UnderSanitizer.h"

namespace nestrix::faults {

using support::AT_FULL_SPEED;
using support::UNDER_SANITIZER;

/// What a failed operation must leave as it found it, besides its own objects.
struct SProcessState {
    size_t m_nLiveBlocks = 0;
    size_t m_nOpenFiles = 0;
    const void* m_pLocale = nullptr;  ///< of the calling thread

    friend bool operator==(const SProcessState&, const SProcessState&) = default;
};

void PrintTo(const SProcessState& state, std::ostream* pStream);

[[nodiscard]] SProcessState CurrentState();

/// The memory that the process occupies, in bytes, without what is swapped out or was never touched.
[[nodiscard]] size_t ResidentBytes();

}  // namespace nestrix::faults
