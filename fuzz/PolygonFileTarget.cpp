#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "formats/PolygonFile.h"
#include "fuzz/CMemoryFile.h"
#include "fuzz/Require.h"
#include "geom/Geom.h"
#include "tests/reference/Agreement.h"
#include "tests/support/PolygonMaking.h"

using namespace nestrix;

// Any bytes as a polygon file: read, analysed, judged sound or not.

namespace {

using fuzz::CMemoryFile;
using fuzz::Require;

/// The plain analysis takes quadratic time, and larger outlines have nothing that smaller ones have not.
constexpr size_t LARGEST_COMPARED = 40;

bool IsFinite(const mgVector3& position) {
    return std::isfinite(position.x) && std::isfinite(position.y);
}

bool IsFinite(const CPolygon& polygon) {
    return std::all_of(polygon.m_Points.begin(), polygon.m_Points.end(),
                       [](const CPoint& point) { return IsFinite(point.m_Position); }) &&
           IsFinite(polygon.m_BoundingBoxMin) && IsFinite(polygon.m_BoundingBoxMax);
}

CPolygon Read(const CMemoryFile& file) {
    CPolygon polygon;
    Require(polygon.ReadPolygon(file.Path()), "whatever is in it, a regular file is read");
    return polygon;
}

void CheckOutline(const CPolygon& polygon) {
    const int nPoints = static_cast<int>(polygon.m_Points.size());
    Require(polygon.m_Lines.size() == polygon.m_Points.size(), "there are as many edges as vertices");
    for (int i = 0; i < nPoints; ++i) {
        const CPoint& point = polygon.m_Points[static_cast<size_t>(i)];
        const CLine& line = polygon.m_Lines[static_cast<size_t>(i)];
        Require(line.m_nStart == i && line.m_nEnd == (i + 1) % nPoints, "edge i joins vertex i to the next");
        Require(point.m_nNextLine == i && point.m_nPrevLine == (i + nPoints - 1) % nPoints,
                "vertex i joins edge i to the one before");
    }
}

/// Whether a profile holds just those candidates, in their order, that nothing hides by the plain scan.
void CheckProfilePoints(const CPolygon& polygon, const std::vector<CPoint>& profile, bool CPoint::*pCandidate,
                        bool (CPolygon::*pIsHidden)(int) const) {
    auto kept = profile.begin();
    for (size_t i = 0; i < polygon.m_Points.size(); ++i) {
        const CPoint& vertex = polygon.m_Points[i];
        if (vertex.*pCandidate && !(polygon.*pIsHidden)(static_cast<int>(i))) {
            Require(kept != profile.end() && kept->m_nNextLine == static_cast<int>(i),
                    "every exposed candidate is in its profile, in order");
            ++kept;
        }
    }
    Require(kept == profile.end(), "nothing else is in a profile");
}

/// The same for edges: those of the profile's class with an exposed end.
void CheckProfileLines(const CPolygon& polygon, const std::vector<CLine>& profile, bool bFront,
                       bool (CPolygon::*pIsHidden)(int) const) {
    auto kept = profile.begin();
    for (const CLine& line : polygon.m_Lines) {
        if (line.m_bFront == bFront &&
            !((polygon.*pIsHidden)(line.m_nStart) && (polygon.*pIsHidden)(line.m_nEnd))) {
            Require(kept != profile.end() && kept->m_nStart == line.m_nStart,
                    "every exposed edge is in its profile, in order");
            ++kept;
        }
    }
    Require(kept == profile.end(), "no hidden edge is in a profile");
}

void CheckProfiles(const CPolygon& polygon) {
    const auto downward = &CPolygon::DoesPointHitAnyLineDownward;
    const auto upward = &CPolygon::DoesPointHitAnyLineUpward;
    CheckProfilePoints(polygon, polygon.m_FrontPoints, &CPoint::m_bFront, downward);
    CheckProfilePoints(polygon, polygon.m_BackPoints, &CPoint::m_bBack, upward);
    CheckProfileLines(polygon, polygon.m_FrontLines, true, downward);
    CheckProfileLines(polygon, polygon.m_BackLines, false, upward);
    support::Outline outline;
    for (const CPoint& point : polygon.m_Points) {
        outline.push_back(point.m_Position);
    }
    fuzz::RequireNone(reference::FindProfileDifference(outline));
}

void CheckSoundness(const CPolygon& polygon, CMemoryFile& file) {
    const mgVector3& low = polygon.m_BoundingBoxMin;
    const mgVector3& high = polygon.m_BoundingBoxMax;
    Require(polygon.m_Points.size() >= 3, "a sound file has three vertices");
    Require(IsFinite(polygon), "a sound file's numbers are finite");
    Require(low.x <= high.x && low.y <= high.y, "a sound file's box is the right way round");
    const std::string text = support::PolygonFileText(polygon);
    file.Write(text.data(), text.size());
    Require(ReadPolygonFile(file.Path()).m_Fault.empty(), "a sound polygon's own file is sound");
    Require(Read(file) == polygon, "a sound polygon reads back from its own file");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t nBytes) {
    static CMemoryFile s_File;
    s_File.Write(pBytes, nBytes);
    const CPolygon polygon = Read(s_File);
    Require(polygon.m_Points.size() <= nBytes, "a count larger than the file is not believed");
    CheckOutline(polygon);
    if (polygon.m_Points.size() <= LARGEST_COMPARED) {
        CheckProfiles(polygon);
    }
    const CPolygon copy = polygon;
    Require(copy == polygon || !IsFinite(polygon), "a copy equals its source");
    if (ReadPolygonFile(s_File.Path()).m_Fault.empty()) {
        CheckSoundness(polygon, s_File);
    }
    return 0;
}
