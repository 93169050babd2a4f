#pragma once

#include <optional>
#include <span>
#include <string>

#include "formats/CWholeFile.h"

namespace nestrix {

/// The file that the best packing is drawn into, if a picture is wanted at all. Constructed before the
/// search, so that a bad path does not cost the result.
class CPictureFile {
public:
    /// @param path empty: no picture is wanted, and all goes well.
    explicit CPictureFile(const std::string& path);

    [[nodiscard]] bool IsWanted() const { return m_File.has_value(); }

    /// Which of these files the picture would take the place of; empty for none.
    [[nodiscard]] std::string FindReplaced(std::span<const std::string> files) const;

    /// Why there can be no picture, as far as that shows before it is drawn; empty if nothing speaks against
    /// it.
    [[nodiscard]] std::string Fault() const;

    /// Writes the picture. Once.
    /// @param picture an SVG document; empty for a packing that cannot be drawn.
    /// @return why it could not be written; empty on success.
    [[nodiscard]] std::string Write(const std::string& picture);

private:
    [[nodiscard]] std::string InWords(const std::string& fault) const;

    std::string m_Path;
    std::optional<CWholeFile> m_File;
};

}  // namespace nestrix
