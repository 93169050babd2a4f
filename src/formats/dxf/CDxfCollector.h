#pragma once

#include <dxflib/dl_creationadapter.h>

#include <optional>
#include <string>
#include <vector>

#include "formats/dxf/CDxfFindings.h"
#include "formats/dxf/PendingCurves.h"
#include "formats/dxf/SDxfContent.h"

namespace nestrix {

/// Hears from dxflib what a file contains, and keeps it as our own values.
///
/// An entity is in its own coordinates, those of the block that it is in. What lies upside down is turned
/// over at once: it is seen from above.
class CDxfCollector : public DL_CreationAdapter {
public:
    CDxfCollector(SDxfContent& content, CDxfFindings& findings, size_t nMostStretches)
        : m_Content(content), m_Findings(findings), m_nStretchesLeft(nMostStretches) {}

    /// Where the entities that follow belong: to the model, or to nothing, until a block begins.
    void EnterModel() { m_pTarget = &m_Content.m_Model; }
    void LeaveModel() { m_pTarget = nullptr; }

    /// Where the record stands that is heard of next.
    void SetLine(int nLine);

    /// Whether the file has more in it than is allowed; the rest need not be told.
    [[nodiscard]] bool IsFull() const { return m_bFull; }

    /// Something that dxflib is not told of.
    void AddUnread(const std::string& kind, const std::string& layer);

    void setVariableInt(const std::string& key, int nValue, int nCode) override;
    void addLayer(const DL_LayerData& data) override;
    void addBlock(const DL_BlockData& data) override;
    void endBlock() override;
    void addLine(const DL_LineData& data) override;
    void addArc(const DL_ArcData& data) override;
    void addCircle(const DL_CircleData& data) override;
    void addEllipse(const DL_EllipseData& data) override;
    void addPolyline(const DL_PolylineData& data) override;
    void addVertex(const DL_VertexData& data) override;
    void addSpline(const DL_SplineData& data) override;
    void addControlPoint(const DL_ControlPointData& data) override;
    void addFitPoint(const DL_FitPointData& data) override;
    void addKnot(const DL_KnotData& data) override;
    void endEntity() override;
    void addInsert(const DL_InsertData& data) override;
    void addText(const DL_TextData& data) override;
    void addAttribute(const DL_AttributeData& data) override;
    void addMTextChunk(const std::string& text) override;
    void addMText(const DL_MTextData& data) override;
    void addXDataApp(const std::string& application) override;
    void addXDataString(int nCode, const std::string& value) override;

private:
    /// From the plane that the entity lies in to that seen from above; nothing for a tilted one.
    [[nodiscard]] std::optional<SMap> FindPlane() const;
    [[nodiscard]] std::string Layer() const;

    /// What is known of the entity but for its path.
    [[nodiscard]] SDrawnPath Described() const;
    void Add(SDrawnPath drawn, SPath path);
    /// An entity whose coordinates are those of its plane.
    void AddInPlane(const char* pKind, const SPath& path);
    void Add(SDrawnText text);
    void Add(CDxfEntity entity);
    void Add(const SEndedCurve& curve);

    SDxfContent& m_Content;
    CDxfFindings& m_Findings;
    size_t m_nStretchesLeft;
    bool m_bFull = false;
    SDxfBlock* m_pTarget = nullptr;  ///< of m_Content
    int m_nLine = 0;
    bool m_bOwnData = false;             ///< what follows was written by WriteDxfPlan
    std::vector<std::string> m_OwnData;  ///< on the present record
    std::optional<CPendingPolyline> m_Polyline;
    std::optional<CPendingSpline> m_Spline;
    std::string m_LongText;  ///< what has come of an MTEXT
};

}  // namespace nestrix
