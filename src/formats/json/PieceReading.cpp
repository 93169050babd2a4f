#include "formats/json/PieceReading.h"

#include <limits>
#include <map>

namespace nestrix::json {

namespace {

constexpr int COUNT_MOST = std::numeric_limits<int>::max();

/// The elements of a member that has to be there and be a list.
std::vector<CJsonValue> DemandList(CMemberReader& members, std::string_view name, CJsonFindings& findings) {
    const std::optional<CJsonValue> list = members.Demand(name);
    if (!list) {
        return {};
    }
    if (list->Kind() != CJsonValue::EKind::ARRAY) {
        findings.Refuse(*list, "is not a list");
    }
    const CJsonElements elements = list->Elements();
    return {elements.begin(), elements.end()};
}

std::optional<CRing> ReadBox(CMemberReader& members, const CJsonValue& value, CJsonFindings& findings) {
    std::optional<CRing> box = members.Ring("box");
    if (box && box->size() != 2) {
        findings.Miss(value, "a box is its lower left corner and its upper right one");
        return std::nullopt;
    }
    return box;
}

SShape ReadShape(CMemberReader& members, CJsonFindings& findings) {
    const std::optional<CJsonValue> outline = members.Demand("outline");
    return {outline ? ReadRing(*outline, findings).value_or(CRing()) : CRing(),
            members.Rings("holes").value_or(std::vector<CRing>())};
}

SWrittenPiece ReadPiece(const CJsonValue& value, CJsonFindings& findings) {
    CMemberReader members(value, findings);
    return {value,
            members.Text("name").value_or(""),
            {members.Text("file").value_or(""), members.Int("line", 0, COUNT_MOST).value_or(0)},
            ReadShape(members, findings),
            members.Int("quantity", 0, COUNT_MOST),
            members.Turns("turns"),
            members.Flag("mirror"),
            ReadBox(members, value, findings)};
}

/// Finds the piece of a placement by what the file says of it.
class CPieceFinder {
public:
    CPieceFinder(const std::vector<SWrittenPiece>& pieces, CJsonFindings& findings)
        : m_nPieces(pieces.size()), m_Findings(findings) {
        for (size_t i = 0; i < pieces.size(); ++i) {
            const auto [entry, bNew] = m_Named.try_emplace(pieces[i].m_Name, i);
            entry->second = bNew ? std::optional(i) : std::nullopt;
        }
    }

    /// @param nIndex of the placement: that of its piece where nothing else is said.
    [[nodiscard]] std::optional<size_t> Find(const CJsonValue& value, CMemberReader& members, size_t nIndex) {
        const std::optional<CJsonValue> piece = members.Find("piece");
        const std::optional<std::string> name = members.Text("name");
        if (!piece && name) {
            return FindNamed(value, *name);
        }
        const std::optional<uint64_t> number =
            piece ? ReadWhole(*piece, 0, COUNT_MOST, m_Findings) : std::optional<uint64_t>(nIndex);
        if (number && *number >= m_nPieces) {
            m_Findings.Miss(piece.value_or(value), "there is no piece " + std::to_string(*number) +
                                                       ": they are counted from 0, and there are " +
                                                       std::to_string(m_nPieces));
            return std::nullopt;
        }
        return number;
    }

private:
    std::optional<size_t> FindNamed(const CJsonValue& value, const std::string& name) {
        const auto found = m_Named.find(name);
        if (found == m_Named.end()) {
            m_Findings.Miss(value, "no piece has the name of this placement");
            return std::nullopt;
        }
        if (!found->second) {
            m_Findings.Miss(value, "several pieces have the name of this placement: \"piece\" has to tell");
        }
        return found->second;
    }

    size_t m_nPieces;
    CJsonFindings& m_Findings;
    std::map<std::string, std::optional<size_t>> m_Named;  ///< nothing where several have the name
};

double ReadCoordinate(CMemberReader& members, std::string_view name, CJsonFindings& findings) {
    const std::optional<CJsonValue> value = members.Demand(name);
    return value ? ReadNumber(*value, ANY_KIND, findings).value_or(0.0) : 0.0;
}

}  // namespace

std::vector<SWrittenPiece> ReadPieces(CMemberReader& members, CJsonFindings& findings) {
    std::vector<SWrittenPiece> pieces;
    for (const CJsonValue& value : DemandList(members, "pieces", findings)) {
        pieces.push_back(ReadPiece(value, findings));
    }
    return pieces;
}

std::vector<SWrittenPlacement> ReadPlacements(CMemberReader& members,
                                              const std::vector<SWrittenPiece>& pieces,
                                              CJsonFindings& findings) {
    CPieceFinder finder(pieces, findings);
    std::vector<SWrittenPlacement> placements;
    size_t nIndex = 0;
    for (const CJsonValue& value : DemandList(members, "placements", findings)) {
        CMemberReader placement(value, findings);
        const std::optional<size_t> piece = finder.Find(value, placement, nIndex++);
        const SWrittenPlacement read{
            value,
            piece.value_or(0),
            placement.Number("turn", ANY_KIND).value_or(0.0),
            placement.Flag("mirror").value_or(false),
            {ReadCoordinate(placement, "x", findings), ReadCoordinate(placement, "y", findings)}};
        if (piece) {
            placements.push_back(read);
        }
    }
    return placements;
}

}  // namespace nestrix::json
