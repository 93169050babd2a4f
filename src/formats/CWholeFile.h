#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace nestrix {

/// A file that is written completely or not at all: readers see the old content or the new, never a part, and
/// after a failure the old file is as it was.
///
/// A path that names something other than a regular file (a pipe, a device), or the file that standard output
/// goes to, is written to directly, since it must not be replaced. A symbolic link survives, also one to a
/// file that does not exist yet.
///
/// Order of use: construct before the work whose result is to be written, and give up if there is a fault;
/// Write at the end.
class CWholeFile {
public:
    /// Finds out what can be known beforehand. Pipes and devices stay open from here on: their readers would
    /// take a second opening for the end.
    explicit CWholeFile(const std::string& path);
    ~CWholeFile();
    CWholeFile(const CWholeFile&) = delete;
    CWholeFile& operator=(const CWholeFile&) = delete;

    /// Why the file cannot be written, as far as that shows before there is anything to write: so that nobody
    /// waits for a long search first. Empty when nothing speaks against it.
    [[nodiscard]] const std::string& Fault() const { return m_Fault; }

    /// Whether the file is replaced, so that it can be written over and over.
    [[nodiscard]] bool IsReplaced() const { return !m_Target.empty(); }

    /// Whether `path` names the file that would be replaced.
    [[nodiscard]] bool WouldReplace(const std::string& path) const;

    /// Whether both would replace the same file, be it there already or not.
    [[nodiscard]] bool IsSameAs(const CWholeFile& other) const;

    /// Once, unless the file is replaced. Meanwhile the calling thread holds up the signals that end
    /// programs, so that they leave nothing beside the file.
    /// @return why it failed; empty on success.
    [[nodiscard]] std::string Write(std::string_view content);

private:
    std::filesystem::path m_Target;  ///< to be replaced; empty for what is written to directly
    int m_nDescriptor = -1;          ///< of what is written to directly
    std::string m_Fault;
};

}  // namespace nestrix
