#include "formats/dxf/DxfDocument.h"

#include <utility>

#include "formats/dxf/DxfUnits.h"
#include "formats/dxf/OwnData.h"

namespace nestrix {

namespace {

using CHandle = CDxfWriter::CHandle;

// The tables and objects of the frame, by their handles. Those of table entries follow from FIRST_ENTRY on.
enum EFrame : CHandle {
    VPORT_TABLE = 1,
    LTYPE_TABLE,
    LAYER_TABLE,
    STYLE_TABLE,
    VIEW_TABLE,
    UCS_TABLE,
    APPID_TABLE,
    DIMSTYLE_TABLE,
    BLOCK_TABLE,
    ROOT_DICTIONARY,
    GROUP_DICTIONARY,
    MODEL_BLOCK,
    MODEL_END,
    PAPER_BLOCK,
    PAPER_END,
    PAPER_SPACE = 0x1E,
    FIRST_ENTRY = 0x20
};
static_assert(MODEL_SPACE > PAPER_SPACE && MODEL_SPACE < FIRST_ENTRY);

constexpr CHandle FIRST_ENTITY = 0x100;

/// Writes the tables one after another.
class CTables {
public:
    explicit CTables(CDxfWriter& writer) : m_Writer(writer) {}

    void Begin(std::string_view name, CHandle table, size_t nEntries) {
        m_Table = table;
        m_Name = name;
        m_Writer.Text(0, "TABLE").Text(2, name).Handle(5, table).Whole(330, 0);
        m_Writer.Text(100, "AcDbSymbolTable").Whole(70, static_cast<int64_t>(nEntries));
    }

    CDxfWriter& Entry(std::string_view kind, std::string_view name) {
        return Entry(kind, name, m_NextEntry++);
    }

    CDxfWriter& Entry(std::string_view kind, std::string_view name, CHandle handle) {
        // Dimension styles have another code for it, since 5 means something else in them.
        m_Writer.Text(0, m_Name).Handle(m_Table == DIMSTYLE_TABLE ? 105 : 5, handle).Handle(330, m_Table);
        return m_Writer.Text(100, "AcDbSymbolTableRecord").Text(100, kind).Text(2, name);
    }

    void End() { m_Writer.Text(0, "ENDTAB"); }

