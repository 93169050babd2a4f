#pragma once

#include <string>

namespace nestrix {

/// Something wrong or suspicious about an input.
struct SFinding {
    enum class ESeverity {
        NOTE,  ///< nothing is wrong: what was taken for granted, such as a unit
        ODD,   ///< it can be packed, but perhaps not as it was meant
        FAULT  ///< it cannot be packed as it is
    };

    std::string m_File;
    int m_nLine = 0;  ///< from 1; 0 where there is none
    ESeverity m_eSeverity = ESeverity::FAULT;
    std::string m_Message;
};

/// "file:line: message"; without a line "file: message".
[[nodiscard]] std::string InWords(const SFinding& finding);

}  // namespace nestrix
