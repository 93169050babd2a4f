#include "formats/json/Instance.h"

#include <algorithm>
#include <filesystem>
#include <limits>

#include "formats/json/CMemberReader.h"
#include "formats/json/ReadJsonFile.h"

namespace nestrix {

namespace {

using EKind = CJsonValue::EKind;

constexpr size_t VERTICES_LEAST = 3;

// The published strip is filled from left to right, ours from below.

SPoint Stood(const SPoint& lying) {
    return {lying.m_Y, -lying.m_X};
}

/// Published rings end where they begin.
CRing Stood(CRing lying) {
    if (lying.size() > 1 && lying.front() == lying.back()) {
        lying.pop_back();
    }
    std::transform(lying.begin(), lying.end(), lying.begin(),
                   [](const SPoint& point) { return Stood(point); });
    return lying;
}

/// A member that is there; in published files null is the same as nothing.
std::optional<CJsonValue> FindValue(CMemberReader& members, std::string_view name) {
    const std::optional<CJsonValue> value = members.Find(name);
    return value && value->Kind() != EKind::NOTHING ? value : std::nullopt;
}

CRing ReadOutline(const CJsonValue& value, CJsonFindings& findings) {
    CRing ring = Stood(json::ReadRing(value, findings).value_or(CRing()));
    if (value.Kind() == EKind::ARRAY && ring.size() < VERTICES_LEAST) {
        findings.Miss(value, "an outline has three points at least");
    }
    return ring;
}

/// An outline with holes.
SShape ReadPolygon(const CJsonValue& value, CJsonFindings& findings) {
    CMemberReader members(value, findings);
    SShape shape;
    if (const std::optional<CJsonValue> outer = members.Demand("outer")) {
        shape.m_Outline = ReadOutline(*outer, findings);
    }
    if (const std::optional<CJsonValue> inner = FindValue(members, "inner")) {
        for (CRing& ring : json::ReadRings(*inner, findings).value_or(std::vector<CRing>())) {
            shape.m_Holes.push_back(Stood(std::move(ring)));
        }
    }
    return shape;
}

SShape ReadShape(const CJsonValue& value, CJsonFindings& findings) {
    enum class EType { SIMPLE_POLYGON, POLYGON };
    constexpr CNamedValues<EType, 2> TYPE_NAMES{
        {{EType::SIMPLE_POLYGON, "simple_polygon"}, {EType::POLYGON, "polygon"}}};
    CMemberReader members(value, findings);
    const std::optional<CJsonValue> type = members.Demand("type");
    const std::optional<CJsonValue> data = members.Demand("data");
    const std::optional<EType> known = type ? json::ReadNamed(*type, TYPE_NAMES, findings) : std::nullopt;
    if (!known || !data) {
        return {};
    }
    return known == EType::POLYGON ? ReadPolygon(*data, findings) : SShape{ReadOutline(*data, findings), {}};
}

std::string ReadName(CMemberReader& members, CJsonFindings& findings) {
    if (const std::optional<CJsonValue> name = FindValue(members, "name")) {
        return json::ReadText(*name, findings).value_or("");
    }
    const std::optional<CJsonValue> id = members.Demand("id");
    if (!id) {
        return "";
    }
    if (id->Kind() == EKind::TEXT) {
        return std::string(id->Text());
    }
    const auto number = json::ReadWhole(*id, 0, std::numeric_limits<uint64_t>::max(), findings);
    return std::to_string(number.value_or(0));
}

/// Without a list an item may be turned by any angle; with an empty one by none.
STurns ReadOrientations(CMemberReader& members, CJsonFindings& findings) {
    const std::optional<CJsonValue> value = FindValue(members, "allowed_orientations");
    if (!value) {
        return {true, {}};
    }
    STurns turns = json::ReadTurns(*value, findings).value_or(STurns());
    if (!turns.m_bAny && turns.m_Degrees.empty()) {
        turns.m_Degrees = {0.0};
    }
    return turns;
}

SPiece ReadItem(CMemberReader& members, CJsonFindings& findings) {
    SPiece piece;
    piece.m_Name = ReadName(members, findings);
    piece.m_Turns = ReadOrientations(members, findings);
    if (const std::optional<CJsonValue> demand = members.Demand("demand")) {
        constexpr uint64_t DEMAND_MOST = std::numeric_limits<int>::max();
        piece.m_nQuantity = static_cast<int>(json::ReadWhole(*demand, 0, DEMAND_MOST, findings).value_or(1));
    }
    if (const std::optional<CJsonValue> shape = members.Demand("shape")) {
        piece.m_Shape = ReadShape(*shape, findings);
    }
    return piece;
}

std::string ReadDrawing(CMemberReader& members, CJsonFindings& findings) {
    const std::optional<CJsonValue> drawing = FindValue(members, "dxf");
    return drawing ? json::ReadText(*drawing, findings).value_or("") : "";
}

void ReadItems(const CJsonValue& items, SInstance& instance, CJsonFindings& findings) {
    if (items.Kind() != EKind::ARRAY) {
        findings.Refuse(items, "is not a list");
    }
    for (const CJsonValue& item : items.Elements()) {
        CMemberReader members(item, findings);
        instance.m_Pieces.push_back(ReadItem(members, findings));
        instance.m_Drawings.push_back(ReadDrawing(members, findings));
    }
}

SInstance Read(const CJsonValue& root, const std::string& path, CJsonFindings& findings) {
    CMemberReader members(root, findings);
    SInstance instance;
    instance.m_Name = members.Text("name").value_or(std::filesystem::path(path).stem().string());
    if (const std::optional<CJsonValue> height = members.Demand("strip_height")) {
        instance.m_Strip.m_Width = json::ReadNumber(*height, json::WIDTH_KIND, findings).value_or(0.0);
    }
    if (const std::optional<CJsonValue> items = members.Demand("items")) {
        ReadItems(*items, instance, findings);
    }
    return instance;
}

}  // namespace

SReading<SInstance> ReadInstance(const std::string& path) {
    return ReadJsonFile<SInstance>(path, [&path](const CJsonValue& root, CJsonFindings& findings) {
        return Read(root, path, findings);
    });
}

}  // namespace nestrix
