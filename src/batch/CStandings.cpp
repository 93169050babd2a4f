#include "batch/CStandings.h"

#include <algorithm>
#include <array>

#include "base/NumberText.h"
#include "batch/SameJob.h"
#include "batch/ViolationText.h"
#include "certify/Certify.h"

namespace nestrix {

namespace {

std::string FindFault(const SFreeRecord& record) {
    const std::vector<SViolation> violations = Certify(record.m_Pieces, record.m_Packing).m_Violations;
    if (violations.empty()) {
        return {};
    }
    const size_t nMore = violations.size() - 1;
    return "not valid: " + InWords(violations.front(), record) +
           (nMore > 0 ? ", and " + std::to_string(nMore) + " more" : "");
}

std::string SeedOf(const std::optional<uint64_t>& nSeed, char const* pUnknown) {
    return nSeed ? std::to_string(*nSeed) : pUnknown;
}

/// By RFC 4180.
std::string CsvQuoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + "\"";
}

}  // namespace

std::string CStandings::Take(const std::string& file, SPackingRecord record) {
    const SFreeRecord* const pFree = std::get_if<SFreeRecord>(&record.m_Packing);
    if (pFree == nullptr) {
        return "it was dropped: only free packings are compared";
    }
    std::string fault = FindFault(*pFree);
    if (fault.empty() && m_Job) {
        const std::string difference = FindDifference(record, *m_Job);
        fault = difference.empty() ? "" : "another job: " + difference;
    }
    if (!fault.empty()) {
        return fault;
    }
    if (!m_Job) {
        m_Job = record;
    }
    const SPackingFigures figures = FiguresOf(record);
    const auto behind = std::upper_bound(
        m_Standings.begin(), m_Standings.end(), figures.m_Height,
        [](double height, const SStanding& standing) { return height < standing.m_Figures.m_Height; });
    const bool bBest = behind == m_Standings.begin();
    m_Standings.insert(behind, {file, figures, record.m_nSeed});
    if (bBest) {
        m_Best = {file, std::move(record)};
    }
    return {};
}

std::string CStandings::InColumns() const {
    using CRow = std::array<std::string, 3>;
    std::vector<CRow> rows{{"height", "density", "seed"}};
    for (const SStanding& standing : m_Standings) {
        rows.push_back({ShortestDigits(standing.m_Figures.m_Height),
                        Decimals(100.0 * standing.m_Figures.m_Density, 2) + " %",
                        SeedOf(standing.m_nSeed, "-")});
    }
    std::array<size_t, std::tuple_size_v<CRow>> widths{};
    for (const CRow& row : rows) {
        for (size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], row[i].size());
        }
    }
    std::string text;
    for (size_t nRow = 0; nRow < rows.size(); ++nRow) {
        for (size_t i = 0; i < widths.size(); ++i) {
            text.append(widths[i] - rows[nRow][i].size(), ' ').append(rows[nRow][i]).append("  ");
        }
        text.append(nRow == 0 ? "file" : m_Standings[nRow - 1].m_File).append("\n");
    }
    return text;
}

std::string CStandings::Csv() const {
    std::string table = "file,height,density,seed\n";
    for (const SStanding& standing : m_Standings) {
        table.append(CsvQuoted(standing.m_File)).append(",");
        table.append(ShortestDigits(standing.m_Figures.m_Height)).append(",");
        table.append(Decimals(standing.m_Figures.m_Density, 6)).append(",");
        table.append(SeedOf(standing.m_nSeed, "")).append("\n");
    }
    return table;
}

}  // namespace nestrix
