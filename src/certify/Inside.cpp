#include "certify/Inside.h"

#include <algorithm>

#include "certify/CLocator.h"
#include "certify/Meetings.h"

namespace nestrix::certify {

namespace {

/// Whether any of one border's stretches lies inside the other, or on it with the inside on the same side.
bool ReachesInto(const SBorder& border, const std::vector<STouch>& touches, const SBorder& other) {
    const std::vector<SStretch> stretches = StretchesBetween(border, touches);
    const CLocator locator(other);
    return std::any_of(stretches.begin(), stretches.end(), [&locator](const SStretch& stretch) {
        const SWhere where = locator.Locate(stretch);
        return where.m_nAlong > 0 || (where.m_nAgainst == 0 && where.m_nWinding > 0);
    });
}

}  // namespace

bool Overlap(const SBorder& first, const SBorder& second) {
    if (!Overlap(first.m_Box, second.m_Box)) {
        return false;
    }
    const SMeetings meetings = FindMeetings(first, second);
    return meetings.m_bCross || ReachesInto(first, meetings.m_First, second) ||
           ReachesInto(second, meetings.m_Second, first);
}

}  // namespace nestrix::certify