    void Empty(std::string_view name, CHandle table) {
        Begin(name, table, 0);
        End();
    }

private:
    CDxfWriter& m_Writer;
    CHandle m_Table = 0;
    std::string_view m_Name;
    CHandle m_NextEntry = FIRST_ENTRY;
};

void WriteHeader(CDxfWriter& writer, std::optional<EUnit> unit, const SDxfExtent& extent, CHandle seed) {
    const SDxfUnitCode code = CodeOf(unit);
    writer.Text(999, "Nestrix");
    writer.BeginSection("HEADER");
    writer.Text(9, "$ACADVER").Text(1, "AC1015");
    writer.Text(9, "$DWGCODEPAGE").Text(3, "ANSI_1252");
    writer.Text(9, "$INSBASE").Point(10, {});
    writer.Text(9, "$EXTMIN").Point(10, extent.m_Low);
    writer.Text(9, "$EXTMAX").Point(10, extent.m_High);
    writer.Text(9, "$INSUNITS").Whole(70, code.m_nCode);
    writer.Text(9, "$MEASUREMENT").Whole(70, code.m_bMetric ? 1 : 0);
    writer.Text(9, "$HANDSEED").Handle(5, seed);
    writer.EndSection();
    writer.BeginSection("CLASSES");
    writer.EndSection();
}

void WriteView(CTables& tables, const SDxfExtent& extent) {
    const double width = extent.m_High.m_X - extent.m_Low.m_X;
    const double height = extent.m_High.m_Y - extent.m_Low.m_Y;
    const SPoint middle{extent.m_Low.m_X + width / 2.0, extent.m_Low.m_Y + height / 2.0};
    tables.Begin("VPORT", VPORT_TABLE, 1);
    CDxfWriter& entry = tables.Entry("AcDbViewportTableRecord", "*Active").Whole(70, 0);
    entry.FlatPoint(10, {0.0, 0.0}).FlatPoint(11, {1.0, 1.0}).FlatPoint(12, middle);
    entry.FlatPoint(13, {}).FlatPoint(14, {10.0, 10.0}).FlatPoint(15, {10.0, 10.0});
    entry.Point(16, {}).Real(36, 1.0).Point(17, {});
    entry.Real(40, height > 0.0 ? 1.1 * height : 1.0).Real(41, 1.5).Real(42, 50.0);
    tables.End();
}

void WriteLineTypes(CTables& tables) {
    tables.Begin("LTYPE", LTYPE_TABLE, 3);
    for (const char* pName : {"ByBlock", "ByLayer", "Continuous"}) {
        tables.Entry("AcDbLinetypeTableRecord", pName)
            .Whole(70, 0)
            .Text(3, "")
            .Whole(72, 65)
            .Whole(73, 0)
            .Real(40, 0.0);
    }
    tables.End();
}

void WriteLayers(CTables& tables, std::span<const SDxfLayerStyle> layers) {
    tables.Begin("LAYER", LAYER_TABLE, layers.size() + 1);
    const auto write = [&tables](const SDxfLayerStyle& layer) {
        tables.Entry("AcDbLayerTableRecord", layer.m_Name)
            .Whole(70, 0)
            .Whole(62, layer.m_nColour)
            .Text(6, "Continuous");
    };
    write({"0"});
    for (const SDxfLayerStyle& layer : layers) {
        write(layer);
    }
    tables.End();
}

void WriteTables(CDxfWriter& writer, const SDxfExtent& extent, std::span<const SDxfLayerStyle> layers) {
    writer.BeginSection("TABLES");
    CTables tables(writer);
    WriteView(tables, extent);
    WriteLineTypes(tables);
    WriteLayers(tables, layers);
    tables.Begin("STYLE", STYLE_TABLE, 1);
    CDxfWriter& style = tables.Entry("AcDbTextStyleTableRecord", "Standard").Whole(70, 0).Real(40, 0.0);
    style.Real(41, 1.0).Real(50, 0.0).Whole(71, 0).Real(42, 1.0).Text(3, "txt").Text(4, "");
    tables.End();
    tables.Empty("VIEW", VIEW_TABLE);
    tables.Empty("UCS", UCS_TABLE);
    tables.Begin("APPID", APPID_TABLE, 2);
    tables.Entry("AcDbRegAppTableRecord", "ACAD").Whole(70, 0);
    tables.Entry("AcDbRegAppTableRecord", own_data::APPLICATION).Whole(70, 0);
    tables.End();
    tables.Begin("DIMSTYLE", DIMSTYLE_TABLE, 1);
    writer.Text(100, "AcDbDimStyleTable");
    tables.Entry("AcDbDimStyleTableRecord", "Standard").Whole(70, 0);
    tables.End();
    tables.Begin("BLOCK_RECORD", BLOCK_TABLE, 2);
    tables.Entry("AcDbBlockTableRecord", "*Model_Space", MODEL_SPACE);
    tables.Entry("AcDbBlockTableRecord", "*Paper_Space", PAPER_SPACE);
    tables.End();
    writer.EndSection();
}

void WriteBlock(CDxfWriter& writer, std::string_view name, CHandle owner, CHandle begin, CHandle end) {
    const auto describe = [&](std::string_view what, CHandle handle, std::string_view kind) -> CDxfWriter& {
        writer.Text(0, what).Handle(5, handle).Handle(330, owner).Text(100, "AcDbEntity");
        if (owner == PAPER_SPACE) {
            writer.Whole(67, 1);
        }
        return writer.Text(8, "0").Text(100, kind);
    };
    describe("BLOCK", begin, "AcDbBlockBegin")
        .Text(2, name)
        .Whole(70, 0)
        .Point(10, {})
        .Text(3, name)
        .Text(1, "");
    describe("ENDBLK", end, "AcDbBlockEnd");
}

void WriteBlocks(CDxfWriter& writer) {
    writer.BeginSection("BLOCKS");
    WriteBlock(writer, "*Model_Space", MODEL_SPACE, MODEL_BLOCK, MODEL_END);
    WriteBlock(writer, "*Paper_Space", PAPER_SPACE, PAPER_BLOCK, PAPER_END);
    writer.EndSection();
}

void BeginDictionary(CDxfWriter& writer, CHandle handle, CHandle owner) {
    writer.Text(0, "DICTIONARY")
        .Handle(5, handle)
        .Handle(330, owner)
        .Text(100, "AcDbDictionary")
        .Whole(281, 1);
}

void WriteObjects(CDxfWriter& writer, std::span<const SDxfEntityGroup> groups, CHandle firstGroup) {
    writer.BeginSection("OBJECTS");
    BeginDictionary(writer, ROOT_DICTIONARY, 0);
    writer.Text(3, "ACAD_GROUP").Handle(350, GROUP_DICTIONARY);
    BeginDictionary(writer, GROUP_DICTIONARY, ROOT_DICTIONARY);
    CHandle handle = firstGroup;
    for (const SDxfEntityGroup& group : groups) {
        writer.Text(3, group.m_Name).Handle(350, handle++);
    }
    handle = firstGroup;
    for (const SDxfEntityGroup& group : groups) {
        writer.Text(0, "GROUP").Handle(5, handle++).Handle(330, GROUP_DICTIONARY).Text(100, "AcDbGroup");
        writer.Text(300, group.m_Description).Whole(70, 0).Whole(71, 1);
        for (const CHandle entity : group.m_Entities) {
            writer.Handle(340, entity);
        }
    }
    writer.EndSection();
}

}  // namespace

CDxfWriter DxfEntityWriter() {
    return CDxfWriter(FIRST_ENTITY);
}

std::string DxfDocument(const SDxfParts& parts, CDxfWriter& entities) {
    const CHandle firstGroup = entities.NextHandle();
    CDxfWriter writer;
    WriteHeader(writer, parts.m_Unit, parts.m_Extent, firstGroup + parts.m_Groups.size());
    WriteTables(writer, parts.m_Extent, parts.m_Layers);
    WriteBlocks(writer);
    writer.BeginSection("ENTITIES");
    writer.Append(entities.Take());
    writer.EndSection();
    WriteObjects(writer, parts.m_Groups, firstGroup);
    writer.Text(0, "EOF");
    return writer.Take();
}

}  // namespace nestrix
