#include "batch/ViolationText.h"

namespace nestrix {

namespace {

const std::string& NameOf(const SFreeRecord& record, int nPiece) {
    return record.m_Pieces[static_cast<size_t>(nPiece)].m_Name;
}

const std::string& NameOf(const SDroppedRecord& record, int nPiece) {
    return record.m_Names[static_cast<size_t>(nPiece)];
}

/// The names of the pieces that a violation is about, " (leg, arm)"; empty where there is none.
template <class TRecord>
std::string PiecesOf(const SViolation& violation, const TRecord& record) {
    std::string names;
    for (const int nPlaced : {violation.m_nFirst, violation.m_nSecond}) {
        const bool bQuantity = violation.m_eKind == SViolation::EKind::QUANTITY;
        if (nPlaced >= 0 && violation.m_eKind != SViolation::EKind::UNKNOWN_PIECE) {
            const int nPiece =
                bQuantity ? nPlaced : record.m_Packing.m_Placed[static_cast<size_t>(nPlaced)].m_nPiece;
            names.append(names.empty() ? " (" : ", ").append(NameOf(record, nPiece));
        }
    }
    return names.empty() ? names : names + ")";
}

}  // namespace

std::string InWords(const SViolation& violation, const SFreeRecord& record) {
    return InWords(violation) + PiecesOf(violation, record);
}

std::string InWords(const SViolation& violation, const SDroppedRecord& record) {
    return InWords(violation) + PiecesOf(violation, record);
}

}  // namespace nestrix
