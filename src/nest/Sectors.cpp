#include "nest/Sectors.h"

#include <algorithm>
#include <cmath>

namespace nestrix {

double NormalisedAngle(double angle) {
    const double rest = std::fmod(angle, FULL_TURN);
    return rest < 0.0 ? rest + FULL_TURN : rest;
}

double AngleOf(SPoint direction) {
    const double share = direction.m_Y / (std::abs(direction.m_X) + std::abs(direction.m_Y));
    return NormalisedAngle(direction.m_X < 0.0 ? HALF_TURN - share : share);
}

std::vector<SSector> GapsBetween(std::vector<SSector> taken) {
    if (taken.empty()) {
        return {{0.0, FULL_TURN}};
    }
    for (SSector& sector : taken) {
        sector.m_Start = NormalisedAngle(sector.m_Start);
    }
    std::sort(taken.begin(), taken.end(),
              [](const SSector& a, const SSector& b) { return a.m_Start < b.m_Start; });
    // Once round from the first: its beginning closes the circle, unless one that passed 0 has covered it.
    std::vector<SSector> gaps;
    const double first = taken.front().m_Start;
    double end = first;
    for (const SSector& sector : taken) {
        end = std::max(end, sector.m_Start + sector.m_Width - FULL_TURN);
    }
    for (const SSector& sector : taken) {
        if (sector.m_Start > end + SAME_ANGLE) {
            gaps.push_back({end, sector.m_Start - end});
        }
        end = std::max(end, sector.m_Start + sector.m_Width);
    }
    if (first + FULL_TURN > end + SAME_ANGLE) {
        gaps.push_back({NormalisedAngle(end), first + FULL_TURN - end});
    }
    return gaps;
}

bool IsWithin(const SSector& inner, const SSector& outer) {
    // Just before the outer one's start is a little less than 0, not nearly a full turn.
    const double offset = NormalisedAngle(inner.m_Start - outer.m_Start + SAME_ANGLE) - SAME_ANGLE;
    return offset + inner.m_Width <= outer.m_Width + SAME_ANGLE;
}

}  // namespace nestrix
