#pragma once

#include <functional>
#include <optional>
#include <span>

#include "batch/PackOptions.h"
#include "nest/PackFreely.h"

namespace nestrix {

/// Who searches for free packings: this process by itself, or several together.
struct SPacker {
    SPackHelp m_Help;
    std::optional<int> m_nRanks;  ///< how many processes search together; absent: this one alone
    std::function<SPackResult(std::span<const SPiece> pieces, const SFreeStrip& strip,
                              const SPackSettings& settings, CPackSink& sink)>
        m_Search = PackFreely;
};

}  // namespace nestrix
