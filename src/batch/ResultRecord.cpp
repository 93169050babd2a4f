#include "batch/ResultRecord.h"

#include <array>
#include <ctime>

namespace nestrix {

namespace {

/// By ISO 8601, in the time of Greenwich.
std::string Now() {
    const std::time_t now = std::time(nullptr);
    tm date = {};
    gmtime_r(&now, &date);
    std::array<char, 32> text{};
    const size_t nLength = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &date);
    return {text.data(), nLength};
}

SPackingRecord Begun(const SPackTask& task, double seconds) {
    SPackingRecord record;
    record.m_Options = task.m_Options.m_Given;
    record.m_nSeed = task.m_nSeed;
    record.m_Unit = task.m_Set.m_Unit;
    record.m_Time = {seconds, Now()};
    return record;
}

SPieceSource SourceOf(const SDrawnPiece& drawn) {
    return {drawn.m_File, drawn.m_nLine};
}

}  // namespace

SPackingRecord RecordOf(const SPackTask& task, const std::vector<SPiece>& pieces, const SPackResult& result) {
    SPackingRecord record = Begun(task, result.m_Seconds);
    record.m_nThreads = ThreadsOf(task.m_Options.m_Free);
    record.m_nRanks = task.m_Packer.m_nRanks;
    record.m_nSteps = result.m_nSteps;
    record.m_eEnd = result.m_eEnd;
    record.m_Packing = SFreeRecord{pieces, *result.m_Packing};
    for (const SDrawnPiece& drawn : task.m_Set.m_Drawn) {
        record.m_Sources.push_back(SourceOf(drawn));
    }
    return record;
}

SPackingRecord RecordSoFar(const SPackTask& task, const std::vector<SPiece>& pieces,
                           const SFreePacking& packing, const SPackProgress& progress) {
    SPackResult result;
    result.m_Packing = packing;
    result.m_nSteps = progress.m_nSteps;
    result.m_Seconds = progress.m_Seconds;
    SPackingRecord record = RecordOf(task, pieces, result);
    record.m_eEnd.reset();
    return record;
}

SPackingRecord RecordOf(const SPackTask& task, const SDroppedResult& result) {
    SPackingRecord record = Begun(task, result.m_Seconds);
    record.m_nSteps = static_cast<uint64_t>(result.m_nGenerations);
    record.m_eEnd = task.m_Stop ? EPackEnd::STOPPED : EPackEnd::STEPS;
    SDroppedRecord dropped{{}, result.m_Polygons, {}, result.m_Packing};
    for (const size_t nPiece : task.m_Set.m_Order) {
        const SPiece& piece = task.m_Set.m_Pieces[nPiece];
        dropped.m_Names.push_back(piece.m_Name);
        dropped.m_Holes.push_back(piece.m_Shape.m_Holes);
        record.m_Sources.push_back(SourceOf(task.m_Set.m_Drawn[nPiece]));
    }
    record.m_Packing = std::move(dropped);
    return record;
}

}  // namespace nestrix
