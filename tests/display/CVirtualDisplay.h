#pragma once

#include <sys/types.h>

#include <string>

namespace nestrix::support {

/// A screen in memory for this process and its children, which DISPLAY then names. The server picks a free
/// number itself, so any number of tests can run side by side.
class CVirtualDisplay {
public:
    /// @param pScreen width, height and depth, as in "1280x800x24".
    /// @param pWithout an extension that the server is to do without.
    /// Ends the program with a message when there is no display server.
    explicit CVirtualDisplay(const char* pScreen = "1280x800x24", const char* pWithout = nullptr);
    /// DISPLAY is then what it was before.
    ~CVirtualDisplay();
    CVirtualDisplay(const CVirtualDisplay&) = delete;
    CVirtualDisplay& operator=(const CVirtualDisplay&) = delete;

private:
    std::string m_Previous;  ///< display
    pid_t m_nServer;
};

}  // namespace nestrix::support
