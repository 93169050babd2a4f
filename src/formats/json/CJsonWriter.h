#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nestrix {

/// Writes a JSON text that people can read, too: small things on one line, lists of things one on a line.
///
/// Order of use: the calls follow the text; Take when all that was begun is ended.
class CJsonWriter {
public:
    enum class ELayout { LINES, ONE_LINE };

    // Inside of what stands on one line, everything does.
    void BeginObject(ELayout eLayout = ELayout::LINES) { Begin('{', eLayout); }
    void EndObject() { End('}'); }
    void BeginArray(ELayout eLayout = ELayout::LINES) { Begin('[', eLayout); }
    void EndArray() { End(']'); }

    /// Of the member whose value comes next: writer.Name("x").Number(1.5).
    CJsonWriter& Name(std::string_view name);

    void Text(std::string_view text);
    void Flag(bool bValue) { Put(bValue ? "true" : "false"); }
    void Whole(uint64_t nNumber) { Put(std::to_string(nNumber)); }

    /// In the fewest digits that are read back as the same number; null for what is not finite.
    void Number(double number);

    /// A number that is written already.
    void Digits(std::string_view digits) { Put(digits); }

    /// The text, with a line end.
    [[nodiscard]] std::string Take();

private:
    struct SOpen {
        ELayout m_eLayout;
        bool m_bEmpty = true;
    };

    void Begin(char bracket, ELayout eLayout);
    void End(char bracket);
    void Put(std::string_view value);

    /// What stands before a value or a name: comma, line end, blanks.
    void Separate();
    void BreakLine();

    std::string m_Text;
    std::vector<SOpen> m_Open;
    bool m_bNamed = false;  ///< a name was written, and its value comes next
};

}  // namespace nestrix
