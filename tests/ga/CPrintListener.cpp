#include "tests/ga/CPrintListener.h"

#include <stdexcept>
#include <utility>

namespace nestrix {

CPrintListener::CPrintListener(std::function<void(std::string_view)> onLine)
    : m_OnLine(std::move(onLine)), m_pOutput(stdout), m_pStream(nullptr) {
    cookie_io_functions_t functions = {};
    functions.write = Write;
    m_pStream = fopencookie(this, "w", functions);
    if (m_pStream == nullptr) {
        throw std::runtime_error("standard output cannot be listened to");
    }
    std::setvbuf(m_pStream, nullptr, _IOLBF, BUFSIZ);
    stdout = m_pStream;
}

CPrintListener::~CPrintListener() {
    stdout = m_pOutput;
    std::fclose(m_pStream);
}

ssize_t CPrintListener::Write(void* pSelf, const char* pText, size_t nSize) {
    auto& self = *static_cast<CPrintListener*>(pSelf);
    self.m_Text.append(pText, nSize);
    self.m_OnLine({pText, nSize});
    return static_cast<ssize_t>(nSize);
}

}  // namespace nestrix
