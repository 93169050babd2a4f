#include "formats/CWholeFile.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace nestrix {

namespace fs = std::filesystem;

namespace {

/// The file behind a path that names no existing one: the path itself, or where its links lead to.
fs::path FollowLinks(fs::path path) {
    constexpr int MOST_LINKS = 40;  // as many as the system follows
    std::error_code error;
    for (int i = 0; i < MOST_LINKS && fs::is_symlink(fs::symlink_status(path, error)); ++i) {
        const fs::path target = fs::read_symlink(path, error);
        path = path.parent_path() / target;  // the target alone if it is absolute
    }
    return path;
}

/// The one name of a file that may not be there yet.
fs::path WholePath(const fs::path& target) {
    std::error_code error;
    return fs::weakly_canonical(fs::absolute(target, error), error);
}

fs::path FolderOf(const fs::path& target) {
    return target.has_parent_path() ? target.parent_path() : ".";
}

bool IsStandardOutput(const struct stat& status) {
    struct stat output = {};
    return fstat(STDOUT_FILENO, &output) == 0 && status.st_dev == output.st_dev &&
           status.st_ino == output.st_ino;
}

/// A pipe without a reader is refused: opening it would wait for one, maybe for ever. So is a folder.
int OpenSpecial(const std::string& path) {
    return open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

/// Whether something can be written there, waiting if need be. An empty write changes nothing, but a full
/// device refuses even that.
bool CanWrite(int nDescriptor) {
    const int nFlags = fcntl(nDescriptor, F_GETFL);
    return nFlags >= 0 && fcntl(nDescriptor, F_SETFL, nFlags & ~O_NONBLOCK) == 0 &&
           write(nDescriptor, "", 0) == 0;
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

/// Removes the file in any case, and keeps errno.
void Remove(const std::string& path) {
    const int nReason = errno;
    unlink(path.c_str());
    errno = nReason;
}

std::string TemporaryBeside(const fs::path& target) {
    return FolderOf(target) / ".nestrix-XXXXXX";
}

/// Whether a file can and may be made in the target's place: there is room for a small one beside it, and
/// nobody has protected the old one from being written.
bool CanReplace(const fs::path& target) {
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0 && errno != ENOENT) {
        return false;
    }
    std::string trial = TemporaryBeside(target);
    const int nDescriptor = mkstemp(trial.data());
    if (nDescriptor < 0) {
        return false;
    }
    Remove(trial);  // already now: a signal that ends the program leaves nothing behind
    constexpr std::array<char, 4096> BLOCK{};
    return CloseAfter(WriteAll(nDescriptor, {BLOCK.data(), BLOCK.size()}), nDescriptor);
}

/// While it lives, the signals that end programs wait.
class CHeldSignals {
public:
    CHeldSignals() {
        sigset_t held;
        sigemptyset(&held);
        for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
            sigaddset(&held, nSignal);
        }
        pthread_sigmask(SIG_BLOCK, &held, &m_Previous);
    }
    ~CHeldSignals() { pthread_sigmask(SIG_SETMASK, &m_Previous, nullptr); }
    CHeldSignals(const CHeldSignals&) = delete;
    CHeldSignals& operator=(const CHeldSignals&) = delete;

private:
    sigset_t m_Previous{};
};

bool ReplaceFile(const fs::path& target, std::string_view content) {
    const CHeldSignals held;
    std::string temporary = TemporaryBeside(target);
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
    Remove(temporary);
    return false;
}

}  // namespace

CWholeFile::CWholeFile(const std::string& path) {
    struct stat status = {};
    const bool bExists = stat(path.c_str(), &status) == 0;
    bool bGood = bExists || errno == ENOENT;
    if (bExists && IsStandardOutput(status)) {
        m_nDescriptor = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
        bGood = CanWrite(m_nDescriptor);
    } else if (bExists && !S_ISREG(status.st_mode)) {
        m_nDescriptor = OpenSpecial(path);
        bGood = m_nDescriptor >= 0 && CanWrite(m_nDescriptor);
    } else if (bGood) {
        m_Target = FollowLinks(path);
        bGood = CanReplace(m_Target);
    }
    if (!bGood) {
        m_Fault = std::strerror(errno);
    }
}

CWholeFile::~CWholeFile() {
    if (m_nDescriptor >= 0) {
        close(m_nDescriptor);
    }
}

bool CWholeFile::WouldReplace(const std::string& path) const {
    std::error_code error;
    return fs::equivalent(m_Target, path, error);  // with no target, or a missing one: no
}

bool CWholeFile::IsSameAs(const CWholeFile& other) const {
    if (m_Target.empty() || other.m_Target.empty()) {
        return false;
    }
    std::error_code error;
    return fs::equivalent(m_Target, other.m_Target, error) ||
           WholePath(m_Target) == WholePath(other.m_Target);
}

std::string CWholeFile::Write(std::string_view content) {
    const bool bDone = m_Target.empty() ? CloseAfter(WriteAll(m_nDescriptor, content), m_nDescriptor)
                                        : ReplaceFile(m_Target, content);
    m_nDescriptor = -1;
    return bDone ? "" : std::strerror(errno);
}

}  // namespace nestrix
