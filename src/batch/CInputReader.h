#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "batch/InputOptions.h"
#include "batch/SInputSet.h"
#include "formats/json/Job.h"

namespace nestrix {

/// Reads inputs into one set: the lines of a job, the words of a command line, in the order in which they are
/// given. A file that stands in several words is read once, and gives more copies of the same pieces.
///
/// A unit is never guessed in silence: a finding says what was taken, and what a piece measures.
class CInputReader {
public:
    explicit CInputReader(const SReadOptions& options) : m_Options(options) {}

    void ReadWords(const std::vector<std::string>& words);
    void ReadJob(const SJob& job);

    /// A file that was read elsewhere.
    void Take(const std::string& path, SInputFile file);

    /// What a file asks for that gives no pieces: it goes before what is read later.
    void TakeStrip(const std::string& path, const SStripDemand& demand) { NoteStrip(path, demand); }

    /// The set. Once.
    [[nodiscard]] SInputSet Finish();

private:
    /// Pieces of the set that were read together.
    struct SRange {
        size_t m_nBegin = 0;
        size_t m_nEnd = 0;
    };

    SRange Add(const std::string& path, SInputFile file);
    void AddCopies(const std::string& path, const SRange& range, int nTimes, SInputSummary& summary);
    void ReadJobFile(const SJobPiece& piece, const SJobDemand& demand);
    void ReadJobShape(const SJobPiece& piece, const SJobDemand& demand);
    void NoteUnit(const SInputFile& file, size_t nPiece);
    void NoteStrip(const std::string& path, const SStripDemand& demand);
    [[nodiscard]] int64_t CopiesOf(const SRange& range) const;
    [[nodiscard]] SFinding UnknownUnit(const SInputPiece& piece) const;

    const SReadOptions& m_Options;
    SInputSet m_Set;
    std::vector<int> m_Quantities;          ///< of each piece, in one copy of its file
    std::map<std::string, SRange> m_Known;  ///< what the files of words gave
    std::vector<size_t> m_Unitless;         ///< one piece of each file without a unit
};

/// The set of a command line.
[[nodiscard]] SInputSet ReadInputs(const SInputOptions& options);

}  // namespace nestrix
