#pragma once

#include <set>
#include <span>
#include <string>
#include <vector>

namespace nestrix {

/// Where a command writes to: one file, or files in a folder. A word that ends in a slash, or names a folder,
/// means the folder; it is made if it is not there.
class CTargets {
public:
    explicit CTargets(const std::string& word);

    [[nodiscard]] bool IsFolder() const { return m_bFolder; }

    /// The extension of the one file, in small letters and with its point.
    [[nodiscard]] std::string Extension() const;

    /// Adds a file.
    /// @param name of a file in the folder, without extension: made harmless, and different from those before
    ///             it.
    /// @param extension with its point.
    void Add(const std::string& name, const std::string& extension, std::string content);

    /// Writes all of them: none before it is known, as far as it shows, that all can be written.
    /// @param inputs that must not be replaced.
    /// @return the status to exit with; what goes wrong is said on standard error.
    [[nodiscard]] int Write(std::span<const std::string> inputs) const;

private:
    struct SFile {
        std::string m_Path;
        std::string m_Content;
    };

    std::string m_Word;
    bool m_bFolder;
    std::set<std::string> m_Names;
    std::vector<SFile> m_Files;
};

}  // namespace nestrix
