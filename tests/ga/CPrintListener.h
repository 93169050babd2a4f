#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

namespace nestrix {

/// While it lives, hears every line that is printed to standard output, as it is printed, instead of the
/// terminal. One at a time.
class CPrintListener {
public:
    explicit CPrintListener(std::function<void(std::string_view)> onLine);
    ~CPrintListener();
    CPrintListener(const CPrintListener&) = delete;
    CPrintListener& operator=(const CPrintListener&) = delete;

    /// All lines so far.
    [[nodiscard]] const std::string& Text() const { return m_Text; }

private:
    static ssize_t Write(void* pSelf, const char* pText, size_t nSize);

    std::function<void(std::string_view)> m_OnLine;
    std::string m_Text;
    std::FILE* m_pOutput;  ///< the real standard output
    std::FILE* m_pStream;
};

}  // namespace nestrix
