#include "certify/Amounts.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace nestrix::certify {

namespace {

/// Coordinates about a point near by, so that they are short.
struct SVector {
    double m_X = 0.0;
    double m_Y = 0.0;

    friend SVector operator+(SVector a, SVector b) { return {a.m_X + b.m_X, a.m_Y + b.m_Y}; }
    friend SVector operator-(SVector a, SVector b) { return {a.m_X - b.m_X, a.m_Y - b.m_Y}; }
    friend SVector operator*(SVector a, double factor) { return {a.m_X * factor, a.m_Y * factor}; }
};

double Dot(SVector a, SVector b) {
    return a.m_X * b.m_X + a.m_Y * b.m_Y;
}
double Turn(SVector a, SVector b) {
    return a.m_X * b.m_Y - a.m_Y * b.m_X;
}

struct SSegment {
    SVector m_From;
    SVector m_To;
};
using CSegments = std::vector<SSegment>;

CSegments SegmentsOf(const SBorder& border, SGridPoint origin) {
    const auto vector = [origin](SGridPoint point) {
        const SGridPoint from = point - origin;
        return SVector{static_cast<double>(from.m_nX), static_cast<double>(from.m_nY)};
    };
    CSegments segments;
    segments.reserve(border.m_Edges.size());
    for (const SBorderEdge& edge : border.m_Edges) {
        segments.push_back({vector(edge.m_From), vector(edge.m_To)});
    }
    return segments;
}

double Distance(SVector point, const SSegment& segment) {
    const SVector along = segment.m_To - segment.m_From;
    const double foot = std::clamp(Dot(point - segment.m_From, along) / Dot(along, along), 0.0, 1.0);
    const SVector apart = point - (segment.m_From + along * foot);
    return std::hypot(apart.m_X, apart.m_Y);
}

double Distance(SVector point, const CSegments& segments) {
    double least = std::numeric_limits<double>::infinity();
    for (const SSegment& segment : segments) {
        least = std::min(least, Distance(point, segment));
    }
    return least;
}

bool IsInside(SVector point, const CSegments& segments) {
    int nWinding = 0;
    for (const SSegment& segment : segments) {
        const double turn = Turn(segment.m_To - segment.m_From, point - segment.m_From);
        if (segment.m_From.m_Y <= point.m_Y && point.m_Y < segment.m_To.m_Y && turn > 0.0) {
            ++nWinding;
        } else if (segment.m_To.m_Y <= point.m_Y && point.m_Y < segment.m_From.m_Y && turn < 0.0) {
            --nWinding;
        }
    }
    return nWinding > 0;
}

/// Where others meet the segment, as parts of its length, in order: from 0 to 1.
std::vector<double> MeetingsOf(const SSegment& segment, const CSegments& others) {
    std::vector<double> meetings{0.0, 1.0};
    const SVector along = segment.m_To - segment.m_From;
    const auto note = [&meetings](double part) {
        if (part > 0.0 && part < 1.0) {
            meetings.push_back(part);
        }
    };
    for (const SSegment& other : others) {
        const SVector across = other.m_To - other.m_From;
        const SVector apart = other.m_From - segment.m_From;
        const double slope = Turn(along, across);
        if (slope == 0.0) {
            note(Dot(apart, along) / Dot(along, along));
            note(Dot(other.m_To - segment.m_From, along) / Dot(along, along));
            continue;
        }
        const double ofOther = Turn(apart, along) / slope;
        if (ofOther >= 0.0 && ofOther <= 1.0) {
            note(Turn(apart, across) / slope);
        }
    }
    std::sort(meetings.begin(), meetings.end());
    return meetings;
}

double DepthOf(const CSegments& first, const CSegments& second) {
    double depth = 0.0;
    const auto measure = [&](SVector point) {
        if (IsInside(point, second)) {
            depth = std::max(depth, Distance(point, second));
        }
    };
    for (const SSegment& segment : first) {
        const std::vector<double> meetings = MeetingsOf(segment, second);
        measure(segment.m_From);
        for (size_t i = 0; i + 1 < meetings.size(); ++i) {
            measure(segment.m_From + (segment.m_To - segment.m_From) * ((meetings[i] + meetings[i + 1]) / 2));
        }
    }
    return depth;
}

/// Half of the longest way across both insides, from the middle of any edge of the first and at right angles
/// to it.
double HalfAcross(const CSegments& first, const CSegments& second) {
    double longest = 0.0;
    for (const SSegment& segment : first) {
        const SVector along = segment.m_To - segment.m_From;
        const SVector middle = (segment.m_From + segment.m_To) * 0.5;
        const SVector inward{-along.m_Y, along.m_X};
        double nearest = std::numeric_limits<double>::infinity();
        for (const CSegments* pOthers : {&first, &second}) {
            for (const SSegment& other : *pOthers) {
                const SVector across = other.m_To - other.m_From;
                const double slope = Turn(inward, across);
                const double ofOther = Turn(other.m_From - middle, inward) / slope;
                const double way = Turn(other.m_From - middle, across) / slope;
                if (slope != 0.0 && ofOther >= 0.0 && ofOther <= 1.0 && way > 0.0) {
                    nearest = std::min(nearest, way);
                }
            }
        }
        const double half = nearest / 2;
        if (std::isfinite(half) && IsInside(middle + inward * half, first) &&
            IsInside(middle + inward * half, second)) {
            longest = std::max(longest, half * std::hypot(along.m_X, along.m_Y));
        }
    }
    return longest;
}

}  // namespace

double DepthOf(const SBorder& first, const SBorder& second) {
    const CSegments a = SegmentsOf(first, first.m_Box.m_Low);
    const CSegments b = SegmentsOf(second, first.m_Box.m_Low);
    const double depth = std::max(DepthOf(a, b), DepthOf(b, a));
    return depth > 0.0 ? depth : std::max(HalfAcross(a, b), HalfAcross(b, a));
}

double DistanceBetween(const SBorder& first, const SBorder& second) {
    const CSegments a = SegmentsOf(first, first.m_Box.m_Low);
    const CSegments b = SegmentsOf(second, first.m_Box.m_Low);
    double least = std::numeric_limits<double>::infinity();
    for (const SSegment& segment : a) {
        least = std::min(least, Distance(segment.m_From, b));
    }
    for (const SSegment& segment : b) {
        least = std::min(least, Distance(segment.m_From, a));
    }
    return least;
}

}  // namespace nestrix::certify
