#pragma once

#include <filesystem>
#include <string>

namespace nestrix::support {

/// The content of a file; fails the running test where it cannot be read.
[[nodiscard]] std::string ReadFile(const std::filesystem::path& path);

/// The same, but nothing where it cannot be read: it may not be there yet.
[[nodiscard]] std::string ReadIfThere(const std::filesystem::path& path);

/// A polygon file with one square.
[[nodiscard]] std::string SquareFile(float fSide);

/// How often `part` occurs in `text`.
[[nodiscard]] int CountOf(const std::string& part, const std::string& text);

/// The same argument over and over, with a blank behind each.
[[nodiscard]] std::string Repeated(const std::string& argument, int nTimes);

/// How many entries the folder holds.
[[nodiscard]] int EntryCount(const std::filesystem::path& folder);

}  // namespace nestrix::support
