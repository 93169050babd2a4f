#include "formats/dxf/CDxfCollector.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

#include "formats/dxf/DxfText.h"
#include "formats/dxf/OwnData.h"
#include "formats/dxf/TextEntities.h"
#include "packing/SGrid.h"

namespace nestrix {

namespace {

constexpr int LAYER_FROZEN = 1;
constexpr int BLOCK_ELSEWHERE = 4;
constexpr int POLYLINE_MESHES = 16 | 64;

/// A direction this near to straight up or down was meant to be it.
constexpr double STRAIGHT = 1e-6;

constexpr SMap TURNED_OVER{-1.0, 0.0, 0.0, 1.0, 0.0, 0.0};

SMap Turned(double degrees, SPoint to) {
    const SDirection direction = DirectionOf(degrees);
    return {direction.m_Cosine, -direction.m_Sine, direction.m_Sine, direction.m_Cosine, to.m_X, to.m_Y};
}

}  // namespace

void CDxfCollector::SetLine(int nLine) {
    m_nLine = nLine;
    m_bOwnData = false;
    m_OwnData.clear();
}

void CDxfCollector::AddUnread(const std::string& kind, const std::string& layer) {
    Add(CDxfEntity(SDxfUnread{kind, DecodedName(layer), m_nLine}));
}

void CDxfCollector::setVariableInt(const std::string& key, int nValue, int /*nCode*/) {
    if (key == "$INSUNITS") {
        m_Content.m_nUnitCode = nValue;
    }
}

void CDxfCollector::addLayer(const DL_LayerData& data) {
    m_Content.m_Layers[Folded(DecodedName(data.name))] = {(data.flags & LAYER_FROZEN) != 0,
                                                          data.off || attributes.getColor() < 0};
}

void CDxfCollector::addBlock(const DL_BlockData& data) {
    const std::string name = DecodedName(data.name);
    const auto [position, bNew] = m_Content.m_Blocks.try_emplace(Folded(name));
    m_pTarget = bNew ? &position->second : nullptr;
    if (bNew) {
        *m_pTarget = {name, {data.bpx, data.bpy}, (data.flags & BLOCK_ELSEWHERE) != 0, {}};
    } else {
        m_Findings.AddOnce(SFinding::ESeverity::ODD, m_nLine,
                           "the block " + name + " is there twice; the first one is taken");
    }
}

void CDxfCollector::endBlock() {
    m_pTarget = nullptr;
}

void CDxfCollector::addLine(const DL_LineData& data) {
    Add(Described(), SPath{{data.x1, data.y1}, {SLineTo{{data.x2, data.y2}}}, false});
}

void CDxfCollector::addArc(const DL_ArcData& data) {
    AddInPlane("ARC", ArcPath({data.cx, data.cy}, data.radius, data.angle1, data.angle2));
}

void CDxfCollector::addCircle(const DL_CircleData& data) {
    AddInPlane("CIRCLE", CirclePath({data.cx, data.cy}, data.radius));
}

/// Centre and axis are those of the drawing, not of the plane; only the turn is as seen from above the plane.
void CDxfCollector::addEllipse(const DL_EllipseData& data) {
    const auto plane = FindPlane();
    if (!plane) {
        AddUnread("tilted ELLIPSE", attributes.getLayer());
        return;
    }
    const double turn = plane->m_XX * data.ratio;
    Add(Described(), EllipsePath({data.cx, data.cy}, {data.mx, data.my}, {-turn * data.my, turn * data.mx},
                                 data.angle1, data.angle2));
}

void CDxfCollector::addPolyline(const DL_PolylineData& data) {
    const auto plane = FindPlane();
    m_Polyline.reset();
    if ((data.flags & POLYLINE_MESHES) != 0) {
        AddUnread("mesh of POLYLINE", attributes.getLayer());
    } else if (!plane) {
        AddUnread("tilted POLYLINE", attributes.getLayer());
    } else {
        m_Polyline.emplace(Described(), *plane, data);
    }
}

void CDxfCollector::addVertex(const DL_VertexData& data) {
    if (m_Polyline) {
        m_Polyline->Add(data);
    }
}

void CDxfCollector::addSpline(const DL_SplineData& data) {
    m_Spline.emplace(Described(), data);
}

void CDxfCollector::addControlPoint(const DL_ControlPointData& data) {
    if (m_Spline) {
        m_Spline->Add(data);
    }
}

void CDxfCollector::addFitPoint(const DL_FitPointData& data) {
    if (m_Spline) {
        m_Spline->Add(data);
    }
}

void CDxfCollector::addKnot(const DL_KnotData& data) {
    if (m_Spline) {
        m_Spline->Add(data);
    }
}

void CDxfCollector::endEntity() {
    if (const auto polyline = std::exchange(m_Polyline, std::nullopt)) {
        Add(polyline->End());
    }
    if (const auto spline = std::exchange(m_Spline, std::nullopt)) {
        Add(spline->End());
    }
}

void CDxfCollector::Add(const SEndedCurve& curve) {
    if (curve.m_Path) {
        Add(curve.m_Drawn, *curve.m_Path);
    } else {
        m_Findings.Add(curve.m_eSeverity, curve.m_Drawn.m_nLine, curve.m_Message);
    }
}

void CDxfCollector::addInsert(const DL_InsertData& data) {
    const auto plane = FindPlane();
    if (!plane) {
        AddUnread("tilted INSERT", attributes.getLayer());
        return;
    }
    const SMap turned = Turned(data.angle, {});
    const SMap placed = *plane * Turned(data.angle, {data.ipx, data.ipy});
    SDxfInsert insert;
    insert.m_Block = DecodedName(data.name);
    insert.m_Map = placed * SMap{data.sx, 0.0, 0.0, data.sy, 0.0, 0.0};
    insert.m_nColumns = std::max(1, data.cols);
    insert.m_nRows = std::max(1, data.rows);
    insert.m_ColumnStep = (*plane * turned)(SPoint{data.colSp, 0.0});
    insert.m_RowStep = (*plane * turned)(SPoint{0.0, data.rowSp});
    insert.m_Layer = Layer();
    insert.m_nLine = m_nLine;
    Add(CDxfEntity(std::move(insert)));
}

void CDxfCollector::addText(const DL_TextData& data) {
    const auto plane = FindPlane();
    if (!plane) {
        AddUnread("tilted TEXT", attributes.getLayer());
        return;
    }
    Add((*plane)(TextOf(data)));
}

void CDxfCollector::addAttribute(const DL_AttributeData& data) {
    addText(data);
}

void CDxfCollector::addMTextChunk(const std::string& text) {
    m_LongText += text;
}

void CDxfCollector::addMText(const DL_MTextData& data) {
    for (SDrawnText& line : LinesOf(data, std::exchange(m_LongText, {}))) {
        Add(std::move(line));
    }
}

void CDxfCollector::addXDataApp(const std::string& application) {
    m_bOwnData = application == own_data::APPLICATION;
}

void CDxfCollector::addXDataString(int /*nCode*/, const std::string& value) {
    if (m_bOwnData) {
        m_OwnData.push_back(value);
    }
}

std::optional<SMap> CDxfCollector::FindPlane() const {
    std::array<double, 3> up{};
    extrusion->getDirection(up.data());
    if (std::hypot(up[0], up[1]) > STRAIGHT * std::abs(up[2]) || up[2] == 0.0) {
        return std::nullopt;
    }
    return up[2] > 0.0 ? SMap() : TURNED_OVER;
}

std::string CDxfCollector::Layer() const {
    return DecodedName(attributes.getLayer());
}

SDrawnPath CDxfCollector::Described() const {
    SDrawnPath drawn;
    drawn.m_Layer = Layer();
    drawn.m_nLine = m_nLine;
    if (!m_OwnData.empty() && m_OwnData[0] == own_data::PIECE) {
        drawn.m_Name = DecodedName(std::accumulate(m_OwnData.begin() + 1, m_OwnData.end(), std::string()));
    }
    return drawn;
}

void CDxfCollector::Add(SDrawnPath drawn, SPath path) {
    m_bFull = m_bFull || path.m_Stretches.size() > m_nStretchesLeft;
    if (!m_bFull) {
        m_nStretchesLeft -= path.m_Stretches.size();
        drawn.m_Path = std::move(path);
        Add(CDxfEntity(std::move(drawn)));
    }
}

void CDxfCollector::AddInPlane(const char* pKind, const SPath& path) {
    if (const auto plane = FindPlane()) {
        Add(Described(), (*plane)(path));
    } else {
        AddUnread(std::string("tilted ") + pKind, attributes.getLayer());
    }
}

void CDxfCollector::Add(SDrawnText text) {
    if (text.m_Text.find_first_not_of(' ') == std::string::npos) {
        return;
    }
    text.m_Layer = Layer();
    text.m_nLine = m_nLine;
    Add(CDxfEntity(std::move(text)));
}

void CDxfCollector::Add(CDxfEntity entity) {
    if (!m_OwnData.empty() && m_OwnData[0] == own_data::GUIDE) {
        m_Findings.AddOnce(SFinding::ESeverity::NOTE, m_nLine,
                           "the strip and the labels of a packing are left out");
    } else if (m_pTarget != nullptr) {
        m_pTarget->m_Entities.push_back(std::move(entity));
    }
}

}  // namespace nestrix
