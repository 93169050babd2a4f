#pragma once

#include <locale.h>

namespace nestrix {

/// While it lives, the calling thread reads and prints numbers with a decimal point, whatever locale the
/// process has been switched to: a desktop toolkit adopts the user's, where "12.5,3" could mean 12.
/// Only the calling thread is affected. Objects on one thread must nest.
class CNumericLocale {
public:
    CNumericLocale();
    ~CNumericLocale();
    CNumericLocale(const CNumericLocale&) = delete;
    CNumericLocale& operator=(const CNumericLocale&) = delete;

private:
    locale_t m_Previous;
};

}  // namespace nestrix
