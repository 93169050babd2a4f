#include "formats/json/FileText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace nestrix {

namespace {

class CDescriptor {
public:
    explicit CDescriptor(int nDescriptor) : m_nDescriptor(nDescriptor) {}
    ~CDescriptor() {
        if (m_nDescriptor >= 0) {
            close(m_nDescriptor);
        }
    }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;
    operator int() const { return m_nDescriptor; }

private:
    int m_nDescriptor;
};

/// Fills the text from the file; somebody may be shortening it.
std::string Fill(int nDescriptor, std::string& text) {
    size_t nRead = 0;
    while (nRead < text.size()) {
        const ssize_t nPart = read(nDescriptor, text.data() + nRead, text.size() - nRead);
        if (nPart < 0 && errno == EINTR) {
            continue;
        }
        if (nPart < 0) {
            return std::strerror(errno);
        }
        if (nPart == 0) {
            break;
        }
        nRead += static_cast<size_t>(nPart);
    }
    text.resize(nRead);
    return "";
}

}  // namespace

SFileText ReadFileText(const std::string& path, size_t nBytesMost) {
    // Non-blocking, since opening a pipe without a writer would hang.
    const CDescriptor descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (descriptor < 0 || fstat(descriptor, &status) != 0) {
        return {"", std::strerror(errno)};
    }
    if (!S_ISREG(status.st_mode)) {
        return {"", "not a regular file"};
    }
    const auto nBytes = static_cast<size_t>(status.st_size);
    if (nBytes > nBytesMost) {
        return {"", "larger than " + std::to_string(nBytesMost / 1'000'000) + " MB"};
    }
    SFileText file{std::string(nBytes, '\0'), ""};
    file.m_Fault = Fill(descriptor, file.m_Text);
    return file;
}

}  // namespace nestrix
