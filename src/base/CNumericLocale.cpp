#include "base/CNumericLocale.h"

namespace nestrix {

namespace {

/// Made once and kept for the life of the process. The "C" locale always exists.
locale_t PlainLocale() {
    static const locale_t s_Plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return s_Plain;
}

}  // namespace

CNumericLocale::CNumericLocale() : m_Previous(uselocale(PlainLocale())) {}

CNumericLocale::~CNumericLocale() {
    uselocale(m_Previous);
}

}  // namespace nestrix
