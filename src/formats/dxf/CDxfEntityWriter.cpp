#include "formats/dxf/CDxfEntityWriter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "formats/dxf/DxfArcs.h"
#include "formats/dxf/DxfDocument.h"
#include "formats/dxf/DxfText.h"
#include "formats/dxf/EllipseAxes.h"
#include "formats/dxf/OwnData.h"
#include "formats/dxf/TextPlaces.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

constexpr double HALF_TURN = std::numbers::pi;

/// The format does not know flatter ones.
constexpr double LEAST_RATIO = 1e-6;

/// The longest string that extended data may have is 255 bytes.
constexpr size_t LONGEST_STRING = 240;

constexpr int BACKWARDS = 2;
constexpr int CENTRED = 1;
constexpr int MIDDLE = 2;

/// What a stretch is written as; neighbours of the same kind together, but for ellipses.
enum class EKind { POLYLINE, ELLIPSE, SPLINE };

EKind KindOf(const CStretch& stretch) {
    if (const auto* const pArc = std::get_if<SArcTo>(&stretch)) {
        return IsCircular(*pArc) || WithAxes(*pArc).m_Ratio < LEAST_RATIO ? EKind::POLYLINE : EKind::ELLIPSE;
    }
    return std::holds_alternative<SCurveTo>(stretch) ? EKind::SPLINE : EKind::POLYLINE;
}

/// Appends the start of the stretch, with a bulge for an arc; the half of a circle at most at once, since
/// bulges grow without end.
void AddBulges(SPoint start, const CStretch& stretch, std::vector<SBulgeVertex>& vertices) {
    const auto* const pArc = std::get_if<SArcTo>(&stretch);
    if (pArc == nullptr || !IsCircular(*pArc)) {
        vertices.push_back({start, 0.0});
        return;
    }
    const int nParts = std::abs(pArc->m_Sweep) > HALF_TURN ? 2 : 1;
    const double bulge = std::tan(SeenSweep(*pArc) / nParts / 4.0);
    vertices.push_back({start, bulge});
    if (nParts == 2) {
        vertices.push_back({PointAt(*pArc, pArc->m_From + pArc->m_Sweep / 2.0), bulge});
    }
}

}  // namespace

void CDxfEntityWriter::Write(const SPath& path, const SDxfEntityStyle& style) {
    if (path.m_Stretches.empty() || WriteWholeEllipse(path, style)) {
        return;
    }
    const std::vector<SLeg> legs = LegsOf(path);
    for (auto begin = legs.begin(); begin != legs.end();) {
        const EKind eKind = KindOf(begin->m_Stretch);
        auto end = std::find_if(begin, legs.end(),
                                [eKind](const SLeg& leg) { return KindOf(leg.m_Stretch) != eKind; });
        if (eKind == EKind::ELLIPSE) {
            end = begin + 1;
            WriteEllipse(std::get<SArcTo>(begin->m_Stretch), false, style);
        } else if (eKind == EKind::SPLINE) {
            WriteSpline({begin, end}, style);
        } else {
            const bool bWhole = begin == legs.begin() && end == legs.end();
            WritePolyline({begin, end}, bWhole && path.m_bClosed, style);
        }
        begin = end;
    }
}

/// A closed path begins where one kind of entity ends: in the middle of one it would be two.
std::vector<CDxfEntityWriter::SLeg> CDxfEntityWriter::LegsOf(const SPath& path) {
    std::vector<SLeg> legs;
    SPoint start = path.m_Start;
    for (const CStretch& stretch : path.m_Stretches) {
        legs.push_back({start, stretch});
        start = EndOf(stretch);
    }
    if (path.m_bClosed && start != path.m_Start) {
        legs.push_back({start, SLineTo{path.m_Start}});
    }
    if (path.m_bClosed && KindOf(legs.front().m_Stretch) == KindOf(legs.back().m_Stretch)) {
        const EKind eKind = KindOf(legs.front().m_Stretch);
        const auto change = std::find_if(legs.begin(), legs.end(),
                                         [eKind](const SLeg& leg) { return KindOf(leg.m_Stretch) != eKind; });
        std::rotate(legs.begin(), change, legs.end());
    }
    return legs;
}

void CDxfEntityWriter::Write(const SDrawnText& text, const SDxfEntityStyle& style) {
    Begin("TEXT", style).Text(100, "AcDbText").Point(10, text.m_At).Real(40, text.m_Height);
    m_Writer.Text(1, EncodedText(text.m_Text)).Real(50, text.m_Degrees);
    m_Writer.Whole(71, text.m_bMirrored ? BACKWARDS : 0).Text(100, "AcDbText");
    End(style);
}

void CDxfEntityWriter::WriteLabel(const std::string& text, SPoint middle, double height,
                                  const SDxfEntityStyle& style) {
    const SPoint begin = middle - SPoint{EstimatedWidth(text), 1.0} * (height / 2.0);
    Begin("TEXT", style).Text(100, "AcDbText").Point(10, begin).Real(40, height).Text(1, EncodedText(text));
    m_Writer.Whole(72, CENTRED).Point(11, middle).Text(100, "AcDbText").Whole(73, MIDDLE);
    End(style);
}

