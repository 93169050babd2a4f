#include "WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

/// Where the content goes: behind any symbolic link, so that the link survives.
fs::path ResolveTarget(const std::string& path) {
    std::error_code error;
    const fs::path target = fs::canonical(path, error);
    return error ? fs::path(path) : target;
}

fs::path FolderOf(const fs::path& target) {
    return target.has_parent_path() ? target.parent_path() : ".";
}

bool IsSpecial(const fs::path& target) {
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    return fs::exists(status) && !fs::is_regular_file(status);
}

/// The access rights of the file to be replaced, or those that a new file gets.
mode_t RightsFor(const fs::path& target) {
    struct stat status = {};
    if (stat(target.c_str(), &status) == 0) {
        return status.st_mode & 0777;
    }
    const mode_t nMask = umask(0);
    umask(nMask);
    return 0666 & ~nMask;
}

bool WriteAll(int nDescriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t nWritten = write(nDescriptor, content.data(), content.size());
        if (nWritten < 0 && errno == EINTR) {
            continue;
        }
        if (nWritten < 0) {
            return false;
        }
        content.remove_prefix(static_cast<size_t>(nWritten));
    }
    return true;
}

/// Closes in any case, and keeps the reason of the first failure in errno.
bool CloseAfter(bool bWritten, int nDescriptor) {
    const int nReason = errno;
    const bool bClosed = close(nDescriptor) == 0;
    if (!bWritten) {
        errno = nReason;
    }
    return bWritten && bClosed;
}

/// A pipe without a reader is refused: opening it would wait for one, maybe for ever.
bool WriteDirectly(const fs::path& target, std::string_view content) {
    const int nDescriptor = open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
    if (nDescriptor < 0) {
        return false;
    }
    const int nFlags = fcntl(nDescriptor, F_GETFL);
    const bool bWaits = fcntl(nDescriptor, F_SETFL, nFlags & ~O_NONBLOCK) == 0;
    return CloseAfter(bWaits && WriteAll(nDescriptor, content), nDescriptor);
}

bool ReplaceFile(const fs::path& target, std::string_view content) {
    std::string temporary = FolderOf(target) / ".nestrix-XXXXXX";
    const int nDescriptor = mkstemp(temporary.data());
    if (nDescriptor < 0) {
        return false;
    }
    // Without the flush a disk could turn out to be full only after the old file is gone.
    const bool bWritten = fchmod(nDescriptor, RightsFor(target)) == 0 && WriteAll(nDescriptor, content) &&
                          fsync(nDescriptor) == 0;
    if (CloseAfter(bWritten, nDescriptor) && std::rename(temporary.c_str(), target.c_str()) == 0) {
        return true;
    }
    const int nReason = errno;
    unlink(temporary.c_str());
    errno = nReason;
    return false;
}

}  // namespace

std::string FindOutputFault(const std::string& path) {
    const fs::path target = ResolveTarget(path);
    std::error_code error;
    if (fs::is_directory(target, error)) {
        return std::strerror(EISDIR);
    }
    const fs::path place = IsSpecial(target) ? target : FolderOf(target) / ".";
    return faccessat(AT_FDCWD, place.c_str(), W_OK, AT_EACCESS) == 0 ? "" : std::strerror(errno);
}

std::string WriteWholeFile(const std::string& path, std::string_view content) {
    const fs::path target = ResolveTarget(path);
    const bool bDone = IsSpecial(target) ? WriteDirectly(target, content) : ReplaceFile(target, content);
    return bDone ? "" : std::strerror(errno);
}
