#include "batch/FreeReport.h"

#include "base/NumberText.h"

namespace nestrix {

char const* InWords(EPackEnd eEnd) {
    switch (eEnd) {
        case EPackEnd::STEPS:
            return "all steps are taken";
        case EPackEnd::SECONDS:
            return "the time is up";
        case EPackEnd::TARGET:
            return "the target is reached";
        case EPackEnd::PATIENCE:
            return "nothing better was found for so long";
        case EPackEnd::STOPPED:
            return "stopped by a signal";
        case EPackEnd::NOTHING_TO_GAIN:
            return "nothing lower is possible";
        case EPackEnd::UNFIT:
            break;
    }
    return "there are pieces that do not fit";
}

std::string ReportOf(std::span<const SPiece> pieces, const SSearchers& searchers, const SPackResult& result,
                     const std::string& command) {
    const SFreePacking& packing = *result.m_Packing;
    std::string report;
    const auto addLine = [&report](char const* pLabel, const std::string& value) {
        report.append(pLabel).append(": ").append(value).append("\n");
    };
    addLine("Seed", std::to_string(searchers.m_nSeed));
    addLine("Steps", std::to_string(result.m_nSteps));
    addLine("Threads", std::to_string(searchers.m_nThreads));
    if (searchers.m_nRanks) {
        addLine("Ranks", std::to_string(*searchers.m_nRanks));
    }
    addLine("Pieces", std::to_string(packing.m_Placed.size()));
    addLine("Best height", ShortestDigits(packing.m_Grid.Length(packing.m_nHeight)));
    addLine("Density", Decimals(100.0 * DensityOf(pieces, packing), 2) + " %");
    addLine("Seconds", Decimals(result.m_Seconds, 2));
    addLine("Ended", InWords(result.m_eEnd));
    if (!command.empty()) {
        addLine("Repeat with", command);
    }
    return report;
}

}  // namespace nestrix
