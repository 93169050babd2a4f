#include "tests/reference/ReferenceCertificate.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace nestrix::reference {

namespace {

using EKind = SViolation::EKind;
using CViolations = std::vector<SViolation>;
using CNamed = std::tuple<EKind, int, int>;

bool IsAllowed(const SPiece& piece, const SFreePlacement& placement) {
    bool bTurn = piece.m_Turns.m_bAny;
    for (const double degrees : piece.m_Turns.m_Degrees) {
        bTurn = bTurn || static_cast<int64_t>(degrees - placement.m_Degrees) % 360 == 0;
    }
    return bTurn && (piece.m_bMirrored || !placement.m_bMirrored);
}

void AddDemands(CViolations& found, std::span<const SPiece> pieces, const SFreePacking& packing) {
    std::vector<int> missing;
    for (const SPiece& piece : pieces) {
        missing.push_back(std::max(piece.m_nQuantity, 0));
    }
    int nPlacement = 0;
    for (const SFreePlacement& placement : packing.m_Placed) {
        const size_t nPiece = static_cast<size_t>(placement.m_nPiece);
        --missing[nPiece];
        if (!IsAllowed(pieces[nPiece], placement)) {
            found.push_back({EKind::TURN, nPlacement, -1, 0.0});
        }
        ++nPlacement;
    }
    for (size_t i = 0; i < missing.size(); ++i) {
        if (missing[i] != 0) {
            found.push_back({EKind::QUANTITY, static_cast<int>(i), -1, 0.0});
        }
    }
}

void AddPairs(CViolations& found, const std::vector<SGridShape>& shapes, const std::vector<bool>& sound,
              int64_t nSpacing) {
    for (size_t i = 0; i < shapes.size(); ++i) {
        for (size_t j = i + 1; j < shapes.size(); ++j) {
            if (!sound[i] || !sound[j]) {
                continue;
            }
            if (reference::DoInsidesOverlap(shapes[i], shapes[j])) {
                found.push_back({EKind::OVERLAP, static_cast<int>(i), static_cast<int>(j), 0.0});
            } else if (nSpacing > 0 && AreNearer(shapes[i], shapes[j], nSpacing - 1)) {
                found.push_back({EKind::SPACING, static_cast<int>(i), static_cast<int>(j), 0.0});
            }
        }
    }
}

std::set<CNamed> Named(const CViolations& violations) {
    std::set<CNamed> named;
    for (const SViolation& violation : violations) {
        named.insert({violation.m_eKind, violation.m_nFirst, violation.m_nSecond});
    }
    return named;
}

/// A violation of one set that the other has not, in words.
std::string FindMissing(const CViolations& of, const CViolations& in) {
    const std::set<CNamed> named = Named(in);
    for (const SViolation& violation : of) {
        if (!named.contains({violation.m_eKind, violation.m_nFirst, violation.m_nSecond})) {
            return InWords(violation);
        }
    }
    return {};
}

}  // namespace

CViolations FindViolations(std::span<const SPiece> pieces, const SFreePacking& packing) {
    CViolations found;
    AddDemands(found, pieces, packing);
    const std::vector<SGridShape> shapes = PlacedShapes(pieces, packing);
    const SGridStrip strip = OnGrid(packing.m_Strip, packing.m_Grid);
    std::vector<bool> sound;
    bool bAllSound = true;
    for (size_t i = 0; i < shapes.size(); ++i) {
        const SPiece& piece = pieces[static_cast<size_t>(packing.m_Placed[i].m_nPiece)];
        sound.push_back(reference::IsSound(OnGrid(piece.m_Shape, packing.m_Grid)));
        if (!sound.back()) {
            found.push_back({EKind::SHAPE, static_cast<int>(i), -1, 0.0});
            bAllSound = false;
            continue;
        }
        for (const SGridPoint point : shapes[i].m_Outline) {
            if (point.m_nX < strip.m_nMargin || point.m_nY < strip.m_nMargin ||
                point.m_nX > strip.m_nWidth - strip.m_nMargin) {
                found.push_back({EKind::STRIP, static_cast<int>(i), -1, 0.0});
            }
        }
    }
    if (bAllSound && HeightOf(shapes) != packing.m_nHeight) {
        found.push_back({EKind::HEIGHT, -1, -1, 0.0});
    }
    AddPairs(found, shapes, sound, strip.m_nSpacing);
    return found;
}

std::string FindCertificateDifference(std::span<const SPiece> pieces, const SFreePacking& packing) {
    const CViolations quick = Certify(pieces, packing).m_Violations;
    const CViolations plain = FindViolations(pieces, packing);
    if (const std::string missing = FindMissing(plain, quick); !missing.empty()) {
        return "not found: " + missing;
    }
    const std::string wrong = FindMissing(quick, plain);
    return wrong.empty() ? std::string() : "found wrongly: " + wrong;
}

}  // namespace nestrix::reference
