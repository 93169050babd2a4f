#pragma once

#include <cstddef>
#include <string>

namespace nestrix {

/// The content of a file, read at once.
struct SFileText {
    std::string m_Text;
    std::string m_Fault;  ///< why there is none, in words for a user; empty for none
};

/// Reads a regular file. Folders, pipes and devices are refused: reading from them fails late, waits for ever
/// or never ends.
/// @param nBytesMost of a larger file nothing is read.
[[nodiscard]] SFileText ReadFileText(const std::string& path, size_t nBytesMost);

}  // namespace nestrix
