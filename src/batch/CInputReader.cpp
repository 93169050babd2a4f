#include "batch/CInputReader.h"

#include <numeric>
#include <utility>

#include "batch/InputFormats.h"
#include "batch/InputPaths.h"
#include "batch/PolygonInput.h"
#include "drawing/Quoting.h"
#include "formats/SvgNumber.h"

namespace nestrix {

namespace {

using ESeverity = SFinding::ESeverity;

/// More would only use up the memory.
constexpr int64_t MOST_COPIES = 1'000'000;

void Append(const std::vector<SFinding>& more, std::vector<SFinding>& findings) {
    findings.insert(findings.end(), more.begin(), more.end());
}

/// The piece's own demands, and those of all pieces where it has none.
SJobDemand Merged(const SJobDemand& own, const SJobDemand& general) {
    return {own.m_nQuantity ? own.m_nQuantity : general.m_nQuantity,
            own.m_Turns ? own.m_Turns : general.m_Turns, own.m_bMirror ? own.m_bMirror : general.m_bMirror};
}

void Demand(const SJobDemand& demand, SPiece& piece) {
    piece.m_Turns = demand.m_Turns.value_or(piece.m_Turns);
    piece.m_bMirrored = demand.m_bMirror.value_or(piece.m_bMirrored);
}

/// Which pieces are meant.
std::vector<size_t> FindChosen(const std::vector<SInputPiece>& pieces, const CPieceChoice& choice) {
    std::vector<size_t> chosen;
    for (size_t i = 0; i < pieces.size(); ++i) {
        const std::string* const pName = std::get_if<std::string>(&choice);
        if (pName != nullptr ? pieces[i].m_Piece.m_Name == *pName
                             : i + 1 == static_cast<size_t>(std::get<int>(choice))) {
            chosen.push_back(i);
        }
    }
    return chosen;
}

std::string InWords(const CPieceChoice& choice) {
    const std::string* const pName = std::get_if<std::string>(&choice);
    return pName != nullptr ? Quoted(*pName, {'"', '?', 60}) : std::to_string(std::get<int>(choice));
}

/// Leaves the chosen piece only. A choice that is none is a finding.
void Choose(const CPieceChoice& choice, const std::string& path, SInputFile& file) {
    const std::vector<size_t> chosen = FindChosen(file.m_Pieces, choice);
    if (chosen.size() == 1) {
        file.m_Pieces = {std::move(file.m_Pieces[chosen[0]])};
    } else if (!file.m_Pieces.empty()) {
        const std::string asked =
            chosen.empty() ? "it has no piece " : "more than one piece of it has the name ";
        const std::string has = "; it holds " + std::to_string(file.m_Pieces.size());
        file.m_Findings.push_back(
            {path, 0, ESeverity::FAULT,
             asked + InWords(choice) + (chosen.empty() ? has : ": their numbers tell")});
    }
}

CRing Scaled(CRing ring, double scale) {
    for (SPoint& point : ring) {
        point = {point.m_X * scale, point.m_Y * scale};
    }
    return ring;
}

}  // namespace

void CInputReader::ReadWords(const std::vector<std::string>& words) {
    const size_t nFirst = m_Set.m_Summaries.size();
    for (const std::string& word : words) {
        m_Set.m_Summaries.emplace_back().m_Word = word;
    }
    const SInputPaths paths = FindInputs(words);
    Append(paths.m_Findings, m_Set.m_Findings);
    for (const SInputPath& path : paths.m_Files) {
        if (!m_Known.contains(path.m_File)) {
            m_Known[path.m_File] = Add(path.m_File, ReadInput(path.m_File, m_Options));
        }
        AddCopies(path.m_File, m_Known[path.m_File], path.m_nCopies,
                  m_Set.m_Summaries[nFirst + path.m_nWord]);
    }
}

void CInputReader::ReadJob(const SJob& job) {
    for (const SJobPiece& piece : job.m_Pieces) {
        const SJobDemand demand = Merged(piece.m_Demand, job.m_Demand);
        m_Set.m_Summaries.emplace_back().m_Word = piece.m_File.empty() ? piece.m_Name : piece.m_File;
        piece.m_File.empty() ? ReadJobShape(piece, demand) : ReadJobFile(piece, demand);
    }
}

/// Not together with the same file elsewhere, of which something else may be demanded.
void CInputReader::ReadJobFile(const SJobPiece& piece, const SJobDemand& demand) {
    const SInputPaths paths = FindInputs({&piece.m_File, 1});
    Append(paths.m_Findings, m_Set.m_Findings);
    for (const SInputPath& path : paths.m_Files) {
        SInputFile file = ReadInput(path.m_File, m_Options);
        if (piece.m_Choice) {
            Choose(*piece.m_Choice, path.m_File, file);
        }
        for (SInputPiece& read : file.m_Pieces) {
            Demand(demand, read.m_Piece);
        }
        if (file.m_Pieces.size() == 1 && !piece.m_Name.empty()) {
            file.m_Pieces[0].m_Piece.m_Name = piece.m_Name;
            file.m_Pieces[0].m_Drawn.m_Name = piece.m_Name;
        }
        const SRange range = Add(path.m_File, std::move(file));
        AddCopies(path.m_File, range, path.m_nCopies * demand.m_nQuantity.value_or(1),
                  m_Set.m_Summaries.back());
    }
}

void CInputReader::ReadJobShape(const SJobPiece& piece, const SJobDemand& demand) {
    const double scale = ScaleOf(m_Options, std::nullopt);
    SPiece shaped;
    shaped.m_Name = piece.m_Name;
    shaped.m_Shape.m_Outline = Scaled(piece.m_Shape.m_Outline, scale);
    for (const CRing& hole : piece.m_Shape.m_Holes) {
        shaped.m_Shape.m_Holes.push_back(Scaled(hole, scale));
    }
    Demand(demand, shaped);
    SInputFile file;
    file.m_bHasUnits = false;
    file.m_Pieces.push_back(InputPieceOf(std::move(shaped), "", piece.m_nLine));
    AddCopies(piece.m_Name, Add("", std::move(file)), demand.m_nQuantity.value_or(1),
              m_Set.m_Summaries.back());
}

void CInputReader::Take(const std::string& path, SInputFile file) {
    m_Set.m_Summaries.emplace_back().m_Word = path;
    AddCopies(path, Add(path, std::move(file)), 1, m_Set.m_Summaries.back());
}

SInputSet CInputReader::Finish() {
    // The strip's unit is known only now.
    for (const size_t nPiece : m_Unitless) {
        m_Set.m_Findings.push_back(UnknownUnit(m_Set.m_Sources[nPiece]));
    }
    return std::move(m_Set);
}

CInputReader::SRange CInputReader::Add(const std::string& path, SInputFile file) {
    const size_t nBegin = m_Set.m_Pieces.size();
    if (!path.empty()) {
        m_Set.m_Files.push_back(path);
    }
    Append(file.m_Findings, m_Set.m_Findings);
    NoteUnit(file, nBegin);
    NoteStrip(path, file.m_Strip);
    for (SInputPiece& piece : file.m_Pieces) {
        m_Quantities.push_back(piece.m_Piece.m_nQuantity);
        piece.m_Piece.m_nQuantity = 0;  // until copies are added
        m_Set.m_Pieces.push_back(piece.m_Piece);
        m_Set.m_Drawn.push_back(piece.m_Drawn);
        m_Set.m_Sources.push_back(std::move(piece));
    }
    return {nBegin, m_Set.m_Pieces.size()};
}

void CInputReader::AddCopies(const std::string& path, const SRange& range, int nTimes,
                             SInputSummary& summary) {
    const int64_t nCopies = CopiesOf(range) * nTimes;
    if (nCopies + static_cast<int64_t>(m_Set.m_Order.size()) > MOST_COPIES) {
        m_Set.m_Findings.push_back({path, 0, ESeverity::FAULT,
                                    "with its pieces there are more than " + std::to_string(MOST_COPIES)});
        return;
    }
    for (int i = 0; i < nTimes; ++i) {
        for (size_t nPiece = range.m_nBegin; nPiece < range.m_nEnd; ++nPiece) {
            m_Set.m_Pieces[nPiece].m_nQuantity += m_Quantities[nPiece];
            m_Set.m_Order.insert(m_Set.m_Order.end(), static_cast<size_t>(m_Quantities[nPiece]), nPiece);
        }
    }
    ++summary.m_nFiles;
    summary.m_nCopies += static_cast<int>(nCopies);
    for (size_t nPiece = range.m_nBegin; nPiece < range.m_nEnd; ++nPiece) {
        summary.Add(m_Set.m_Pieces[nPiece].m_Shape);
    }
}

int64_t CInputReader::CopiesOf(const SRange& range) const {
    return std::accumulate(m_Quantities.begin() + static_cast<std::ptrdiff_t>(range.m_nBegin),
                           m_Quantities.begin() + static_cast<std::ptrdiff_t>(range.m_nEnd), int64_t{0});
}

void CInputReader::NoteUnit(const SInputFile& file, size_t nPiece) {
    if (file.m_Unit || m_Options.m_Unit) {
        m_Set.m_Unit = EUnit::MILLIMETRE;
    } else if (file.m_bHasUnits && !file.m_Pieces.empty()) {
        m_Unitless.push_back(nPiece);
    }
}

void CInputReader::NoteStrip(const std::string& path, const SStripDemand& demand) {
    SStripDemand& strip = m_Set.m_Strip;
    if (demand.m_Width && strip.m_Width.value_or(*demand.m_Width) != *demand.m_Width) {
        m_Set.m_Findings.push_back({path, 0, ESeverity::ODD,
                                    "it asks for a strip " + SvgNumber(*demand.m_Width) +
                                        " wide, but another input for one " + SvgNumber(*strip.m_Width) +
                                        " wide, which is taken"});
    }
    strip.m_Width = strip.m_Width ? strip.m_Width : demand.m_Width;
    strip.m_Spacing = strip.m_Spacing ? strip.m_Spacing : demand.m_Spacing;
    strip.m_Margin = strip.m_Margin ? strip.m_Margin : demand.m_Margin;
}

SFinding CInputReader::UnknownUnit(const SInputPiece& piece) const {
    std::string message = "no unit is named: its lengths are taken for ";
    message.append(m_Set.m_Unit ? "millimetres" : "units of the strip").append(", so that ");
    message.append(piece.m_Piece.m_Name).append(" measures ").append(SizeInWords(piece.m_Piece.m_Shape));
    message.append(m_Set.m_Unit ? " mm" : "").append("; --unit says otherwise");
    return {piece.m_Drawn.m_File, 0, ESeverity::ODD, message};
}

SInputSet ReadInputs(const SInputOptions& options) {
    CInputReader reader(options.m_Reading);
    reader.ReadWords(options.m_Inputs);
    return reader.Finish();
}

}  // namespace nestrix
