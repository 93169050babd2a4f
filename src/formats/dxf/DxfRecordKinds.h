#pragma once

#include <span>
#include <string>
#include <string_view>

#include "formats/dxf/CDxfRecords.h"

namespace nestrix {

/// A kind of record that is read, and the codes of those of its groups that are.
struct SDxfRecordKind {
    std::string_view m_Name;
    std::span<const int> m_Codes;
    bool m_bEntity = true;  ///< something that is drawn, or a part of it
};

/// @return null for a kind that is not read.
[[nodiscard]] const SDxfRecordKind* FindRecordKind(std::string_view name);

/// Whether a group of such a record is read.
[[nodiscard]] bool IsRead(const SDxfRecordKind& kind, int nCode);

/// Why a value cannot be what its code says, in words for a user; empty if it can. Numbers are finite and at
/// most LARGEST_NUMBER in amount.
[[nodiscard]] std::string FaultOf(const SDxfGroup& group);

/// Far beyond any drawing, while squares and products of such numbers are still far from overflow.
inline constexpr double LARGEST_NUMBER = 1e15;

/// A sound value as dxflib may see it: a real number without a decimal point, which dxflib takes for whatever
/// the program's locale says.
[[nodiscard]] std::string LocaleProof(const SDxfGroup& group);

}  // namespace nestrix
