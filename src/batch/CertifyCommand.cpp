#include "batch/CertifyCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>

#include "base/NumberText.h"
#include "batch/Complaints.h"
#include "batch/ExitStatus.h"
#include "batch/ViolationText.h"
#include "certify/Certify.h"
#include "formats/json/PackingRecord.h"

namespace nestrix {

namespace {

char const* const CERTIFY_FOOTER =
    "Exit status: 0 all packings are valid; 1 one of them is not; 2 bad options or a file that is no "
    "packing.";

std::optional<int> Parse(const std::vector<std::string>& words, std::vector<std::string>& files) {
    CLI::App app("Tells whether packings are valid, in exact arithmetic.", "nestrix-batch certify");
    LayHelpOut(app, CERTIFY_FOOTER);
    AddFiles(app, "PACKING", files, "packings as JSON, this program's or others'")->required();
    return ParseWords(app, words);
}

SCertificate CertificateOf(const SFreeRecord& record) {
    return Certify(record.m_Pieces, record.m_Packing);
}

SCertificate CertificateOf(const SDroppedRecord& record) {
    return Certify(record.m_Pieces, record.m_Packing);
}

template <class TRecord>
bool ReportRecord(const std::string& file, const SPackingRecord& whole, const TRecord& record) {
    const SCertificate certificate = CertificateOf(record);
    const SPackingFigures figures = FiguresOf(whole);
    std::printf("%s: %s, %zu %s, height %s, density %s %%\n", file.c_str(),
                certificate.IsValid() ? "valid" : "not valid", figures.m_nPlaced,
                figures.m_nPlaced == 1 ? "piece" : "pieces", ShortestDigits(figures.m_Height).c_str(),
                Decimals(100.0 * figures.m_Density, 2).c_str());
    for (const SViolation& violation : certificate.m_Violations) {
        std::printf("%s: %s\n", file.c_str(), InWords(violation, record).c_str());
    }
    return certificate.IsValid();
}

/// @return the status of this file alone.
int CertifyFile(const std::string& file) {
    const SReading<SPackingRecord> reading = ReadPackingRecord(file);
    for (const SFinding& finding : reading.m_Findings) {
        Complain(finding);
    }
    if (!reading.m_Value) {
        return BATCH_BAD_INPUT;
    }
    const bool bValid =
        std::visit([&](const auto& record) { return ReportRecord(file, *reading.m_Value, record); },
                   reading.m_Value->m_Packing);
    return bValid ? BATCH_DONE : BATCH_FAILED;
}

}  // namespace

int RunCertifyCommand(const SInvocation& invocation) {
    std::vector<std::string> files;
    if (const std::optional<int> status = Parse(invocation.m_Words, files)) {
        return *status;
    }
    int nWorst = BATCH_DONE;
    for (const std::string& file : files) {
        nWorst = std::max(nWorst, CertifyFile(file));
    }
    return nWorst;
}

}  // namespace nestrix
