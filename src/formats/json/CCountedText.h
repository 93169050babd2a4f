#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace nestrix {

/// A text that a parser reads through iterators, and that knows how far it was read: the parser itself tells
/// places of faults only. The parser reads one character ahead at most.
class CCountedText {
public:
    /// Gives the characters one by one, and counts them.
    class CIterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = char;
        using difference_type = std::ptrdiff_t;
        using pointer = const char*;
        using reference = const char&;

        CIterator(const char* pNext, const char** ppRead) : m_pNext(pNext), m_ppRead(ppRead) {}
        reference operator*() const { return *m_pNext; }
        CIterator& operator++() {
            *m_ppRead = m_pNext;
            ++m_pNext;
            return *this;
        }
        bool operator==(const CIterator& other) const { return m_pNext == other.m_pNext; }
        bool operator!=(const CIterator& other) const { return m_pNext != other.m_pNext; }

    private:
        const char* m_pNext;
        const char** m_ppRead;
    };

    explicit CCountedText(std::string_view text)
        : m_Text(text), m_pRead(text.data()), m_pPassed(text.data()) {}
    CCountedText(const CCountedText&) = delete;
    CCountedText& operator=(const CCountedText&) = delete;

    [[nodiscard]] CIterator Begin() { return {m_Text.data(), &m_pRead}; }
    [[nodiscard]] CIterator End() { return {m_Text.data() + m_Text.size(), &m_pRead}; }

    /// The line, from 1, of the last token read, in which there is no line end: what was read last may be the
    /// one behind it. Each call goes on from where the one before ended.
    [[nodiscard]] int Line() {
        m_nLine += static_cast<int>(std::count(m_pPassed, m_pRead, '\n'));
        m_pPassed = m_pRead;
        return m_nLine;
    }

private:
    std::string_view m_Text;
    const char* m_pRead;    ///< the last character read
    const char* m_pPassed;  ///< up to here line ends are counted
    int m_nLine = 1;
};

}  // namespace nestrix
