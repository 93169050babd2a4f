#pragma once

#include <cstdint>

namespace nestrix::reference {

__extension__ typedef __int128 CFractionInteger;

/// A ratio of two whole numbers, as it comes; the denominator is positive.
struct SFraction {
    CFractionInteger m_nNumerator = 0;
    CFractionInteger m_nDenominator = 1;

    friend bool operator<(const SFraction& a, const SFraction& b) {
        return a.m_nNumerator * b.m_nDenominator < b.m_nNumerator * a.m_nDenominator;
    }
    friend bool operator==(const SFraction& a, const SFraction& b) { return !(a < b) && !(b < a); }
};

/// With the sign in the numerator.
inline SFraction Ratio(CFractionInteger nNumerator, CFractionInteger nDenominator) {
    return nDenominator < 0 ? SFraction{-nNumerator, -nDenominator} : SFraction{nNumerator, nDenominator};
}

inline SFraction Middle(const SFraction& a, const SFraction& b) {
    return {a.m_nNumerator * b.m_nDenominator + b.m_nNumerator * a.m_nDenominator,
            2 * a.m_nDenominator * b.m_nDenominator};
}

}  // namespace nestrix::reference
