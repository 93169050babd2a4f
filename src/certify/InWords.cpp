#include <array>
#include <charconv>

#include "certify/Certify.h"

namespace nestrix {

namespace {

/// To six digits, with a decimal point under every locale.
std::string Number(double number) {
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, 6).ptr;
    return {text.data(), end};
}

std::string Quantity(const SViolation& violation) {
    const bool bMissing = violation.m_Amount > 0;
    const double copies = bMissing ? violation.m_Amount : -violation.m_Amount;
    return Number(copies) + (copies == 1.0 ? " copy of piece " : " copies of piece ") +
           std::to_string(violation.m_nFirst + 1) + (bMissing ? " missing" : " too many");
}

std::string Strip(const SViolation& violation) {
    if (violation.m_nFirst < 0) {
        return "the strip or its grid cannot be calculated with";
    }
    return "placement " + std::to_string(violation.m_nFirst + 1) + " reaches " + Number(violation.m_Amount) +
           " out of the strip or into its margin";
}

}  // namespace

std::string InWords(const SViolation& violation) {
    using EKind = SViolation::EKind;
    const std::string first = "placement " + std::to_string(violation.m_nFirst + 1);
    const std::string pair = "placements " + std::to_string(violation.m_nFirst + 1) + " and " +
                             std::to_string(violation.m_nSecond + 1);
    switch (violation.m_eKind) {
        case EKind::UNKNOWN_PIECE:
            return first + " is of a piece that the set has not";
        case EKind::QUANTITY:
            return Quantity(violation);
        case EKind::TURN:
            return first + " is turned or mirrored as its piece does not allow";
        case EKind::SHAPE:
            return first + " has an outline that crosses itself, has no inside, or cannot be calculated with";
        case EKind::STRIP:
            return Strip(violation);
        case EKind::OVERLAP:
            return pair + " overlap by " + Number(violation.m_Amount);
        case EKind::SPACING:
            return pair + " are nearer than the spacing by " + Number(violation.m_Amount);
        case EKind::HEIGHT:
            return violation.m_Amount > 0 ? "the height is too great by " + Number(violation.m_Amount)
                                          : "the height is too small by " + Number(-violation.m_Amount);
    }
    return {};
}

}  // namespace nestrix
