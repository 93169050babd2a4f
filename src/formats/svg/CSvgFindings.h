#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/Quoting.h"
#include "drawing/SDrawing.h"
#include "formats/svg/CSvgFile.h"

namespace nestrix {

/// Collects what there is to say about an SVG file. Of a file that is wrong throughout it says so a hundred
/// times, and then how many times more.
class CSvgFindings {
public:
    /// @param path of the file, for the findings.
    CSvgFindings(const CSvgFile& file, std::string path) : m_File(file), m_Path(std::move(path)) {}

    void Add(pugi::xml_node element, SFinding::ESeverity eSeverity, const std::string& message);
    void Fault(pugi::xml_node element, const std::string& message) {
        Add(element, SFinding::ESeverity::FAULT, message);
    }

    /// Something that is left out, or not done: told of once, with its number.
    void Odd(pugi::xml_node element, const std::string& kind);

    /// All findings, in the order of their lines where these are known.
    [[nodiscard]] std::vector<SFinding> Finish();

private:
    struct SKind {
        int m_nLine = 0;
        int m_nCount = 0;
    };

    const CSvgFile& m_File;
    std::string m_Path;
    std::vector<SFinding> m_Findings;
    size_t m_nUntold = 0;
    SFinding::ESeverity m_eUntold = SFinding::ESeverity::NOTE;  ///< the worst of those
    std::map<std::string, SKind> m_Kinds;
};

/// What a file says, for a message.
[[nodiscard]] inline std::string Quoted(std::string_view text) {
    return Quoted(text, {'\'', ' ', 40});
}

}  // namespace nestrix
