#include <cstdint>

#include "certify/Certify.h"
#include "fuzz/CertificateInput.h"
#include "fuzz/Require.h"
#include "tests/reference/ReferenceCertificate.h"

using namespace nestrix;

// A few pieces of any shape, anywhere: certified quickly and plainly.

namespace {

using fuzz::Require;

void CheckReport(const SViolation& violation, const fuzz::SCertificateInput& input) {
    const int nPlaced = static_cast<int>(input.m_Packing.m_Placed.size());
    const bool bOfPiece = violation.m_eKind == SViolation::EKind::QUANTITY;
    const int nMost = bOfPiece ? static_cast<int>(input.m_Pieces.size()) : nPlaced;
    Require(violation.m_nFirst >= -1 && violation.m_nFirst < nMost, "a violation names what there is");
    Require(violation.m_nSecond == -1 ||
                (violation.m_nSecond > violation.m_nFirst && violation.m_nSecond < nPlaced),
            "a pair is named in order");
    Require(!InWords(violation).empty(), "there are words for every violation");
}

/// The amounts of a tame packing are lengths that it has room for.
void CheckAmount(const SViolation& violation) {
    using EKind = SViolation::EKind;
    const bool bLength = violation.m_eKind == EKind::OVERLAP || violation.m_eKind == EKind::SPACING ||
                         violation.m_eKind == EKind::STRIP;
    Require(!bLength || (violation.m_Amount > 0.0 && violation.m_Amount < 300.0),
            "a pair that overlaps does so by some length");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t nBytes) {
    const fuzz::SCertificateInput input = fuzz::DecodeCertificateInput(fuzz::CByteSource({pBytes, nBytes}));
    for (const SViolation& violation : Certify(input.m_Pieces, input.m_Packing).m_Violations) {
        CheckReport(violation, input);
        if (input.m_bTame) {
            CheckAmount(violation);
        }
    }
    if (input.m_bTame) {
        fuzz::RequireNone(reference::FindCertificateDifference(input.m_Pieces, input.m_Packing));
    }
    return 0;
}
