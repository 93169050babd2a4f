#pragma once

#include <gmock/gmock.h>

#include <ostream>
#include <vector>

#include "certify/Certify.h"

namespace nestrix {

/// How a violation shows in a test's output.
inline void PrintTo(const SViolation& violation, std::ostream* pStream) {
    *pStream << InWords(violation);
}

namespace support {

/// A violation of a kind, of a placement or piece or a pair; of any amount.
MATCHER_P3(IsViolation, eKind, nFirst, nSecond, "") {
    return arg.m_eKind == eKind && arg.m_nFirst == nFirst && arg.m_nSecond == nSecond;
}

/// What is wrong with a packing and nothing else.
inline std::vector<SViolation> ViolationsOf(const std::vector<SPiece>& pieces, const SFreePacking& packing) {
    return Certify(pieces, packing).m_Violations;
}

}  // namespace support

}  // namespace nestrix
