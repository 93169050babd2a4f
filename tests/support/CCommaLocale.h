#pragma once

#include <string>

namespace nestrix::support {

/// While it lives, the process runs under a locale with a decimal comma, as under a German desktop. The
/// locale is one that the build made for itself, so the machine need not have any.
class CCommaLocale {
public:
    CCommaLocale();
    ~CCommaLocale();
    CCommaLocale(const CCommaLocale&) = delete;
    CCommaLocale& operator=(const CCommaLocale&) = delete;

    /// The folder that LOCPATH names for the locale, and the locale's name: for programs started by a test.
    [[nodiscard]] static const char* Folder();
    [[nodiscard]] static const char* Name();

private:
    std::string m_Previous;
};

}  // namespace nestrix::support
