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

/// Of a border with many edges so many are looked at, evenly chosen: an amount need not cost seconds.
constexpr size_t EDGES_MEASURED_MOST = 256;

/// About the same of the segments that reach into a box.
CSegments Measured(const CSegments& segments, const SBorder& border, const SGridBox& box) {
    CSegments within;
    for (size_t i = 0; i < segments.size(); ++i) {
        if (Meet(BoxOf(border.m_Edges[i]), box)) {
            within.push_back(segments[i]);
        }
    }
    const size_t nStep = within.size() / EDGES_MEASURED_MOST + 1;
    CSegments measured;
    for (size_t i = 0; i < within.size(); i += nStep) {
        measured.push_back(within[i]);
    }
    return measured;
}

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

/// How deep the segments, which are some of one border's, reach into the other.
double DepthOf(const CSegments& segments, const CSegments& other) {
    double depth = 0.0;
    const auto measure = [&](SVector point) {
        if (IsInside(point, other)) {
            depth = std::max(depth, Distance(point, other));
        }
    };
    for (const SSegment& segment : segments) {
        const std::vector<double> meetings = MeetingsOf(segment, other);
        measure(segment.m_From);
        for (size_t i = 0; i + 1 < meetings.size(); ++i) {
            measure(segment.m_From + (segment.m_To - segment.m_From) * ((meetings[i] + meetings[i + 1]) / 2));
        }
    }
    return depth;
}

/// Half of the longest way across both insides, from the middle of any of the segments, which are some of
/// the first, and at right angles to it.
double HalfAcross(const CSegments& segments, const CSegments& first, const CSegments& second) {
    double longest = 0.0;
    for (const SSegment& segment : segments) {
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
    const CSegments ofA = Measured(a, first, second.m_Box);
    const CSegments ofB = Measured(b, second, first.m_Box);
    const double depth = std::max(DepthOf(ofA, b), DepthOf(ofB, a));
    return depth > 0.0 ? depth : std::max(HalfAcross(ofA, a, b), HalfAcross(ofB, b, a));
}

double DistanceBetween(const SBorder& first, const SBorder& second, int64_t nReach) {
    CSegments near[2];
    const SBorder* const borders[] = {&first, &second};
    for (size_t i = 0; i < 2; ++i) {
        const SBorder& border = *borders[i];
        const SGridBox window = Grown(borders[1 - i]->m_Box, nReach);
        const CSegments segments = SegmentsOf(border, first.m_Box.m_Low);
        for (size_t j = 0; j < segments.size(); ++j) {
            if (Meet(BoxOf(border.m_Edges[j]), window)) {
                near[i].push_back(segments[j]);
            }
        }
    }
    double least = std::numeric_limits<double>::infinity();
    for (size_t i = 0; i < 2; ++i) {
        for (const SSegment& segment : near[i]) {
            least =
                std::min({least, Distance(segment.m_From, near[1 - i]), Distance(segment.m_To, near[1 - i])});
        }
    }
    return least;
}

}  // namespace nestrix::certify
