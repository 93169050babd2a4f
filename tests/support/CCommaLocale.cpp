#include "tests/support/CCommaLocale.h"

#include <clocale>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace nestrix::support {

CCommaLocale::CCommaLocale() : m_Previous(std::setlocale(LC_ALL, nullptr)) {
    setenv("LOCPATH", Folder(), 1);
    const char* pName = std::setlocale(LC_ALL, Name());
    unsetenv("LOCPATH");
    if (pName == nullptr || std::string_view(std::localeconv()->decimal_point) != ",") {
        throw std::runtime_error("the locale with a decimal comma is missing");
    }
}

CCommaLocale::~CCommaLocale() {
    std::setlocale(LC_ALL, m_Previous.c_str());
}

const char* CCommaLocale::Folder() {
    return NESTRIX_LOCALE_FOLDER;
}

const char* CCommaLocale::Name() {
    return "de_DE.UTF-8";
}

}  // namespace nestrix::support
