#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "formats/json/PackingRecord.h"

namespace nestrix {

/// Packings of one job, the lowest first. Only the best is kept whole: of a job that many machines worked on
/// there are many.
class CStandings {
public:
    /// Takes part in the comparison, unless it is not valid in exact arithmetic, was dropped, or is of
    /// another job. The first that is taken says what the job is.
    /// @param file its name; of packings of the same height the first stays in front.
    /// @return why it is refused, in words for a user; empty if it is taken.
    [[nodiscard]] std::string Take(const std::string& file, SPackingRecord record);

    /// The lowest packing so far.
    struct SBest {
        std::string m_File;
        SPackingRecord m_Record;  ///< with a free packing
    };

    /// Nothing before one is taken.
    [[nodiscard]] const std::optional<SBest>& Best() const { return m_Best; }

    /// In columns, to be read.
    [[nodiscard]] std::string InColumns() const;

    /// As CSV.
    [[nodiscard]] std::string Csv() const;

private:
    struct SStanding {
        std::string m_File;
        SPackingFigures m_Figures;
        std::optional<uint64_t> m_nSeed;
    };

    std::vector<SStanding> m_Standings;
    std::optional<SPackingRecord> m_Job;  ///< the first taken
    std::optional<SBest> m_Best;
};

}  // namespace nestrix
