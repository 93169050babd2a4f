#include "formats/dxf/DxfRecordKinds.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "formats/dxf/CDxfFeed.h"

namespace nestrix {

namespace {

constexpr std::array COMMON{8, 210, 220, 230};  // the layer and the direction that is up

constexpr std::array<int, 0> NONE{};
constexpr std::array LAYER{2, 62, 70};
constexpr std::array BLOCK{2, 10, 20, 70};
constexpr std::array LINE{10, 20, 11, 21};
constexpr std::array CIRCLE{10, 20, 40};
constexpr std::array ARC{10, 20, 40, 50, 51};
constexpr std::array ELLIPSE{10, 20, 11, 21, 40, 41, 42};
constexpr std::array LWPOLYLINE{10, 20, 42, 70};
constexpr std::array POLYLINE{66, 70};
constexpr std::array VERTEX{10, 20, 42, 70};
constexpr std::array SPLINE{70, 71, 40, 41, 10, 20, 11, 21, 12, 22, 13, 23};
constexpr std::array TEXT{1, 10, 20, 11, 21, 40, 41, 50, 71, 72, 73};
constexpr std::array ATTRIB{1, 2, 10, 20, 11, 21, 40, 41, 50, 71, 72, 74};
constexpr std::array MTEXT{1, 3, 10, 20, 11, 21, 40, 44, 50, 71};
constexpr std::array INSERT{2, 10, 20, 41, 42, 44, 45, 50, 70, 71};

const std::array<SDxfRecordKind, 16> KINDS{{{"ARC", ARC},
                                            {"ATTRIB", ATTRIB},
                                            {"BLOCK", BLOCK, false},
                                            {"CIRCLE", CIRCLE},
                                            {"ELLIPSE", ELLIPSE},
                                            {"ENDBLK", NONE, false},
                                            {"INSERT", INSERT},
                                            {"LAYER", LAYER, false},
                                            {"LINE", LINE},
                                            {"LWPOLYLINE", LWPOLYLINE},
                                            {"MTEXT", MTEXT},
                                            {"POLYLINE", POLYLINE},
                                            {"SEQEND", NONE},
                                            {"SPLINE", SPLINE},
                                            {"TEXT", TEXT},
                                            {"VERTEX", VERTEX}}};

bool Contains(std::span<const int> codes, int nCode) {
    return std::find(codes.begin(), codes.end(), nCode) != codes.end();
}

bool IsReal(int nCode) {
    return (nCode >= 10 && nCode < 60) || (nCode >= 210 && nCode < 240);
}

bool IsWhole(int nCode) {
    return nCode >= 60 && nCode < 80;
}

template <class TNumber>
bool Reads(std::string_view text, TNumber& number) {
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    const auto [pEnd, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && pEnd == text.data() + text.size();
}

}  // namespace

const SDxfRecordKind* FindRecordKind(std::string_view name) {
    const auto* const pKind = std::find_if(
        KINDS.begin(), KINDS.end(), [name](const SDxfRecordKind& kind) { return kind.m_Name == name; });
    return pKind == KINDS.end() ? nullptr : pKind;
}

bool IsRead(const SDxfRecordKind& kind, int nCode) {
    return Contains(kind.m_Codes, nCode) || Contains(COMMON, nCode);
}

std::string FaultOf(const SDxfGroup& group) {
    double number = 0.0;
    int nNumber = 0;
    if (group.m_Value.size() > CDxfFeed::LONGEST_VALUE) {
        return "the line is longer than " + std::to_string(CDxfFeed::LONGEST_VALUE) + " characters";
    }
    if (IsReal(group.m_nCode)) {
        if (!Reads(group.m_Value, number) || !std::isfinite(number)) {
            return Quoted(group.m_Value) + " is no finite number";
        }
        return std::abs(number) <= LARGEST_NUMBER ? "" : Quoted(group.m_Value) + " is too large";
    }
    if (IsWhole(group.m_nCode) && !Reads(group.m_Value, nNumber)) {
        return Quoted(group.m_Value) + " is no whole number";
    }
    return {};
}

std::string LocaleProof(const SDxfGroup& group) {
    std::string value(group.m_Value);
    const size_t nPoint = value.find('.');
    if (!IsReal(group.m_nCode) || nPoint == std::string::npos) {
        return value;
    }
    const size_t nExponent = std::min(value.find_first_of("eE"), value.size());
    int nPower = 0;
    if (nExponent < value.size()) {
        (void)Reads(std::string_view(value).substr(nExponent + 1), nPower);
    }
    const int nDecimals = static_cast<int>(nExponent - nPoint) - 1;
    return value.substr(0, nPoint) + value.substr(nPoint + 1, nExponent - nPoint - 1) + "e" +
           std::to_string(nPower - nDecimals);
}

}  // namespace nestrix
