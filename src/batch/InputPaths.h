#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/SFinding.h"

namespace nestrix {

/// A file to be read, and how many copies of what it holds are meant.
struct SInputPath {
    std::string m_File;
    int m_nCopies = 1;
    size_t m_nWord = 0;  ///< which of the words it comes from

    friend bool operator==(const SInputPath&, const SInputPath&) = default;
};

/// The files that some words of a command line stand for, and what is wrong with the words.
struct SInputPaths {
    std::vector<SInputPath> m_Files;  ///< in the order of the words, within a folder by name
    std::vector<SFinding> m_Findings;
};

/// Finds the files that are meant. A word is a file, a file with a number of copies behind it ("leg.dxf:4"),
/// or a folder that stands for the files of the known formats directly in it, hidden ones excepted. A file
/// whose name really ends in ":4" is that file. A folder without any such file is at fault.
[[nodiscard]] SInputPaths FindInputs(std::span<const std::string> words);

/// Whether one name comes before another, with runs of digits compared as numbers: "part 9" before
/// "part 10".
[[nodiscard]] bool IsNameBefore(std::string_view first, std::string_view second);

}  // namespace nestrix
