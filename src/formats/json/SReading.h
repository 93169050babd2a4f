#pragma once

#include <optional>
#include <vector>

#include "drawing/SFinding.h"

namespace nestrix {

/// What came of reading a file.
template <class T>
struct SReading {
    std::optional<T> m_Value;          ///< absent exactly where a finding is a fault
    std::vector<SFinding> m_Findings;  ///< what is wrong or odd about the file, in its order
};

}  // namespace nestrix
