#include <algorithm>

#include "formats/json/CJsonWriter.h"
#include "formats/json/Instance.h"
#include "formats/json/PieceWriting.h"

namespace nestrix {

namespace {

using ELayout = CJsonWriter::ELayout;

/// Back from the standing strip, which is filled from below, to the one that is filled from left to right.
SPoint Lain(const SPoint& standing) {
    return {-standing.m_Y, standing.m_X};
}

/// Published rings end where they begin.
CRing Lain(CRing standing) {
    std::transform(standing.begin(), standing.end(), standing.begin(),
                   [](const SPoint& point) { return Lain(point); });
    if (!standing.empty()) {
        standing.push_back(standing.front());
    }
    return standing;
}

/// Whether the names can stand as the numbers that items are told apart by.
bool AreNumbers(const std::vector<SPiece>& pieces) {
    std::vector<std::string> names;
    for (const SPiece& piece : pieces) {
        const std::string& name = piece.m_Name;
        const bool bDigits = !name.empty() && name.find_first_not_of("0123456789") == std::string::npos;
        constexpr size_t DIGITS_MOST = 18;
        if (!bDigits || name.size() > DIGITS_MOST || (name.size() > 1 && name.front() == '0')) {
            return false;
        }
        names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return std::adjacent_find(names.begin(), names.end()) == names.end();
}

void WriteShape(CJsonWriter& writer, const SShape& shape) {
    writer.BeginObject();
    writer.Name("type").Text(shape.m_Holes.empty() ? "simple_polygon" : "polygon");
    writer.Name("data");
    if (shape.m_Holes.empty()) {
        json::WriteRing(writer, Lain(shape.m_Outline));
    } else {
        writer.BeginObject();
        json::WriteRing(writer.Name("outer"), Lain(shape.m_Outline));
        writer.Name("inner").BeginArray();
        for (const CRing& hole : shape.m_Holes) {
            json::WriteRing(writer, Lain(hole));
        }
        writer.EndArray();
        writer.EndObject();
    }
    writer.EndObject();
}

void WriteOrientations(CJsonWriter& writer, const STurns& turns) {
    if (turns.m_bAny) {
        return;
    }
    writer.Name("allowed_orientations").BeginArray(ELayout::ONE_LINE);
    for (const double degrees : turns.m_Degrees) {
        writer.Number(degrees);
    }
    writer.EndArray();
}

}  // namespace

std::string WriteInstance(const SInstance& instance) {
    const bool bNumbers = AreNumbers(instance.m_Pieces);
    CJsonWriter writer;
    writer.BeginObject();
    writer.Name("name").Text(instance.m_Name);
    writer.Name("items").BeginArray();
    for (size_t i = 0; i < instance.m_Pieces.size(); ++i) {
        const SPiece& piece = instance.m_Pieces[i];
        writer.BeginObject();
        if (bNumbers) {
            writer.Name("id").Digits(piece.m_Name);
        } else {
            writer.Name("id").Whole(i);
            writer.Name("name").Text(piece.m_Name);
        }
        writer.Name("demand").Whole(static_cast<uint64_t>(piece.m_nQuantity));
        if (i < instance.m_Drawings.size() && !instance.m_Drawings[i].empty()) {
            writer.Name("dxf").Text(instance.m_Drawings[i]);
        }
        WriteOrientations(writer, piece.m_Turns);
        WriteShape(writer.Name("shape"), piece.m_Shape);
        writer.EndObject();
    }
    writer.EndArray();
    writer.Name("strip_height").Number(instance.m_Strip.m_Width);
    writer.EndObject();
    return writer.Take();
}

std::vector<std::string> LostInInstance(const SInstance& instance) {
    std::vector<std::string> lost;
    if (instance.m_Strip.m_Spacing > 0.0) {
        lost.emplace_back("the spacing between pieces");
    }
    if (instance.m_Strip.m_Margin > 0.0) {
        lost.emplace_back("the margin of the strip");
    }
    if (std::any_of(instance.m_Pieces.begin(), instance.m_Pieces.end(),
                    [](const SPiece& piece) { return piece.m_bMirrored; })) {
        lost.emplace_back("that pieces may be laid with their backs up");
    }
    return lost;
}

}  // namespace nestrix
