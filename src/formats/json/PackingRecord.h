#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "base/ProgramVersion.h"
#include "drawing/Unit.h"
#include "formats/json/SReading.h"
#include "nest/PackFreely.h"
#include "packing/SFreePacking.h"
#include "packing/SPacking.h"

namespace nestrix {

/// A free packing with the set that it packs: enough to certify it, to draw it, or to search on from it.
struct SFreeRecord {
    std::vector<SPiece> m_Pieces;
    SFreePacking m_Packing;

    friend bool operator==(const SFreeRecord&, const SFreeRecord&) = default;
};

/// A dropped packing with the set that it packs.
struct SDroppedRecord {
    std::vector<std::string> m_Names;  ///< as many as pieces
    std::vector<CPolygon> m_Pieces;
    std::vector<std::vector<CRing>> m_Holes;  ///< of each piece, as it was drawn; nothing is dropped into one
    SPacking m_Packing;

    friend bool operator==(const SDroppedRecord&, const SDroppedRecord&) = default;
};

/// Where a piece comes from.
struct SPieceSource {
    std::string m_File;  ///< empty where it is not known
    int m_nLine = 0;     ///< of its outline in the file, from 1; 0 where it is not known

    friend bool operator==(const SPieceSource&, const SPieceSource&) = default;
};

/// An option that the user gave, and its value.
using COptionValue = std::variant<bool, double, std::string>;
using CRecordedOptions = std::vector<std::pair<std::string, COptionValue>>;

/// All that differs between two runs with the same work.
struct SRecordedTime {
    std::optional<double> m_Seconds;  ///< how long the search took
    std::string m_Finished;           ///< date and time, by ISO 8601; empty for none

    friend bool operator==(const SRecordedTime&, const SRecordedTime&) = default;
};

/// A packing as it is kept in a file, with where it comes from and what repeats it. docs/formats.md says what
/// the members of the file mean.
struct SPackingRecord {
    std::string m_Version = ProgramVersion();  ///< of the program that wrote it; empty where it is not known
    CRecordedOptions m_Options;
    std::optional<uint64_t> m_nSeed;
    std::optional<int> m_nThreads;
    std::optional<int> m_nRanks;  ///< processes that searched together, each with its threads; absent for one
    std::optional<uint64_t> m_nSteps;  ///< moves of pieces, or generations after the first: as a limit, with
                                       ///< the same seed and threads, it gives the same packing
    std::optional<EPackEnd> m_eEnd;    ///< not UNFIT: then there is no packing
    std::optional<EUnit> m_Unit;
    std::vector<SPieceSource> m_Sources;  ///< as many as pieces
    std::variant<SFreeRecord, SDroppedRecord> m_Packing;
    SRecordedTime m_Time;

    friend bool operator==(const SPackingRecord&, const SPackingRecord&) = default;
};

/// A packing in numbers.
struct SPackingFigures {
    size_t m_nPlaced = 0;
    double m_Height = 0.0;
    double m_Density = 0.0;  ///< the share of the strip up to the height that the placed pieces take
};
[[nodiscard]] SPackingFigures FiguresOf(const SPackingRecord& record);

/// The whole file. The same record gives the same bytes; ReadPackingRecord gives the record back, each number
/// to the last digit, but for a dropped packing's numbers that are not finite: those come back as no numbers.
[[nodiscard]] std::string WriteJson(const SPackingRecord& record);

/// Reads a packing of this program, or one made elsewhere, of which outlines and places are enough. It can be
/// wrong in every way that Certify tells; but every placement is one of a piece that there is, and everything
/// fits on the grid. Never throws.
[[nodiscard]] SReading<SPackingRecord> ReadPackingRecord(const std::string& path);

}  // namespace nestrix
