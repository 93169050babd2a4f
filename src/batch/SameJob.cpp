#include "batch/SameJob.h"

#include <algorithm>

#include "base/NumberText.h"

namespace nestrix {

namespace {

const SFreeRecord& FreeOf(const SPackingRecord& record) {
    return std::get<SFreeRecord>(record.m_Packing);
}

std::string FindDifference(char const* pWhat, double length, double ofJob) {
    return length == ofJob ? "" : pWhat + ShortestDigits(length) + ", not " + ShortestDigits(ofJob);
}

std::string FindDifference(const SFreeStrip& strip, const SFreeStrip& ofJob) {
    for (const std::string& difference :
         {FindDifference("the strip's width is ", strip.m_Width, ofJob.m_Width),
          FindDifference("the spacing is ", strip.m_Spacing, ofJob.m_Spacing),
          FindDifference("the margin is ", strip.m_Margin, ofJob.m_Margin)}) {
        if (!difference.empty()) {
            return difference;
        }
    }
    return {};
}

/// The pieces may come in another order.
std::string FindDifference(const std::vector<SPiece>& pieces, const std::vector<SPiece>& ofJob) {
    if (std::is_permutation(pieces.begin(), pieces.end(), ofJob.begin(), ofJob.end())) {
        return {};
    }
    const auto other = std::find_if(pieces.begin(), pieces.end(), [&](const SPiece& piece) {
        return std::find(ofJob.begin(), ofJob.end(), piece) == ofJob.end();
    });
    if (other == pieces.end()) {
        return "it has not the same pieces";
    }
    const auto known = std::find_if(ofJob.begin(), ofJob.end(), [&](const SPiece& piece) {
        return piece.m_Name == other->m_Name && piece.m_Shape == other->m_Shape;
    });
    if (known == ofJob.end()) {
        return "it has another piece: " + other->m_Name;
    }
    return known->m_nQuantity != other->m_nQuantity
               ? "another quantity is asked for of " + other->m_Name
               : other->m_Name + " may be turned or mirrored differently";
}

/// Whether holes were to be kept empty is nowhere but among the options.
bool KeepsHolesEmpty(const SPackingRecord& record) {
    return std::any_of(record.m_Options.begin(), record.m_Options.end(),
                       [](const auto& option) { return option.first == "keep-holes-empty"; });
}

std::string UnitOf(const SPackingRecord& record) {
    return record.m_Unit ? std::string(NameOf(*record.m_Unit)) : "unknown";
}

}  // namespace

std::string FindDifference(const SPackingRecord& record, const SPackingRecord& job) {
    if (record.m_Unit != job.m_Unit) {
        return "the unit is " + UnitOf(record) + ", not " + UnitOf(job);
    }
    if (KeepsHolesEmpty(record) != KeepsHolesEmpty(job)) {
        return KeepsHolesEmpty(record) ? "holes were to be kept empty" : "holes were not to be kept empty";
    }
    std::string strip = FindDifference(FreeOf(record).m_Packing.m_Strip, FreeOf(job).m_Packing.m_Strip);
    return strip.empty() ? FindDifference(FreeOf(record).m_Pieces, FreeOf(job).m_Pieces) : strip;
}

}  // namespace nestrix
