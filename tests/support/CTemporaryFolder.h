#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace nestrix::support {

/// A fresh folder that is removed with all its contents.
class CTemporaryFolder {
public:
    CTemporaryFolder();
    ~CTemporaryFolder();
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return m_Path; }

    /// The path of a name in the folder, whether it exists or not.
    [[nodiscard]] std::string PathOf(std::string_view name) const { return m_Path / name; }

    /// Writes a file and returns its path.
    [[nodiscard]] std::string Write(std::string_view name, std::string_view content) const;

private:
    std::filesystem::path m_Path;
};

}  // namespace nestrix::support
