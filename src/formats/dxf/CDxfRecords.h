#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/Quoting.h"

namespace nestrix {

/// A group of a DXF file: a code that tells what its value means, and the value, on a line each.
struct SDxfGroup {
    int m_nCode = 0;
    std::string_view m_Value;  ///< without blanks around it, but for texts, which keep those before
    int m_nLine = 0;           ///< of the value, from 1
};

/// Takes the text of a DXF file apart into its records: a group that names something (code 0, or 9 for a
/// variable), and those that describe it.
///
/// Order of use: construct; while Next, look at Groups; then ask for the fault.
class CDxfRecords {
public:
    /// @param text outlives this.
    explicit CDxfRecords(std::string_view text);

    /// Goes on to the next record; false where there is none.
    [[nodiscard]] bool Next();

    /// Those of the record, the naming one first.
    [[nodiscard]] std::span<const SDxfGroup> Groups() const { return m_Groups; }

    /// Why the text cannot be read further; empty if it can, or was read to its end.
    [[nodiscard]] const std::string& Fault() const { return m_Fault; }

    /// Where it was read to last.
    [[nodiscard]] int Line() const { return m_nLine; }

private:
    bool ReadGroup();
    std::string_view ReadLine();

    std::string_view m_Rest;
    int m_nLine = 0;
    SDxfGroup m_Ahead;
    bool m_bAhead = false;  ///< m_Ahead names the next record
    std::vector<SDxfGroup> m_Groups;
    std::string m_Fault;
};

/// Without the blanks around it.
[[nodiscard]] std::string_view Trimmed(std::string_view text);

/// What a file says, for a message.
[[nodiscard]] inline std::string Quoted(std::string_view text) {
    return Quoted(text, {'"', '?', 20});
}

}  // namespace nestrix
