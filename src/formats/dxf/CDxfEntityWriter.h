#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/SDrawing.h"
#include "formats/dxf/CDxfWriter.h"

namespace nestrix {

/// Where entities belong.
struct SDxfEntityStyle {
    std::string m_Layer;
    std::vector<std::string> m_OwnData;  ///< see OwnData.h
};

/// Writes paths and texts as entities of a DXF file; keeps the handles of what it wrote.
class CDxfEntityWriter {
public:
    explicit CDxfEntityWriter(CDxfWriter& writer) : m_Writer(writer) {}

    /// As one entity where there is one for it, otherwise as several, each beginning where another ends.
    void Write(const SPath& path, const SDxfEntityStyle& style);
    void Write(const SDrawnText& text, const SDxfEntityStyle& style);

    /// A text with its middle at a point.
    void WriteLabel(const std::string& text, SPoint middle, double height, const SDxfEntityStyle& style);

    /// Of all entities since the last call.
    [[nodiscard]] std::vector<CDxfWriter::CHandle> TakeHandles() { return std::exchange(m_Handles, {}); }

private:
    /// A stretch with its start.
    struct SLeg {
        SPoint m_Start;
        CStretch m_Stretch;
    };
    using CLegs = std::span<const SLeg>;

    static std::vector<SLeg> LegsOf(const SPath& path);
    CDxfWriter& Begin(std::string_view name, const SDxfEntityStyle& style);
    void End(const SDxfEntityStyle& style);
    bool WriteWholeEllipse(const SPath& path, const SDxfEntityStyle& style);
    void WriteCircle(SPoint centre, double radius, const SDxfEntityStyle& style);
    void WriteEllipse(const SArcTo& arc, bool bWhole, const SDxfEntityStyle& style);
    void WritePolyline(CLegs legs, bool bClosed, const SDxfEntityStyle& style);
    void WriteSpline(CLegs legs, const SDxfEntityStyle& style);

    CDxfWriter& m_Writer;
    std::vector<CDxfWriter::CHandle> m_Handles;
};

}  // namespace nestrix
