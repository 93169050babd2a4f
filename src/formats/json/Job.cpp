#include "formats/json/Job.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <span>

#include "formats/json/CMemberReader.h"
#include "formats/json/FileWords.h"
#include "formats/json/ReadJsonFile.h"

namespace nestrix {

namespace {

using EKind = CJsonValue::EKind;

constexpr size_t VERTICES_LEAST = 3;
constexpr int COUNT_MOST = std::numeric_limits<int>::max();

// As the options of the same names have them.
constexpr int THREADS_MOST = 1024;
constexpr int POPULATION_MOST = 1'000'000;

SJobStrip ReadStrip(const CJsonValue& value, CJsonFindings& findings) {
    CMemberReader members(value, findings);
    SJobStrip strip{members.Number("width", json::WIDTH_KIND), members.Number("spacing", json::DISTANCE_KIND),
                    members.Number("margin", json::DISTANCE_KIND)};
    members.RefuseOthers();
    return strip;
}

SPackLimits ReadLimits(const CJsonValue& value, CJsonFindings& findings) {
    CMemberReader members(value, findings);
    SPackLimits limits;
    limits.m_Seconds = members.Number("time", json::SECONDS_KIND);
    limits.m_nSteps = members.Whole("steps", 0, std::numeric_limits<uint64_t>::max());
    limits.m_TargetHeight = members.Number("target_height", json::POSITIVE_KIND);
    limits.m_TargetDensity = members.Number("target_density", json::SHARE_KIND);
    limits.m_Patience = members.Number("patience", json::SECONDS_KIND);
    members.RefuseOthers();
    return limits;
}

SJobDrop ReadDrop(const CJsonValue& value, CJsonFindings& findings) {
    CMemberReader members(value, findings);
    SJobDrop drop{members.Int("population", 1, POPULATION_MOST), members.Int("generations", 0, COUNT_MOST),
                  members.Number("mutation", json::PROBABILITY_KIND)};
    members.RefuseOthers();
    return drop;
}

/// "turns" and "mirror", of a piece or of all.
void ReadDemand(CMemberReader& members, SJobDemand& demand, CJsonFindings& findings) {
    demand.m_Turns = members.Turns("turns");
    demand.m_bMirror = members.Flag("mirror");
    if (demand.m_Turns && !demand.m_Turns->m_bAny && demand.m_Turns->m_Degrees.empty()) {
        findings.Miss(*members.Find("turns"), "the list of turns is empty; as drawn is [0]");
    }
}

/// From the folder of the job.
std::string PathFrom(const std::string& job, const std::string& file) {
    return (std::filesystem::path(job).parent_path() / file).string();
}

SShape ReadShape(CMemberReader& members, const CJsonValue& piece, CJsonFindings& findings) {
    SShape shape{members.Ring("outline").value_or(CRing()),
                 members.Rings("holes").value_or(std::vector<CRing>())};
    const auto isTooShort = [](const CRing& ring) { return ring.size() < VERTICES_LEAST; };
    const std::optional<CJsonValue> outline = members.Find("outline");
    const bool bReadOutline = outline && outline->Kind() == EKind::ARRAY;
    if ((bReadOutline && isTooShort(shape.m_Outline)) ||
        std::any_of(shape.m_Holes.begin(), shape.m_Holes.end(), isTooShort)) {
        findings.Miss(piece, "an outline or a hole has three points at least");
    }
    return shape;
}

std::optional<CPieceChoice> ReadChoice(CMemberReader& members, CJsonFindings& findings) {
    const std::optional<CJsonValue> value = members.Find("piece");
    if (!value) {
        return std::nullopt;
    }
    if (value->Kind() == EKind::TEXT) {
        return std::string(value->Text());
    }
    if (value->Kind() != EKind::NUMBER && value->Kind() != EKind::WHOLE) {
        findings.Refuse(*value, "is neither the name of a piece nor its number in the file, from 1");
        return std::nullopt;
    }
    return members.Int("piece", 1, COUNT_MOST);
}

SJobPiece ReadPiece(const CJsonValue& value, const std::string& job, CJsonFindings& findings) {
    CMemberReader members(value, findings);
    SJobPiece piece;
    piece.m_nLine = value.Line();
    piece.m_Name = members.Text("name").value_or("");
    const std::optional<std::string> file = members.Text("file");
    piece.m_File = file && !file->empty() ? PathFrom(job, *file) : "";
    piece.m_Choice = ReadChoice(members, findings);
    piece.m_Shape = ReadShape(members, value, findings);
    piece.m_Demand.m_nQuantity = members.Int("quantity", 0, COUNT_MOST);
    ReadDemand(members, piece.m_Demand, findings);
    const bool bFile = members.Find("file").has_value();
    const bool bOutline = members.Find("outline").has_value();
    if (value.Kind() == EKind::OBJECT && bFile == bOutline) {
        findings.Miss(value, R"(a piece has either a "file" or an "outline")");
    }
    if (bFile && members.Find("holes")) {
        findings.Miss(value, R"("holes" belong to an "outline"; a file has its own)");
    }
    if (bOutline && members.Find("piece")) {
        findings.Miss(value, R"("piece" chooses one of a "file")");
    }
    if (file && (file->empty() || file->find('\0') != std::string::npos)) {
        findings.Miss(value, "its \"file\" is no name of a file");
    }
    members.RefuseOthers();
    return piece;
}

std::vector<SJobPiece> ReadPieces(CMemberReader& members, const std::string& job, CJsonFindings& findings) {
    std::vector<SJobPiece> pieces;
    const std::optional<CJsonValue> list = members.Demand("pieces");
    if (!list) {
        return pieces;
    }
    for (const CJsonValue& value : list->Elements()) {
        pieces.push_back(ReadPiece(value, job, findings));
    }
    if (list->Kind() != EKind::ARRAY || pieces.empty()) {
        findings.Miss(*list, "it is not a list of pieces");
    }
    return pieces;
}

/// Refuses members that only free packing knows: they would do nothing.
void RefuseOfFree(const CJsonValue& object, std::span<const std::string_view> names,
                  CJsonFindings& findings) {
    for (const std::string_view name : names) {
        if (const std::optional<CJsonValue> value = object.Find(name)) {
            findings.Miss(*value, "only the method \"free\" has this");
        }
    }
}

void CheckMethod(const CJsonValue& root, EPackMethod eMethod, CJsonFindings& findings) {
    constexpr std::array<std::string_view, 6> OF_JOB{"strip", "limits", "threads", "keep_holes_empty",
                                                     "turns", "mirror"};
    constexpr std::array<std::string_view, 3> OF_PIECE{"turns", "mirror", "holes"};
    if (eMethod == EPackMethod::FREE) {
        if (const std::optional<CJsonValue> drop = root.Find("drop")) {
            findings.Miss(*drop, R"(only the method "drop" has this; it is "free", unless another is named)");
        }
        return;
    }
    RefuseOfFree(root, OF_JOB, findings);
    const std::optional<CJsonValue> pieces = root.Find("pieces");
    for (const CJsonValue& piece : pieces.value_or(root).Elements()) {
        RefuseOfFree(piece, OF_PIECE, findings);
    }
}

SJob Read(const CJsonValue& root, const std::string& path, CJsonFindings& findings) {
    CMemberReader members(root, findings);
    SJob job;
    if (const std::optional<CJsonValue> strip = members.Find("strip")) {
        job.m_Strip = ReadStrip(*strip, findings);
    }
    job.m_Unit = members.Unit("unit");
    job.m_Scale = members.Number("scale", json::POSITIVE_KIND);
    job.m_eMethod = members.Named("method", METHOD_NAMES);
    if (const auto seed = members.Whole("seed", 0, std::numeric_limits<unsigned int>::max())) {
        job.m_nSeed = static_cast<unsigned int>(*seed);
    }
    job.m_nThreads = members.Int("threads", 1, THREADS_MOST);
    job.m_bKeepHolesEmpty = members.Flag("keep_holes_empty");
    if (const std::optional<CJsonValue> limits = members.Find("limits")) {
        job.m_Limits = ReadLimits(*limits, findings);
    }
    if (const std::optional<CJsonValue> drop = members.Find("drop")) {
        job.m_Drop = ReadDrop(*drop, findings);
    }
    ReadDemand(members, job.m_Demand, findings);
    job.m_Pieces = ReadPieces(members, path, findings);
    CheckMethod(root, job.m_eMethod.value_or(EPackMethod::FREE), findings);
    static_cast<void>(members.Find("$schema"));  // for editors
    members.RefuseOthers();
    return job;
}

}  // namespace

SReading<SJob> ReadJob(const std::string& path) {
    return ReadJsonFile<SJob>(path, [&path](const CJsonValue& root, CJsonFindings& findings) {
        return Read(root, path, findings);
    });
}

}  // namespace nestrix