CDxfWriter& CDxfEntityWriter::Begin(std::string_view name, const SDxfEntityStyle& style) {
    m_Handles.push_back(m_Writer.NewHandle());
    m_Writer.Text(0, name).Handle(5, m_Handles.back()).Handle(330, MODEL_SPACE);
    return m_Writer.Text(100, "AcDbEntity").Text(8, style.m_Layer);
}

void CDxfEntityWriter::End(const SDxfEntityStyle& style) {
    if (style.m_OwnData.empty()) {
        return;
    }
    m_Writer.Text(1001, own_data::APPLICATION);
    for (const std::string& value : style.m_OwnData) {
        const std::string encoded = EncodedText(value);
        for (size_t i = 0; i < encoded.size(); i += LONGEST_STRING) {
            m_Writer.Text(1000, std::string_view(encoded).substr(i, LONGEST_STRING));
        }
    }
}

/// One entity for what is drawn with several arcs of one ellipse, such as two halves of a circle.
bool CDxfEntityWriter::WriteWholeEllipse(const SPath& path, const SDxfEntityStyle& style) {
    const auto* const pFirst = std::get_if<SArcTo>(&path.m_Stretches.front());
    if (pFirst == nullptr || !path.m_bClosed) {
        return false;
    }
    double sweep = 0.0;
    for (const CStretch& stretch : path.m_Stretches) {
        const auto* const pArc = std::get_if<SArcTo>(&stretch);
        if (pArc == nullptr || !AreOfOneEllipse(*pFirst, *pArc)) {
            return false;
        }
        sweep += std::abs(pArc->m_Sweep);
    }
    constexpr double ROUNDING = 1e-9;
    if (std::abs(sweep - 2.0 * HALF_TURN) > ROUNDING || WithAxes(*pFirst).m_Ratio < LEAST_RATIO) {
        return false;
    }
    if (IsCircular(*pFirst)) {
        WriteCircle(pFirst->m_Centre, Length(pFirst->m_FirstRadius), style);
    } else {
        WriteEllipse(*pFirst, true, style);
    }
    return true;
}

void CDxfEntityWriter::WriteCircle(SPoint centre, double radius, const SDxfEntityStyle& style) {
    Begin("CIRCLE", style).Text(100, "AcDbCircle").Point(10, centre).Real(40, radius);
    End(style);
}

void CDxfEntityWriter::WriteEllipse(const SArcTo& arc, bool bWhole, const SDxfEntityStyle& style) {
    const SEllipseArc ellipse = WithAxes(arc);
    Begin("ELLIPSE", style)
        .Text(100, "AcDbEllipse")
        .Point(10, ellipse.m_Centre)
        .Point(11, ellipse.m_MajorAxis);
    m_Writer.Real(40, ellipse.m_Ratio);
    m_Writer.Real(41, bWhole ? 0.0 : ellipse.m_From).Real(42, bWhole ? 2.0 * HALF_TURN : ellipse.m_To);
    End(style);
}

void CDxfEntityWriter::WritePolyline(CLegs legs, bool bClosed, const SDxfEntityStyle& style) {
    std::vector<SBulgeVertex> vertices;
    for (const SLeg& leg : legs) {
        AddBulges(leg.m_Start, leg.m_Stretch, vertices);
    }
    // Of one point only, nobody would know that it is closed.
    const bool bAsClosed = bClosed && vertices.size() > 1;
    if (!bAsClosed) {
        vertices.push_back({EndOf(legs.back().m_Stretch), 0.0});
    }
    Begin("LWPOLYLINE", style).Text(100, "AcDbPolyline");
    m_Writer.Whole(90, static_cast<int64_t>(vertices.size())).Whole(70, bAsClosed ? 1 : 0);
    for (const SBulgeVertex& vertex : vertices) {
        m_Writer.FlatPoint(10, vertex.m_At);
        if (vertex.m_Bulge != 0.0) {
            m_Writer.Real(42, vertex.m_Bulge);
        }
    }
    End(style);
}

/// A cubic spline whose every third control point it runs through.
void CDxfEntityWriter::WriteSpline(CLegs legs, const SDxfEntityStyle& style) {
    constexpr int PLANAR = 8;
    const auto nLegs = static_cast<int64_t>(legs.size());
    Begin("SPLINE", style).Text(100, "AcDbSpline").Whole(70, PLANAR).Whole(71, 3);
    m_Writer.Whole(72, 3 * nLegs + 5).Whole(73, 3 * nLegs + 1).Whole(74, 0);
    m_Writer.Real(40, 0.0);
    for (int64_t i = 0; i <= nLegs; ++i) {
        for (int nTimes = 0; nTimes < 3; ++nTimes) {
            m_Writer.Real(40, static_cast<double>(i));
        }
    }
    m_Writer.Real(40, static_cast<double>(nLegs)).Point(10, legs.front().m_Start);
    for (const SLeg& leg : legs) {
        const auto& curve = std::get<SCurveTo>(leg.m_Stretch);
        m_Writer.Point(10, curve.m_FirstControl).Point(10, curve.m_SecondControl).Point(10, curve.m_End);
    }
    End(style);
}

}  // namespace nestrix
