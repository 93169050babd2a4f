#include "batch/StartPacking.h"

#include <algorithm>

#include "batch/ViolationText.h"
#include "certify/Certify.h"

namespace nestrix {

namespace {

bool IsSamePiece(const SPiece& a, const SPiece& b) {
    return a.m_Name == b.m_Name && a.m_Shape == b.m_Shape;
}

std::string Counted(int64_t nPieces) {
    return std::to_string(nPieces) + (nPieces == 1 ? " piece" : " pieces");
}

/// Takes out what is said of quantities: the start lacks what is new.
int64_t TakeMissing(std::vector<SViolation>& violations) {
    double missing = 0.0;
    std::erase_if(violations, [&missing](const SViolation& violation) {
        const bool bQuantity = violation.m_eKind == SViolation::EKind::QUANTITY;
        missing += bQuantity ? violation.m_Amount : 0.0;
        return bQuantity;
    });
    return static_cast<int64_t>(missing);
}

}  // namespace

SFreePacking StartFrom(std::span<const SPiece> earlier, const SFreePacking& packing,
                       std::span<const SPiece> pieces, const SFreeStrip& strip) {
    SFreePacking start;
    start.m_Strip = strip;
    start.m_Grid = GridFor(strip.m_Width);
    std::vector<int> placed(pieces.size(), 0);
    for (SFreePlacement placement : packing.m_Placed) {
        const SPiece& sought = earlier[static_cast<size_t>(placement.m_nPiece)];
        // One of the pieces that look alike and of which a copy is still to be placed.
        size_t nPiece = 0;
        while (nPiece < pieces.size() &&
               !(IsSamePiece(pieces[nPiece], sought) && placed[nPiece] < pieces[nPiece].m_nQuantity)) {
            ++nPiece;
        }
        if (nPiece < pieces.size()) {
            ++placed[nPiece];
            placement.m_nPiece = static_cast<int>(nPiece);
            placement.m_At = {start.m_Grid.Count(packing.m_Grid.Length(placement.m_At.m_nX)),
                              start.m_Grid.Count(packing.m_Grid.Length(placement.m_At.m_nY))};
            start.m_Placed.push_back(placement);
        }
    }
    start.m_nHeight = HeightOf(PlacedShapes(pieces, start));
    return start;
}

std::vector<std::string> FindLosses(const SFreePacking& packing, std::span<const SPiece> pieces,
                                    const SFreePacking& start) {
    std::vector<std::string> losses;
    const size_t nLeftOut = packing.m_Placed.size() - start.m_Placed.size();
    if (nLeftOut > 0) {
        losses.push_back(Counted(static_cast<int64_t>(nLeftOut)) +
                         " of it left out: what is to be packed has "
                         "no more with the same name and shape");
    }
    const SFreeRecord record{{pieces.begin(), pieces.end()}, start};
    std::vector<SViolation> violations = Certify(record.m_Pieces, start).m_Violations;
    if (const int64_t nMissing = TakeMissing(violations); nMissing > 0) {
        losses.push_back(Counted(nMissing) + " to be packed not in it, and laid above it at first");
    }
    if (!violations.empty()) {
        const size_t nMore = violations.size() - 1;
        losses.push_back("not all of it can stay where it is: " + InWords(violations.front(), record) +
                         (nMore > 0 ? ", and " + std::to_string(nMore) + " more" : ""));
    }
    return losses;
}

std::vector<SPiece> WithTurnsOf(std::span<const SPiece> earlier, std::vector<SPiece> pieces) {
    for (SPiece& piece : pieces) {
        const auto same = std::find_if(earlier.begin(), earlier.end(),
                                       [&](const SPiece& other) { return IsSamePiece(other, piece); });
        if (same != earlier.end() && piece.m_Turns == STurns() && !piece.m_bMirrored) {
            piece.m_Turns = same->m_Turns;
            piece.m_bMirrored = same->m_bMirrored;
        }
    }
    return pieces;
}

}  // namespace nestrix
