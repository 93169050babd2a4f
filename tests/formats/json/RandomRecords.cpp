#include "tests/formats/json/RandomRecords.h"

#include <cmath>

#include "tests/support/Pieces.h"

namespace nestrix::support {

namespace {

/// Anything from whole numbers to such of all digits and magnitudes.
double RandomNumber(CSeededRandom& random) {
    const double whole = random.Range(-100000, 100000);
    switch (random.Range(0, 3)) {
        case 0:
            return whole;
        case 1:
            return whole / 1000.0;
        case 2:
            return whole / 7.0;
        default:
            return std::ldexp(whole / 7.0, random.Range(-60, 10));
    }
}

double RandomSize(CSeededRandom& random) {
    return std::abs(RandomNumber(random));
}

std::string RandomText(CSeededRandom& random) {
    return random.Pick<std::string>({"bracket", "", "Größe 12\" \\ rund", "0", "line\nend", "\u0001\t",
                                     "日本", "a/b~c", "</script>",
                                     "0123456789012345678901234567890123456789"});
}

CRing RandomRing(CSeededRandom& random) {
    CRing ring;
    for (int i = random.Range(0, 12); i > 0; --i) {
        ring.push_back({RandomNumber(random), RandomNumber(random)});
    }
    return ring;
}

STurns RandomTurns(CSeededRandom& random) {
    if (random.Percent(30)) {
        return {true, {}};
    }
    STurns turns{false, {}};
    for (int i = random.Range(0, 4); i > 0; --i) {
        turns.m_Degrees.push_back(RandomNumber(random));
    }
    return turns;
}

SPiece RandomPiece(CSeededRandom& random) {
    SPiece piece{RandomText(random),
                 {RandomRing(random), {}},
                 random.Range(0, 40),
                 RandomTurns(random),
                 random.Percent(50)};
    for (int i = random.Range(-3, 2); i > 0; --i) {
        piece.m_Shape.m_Holes.push_back(RandomRing(random));
    }
    return piece;
}

int64_t RandomUnits(CSeededRandom& random) {
    constexpr uint64_t SPAN = uint64_t{1} << 47;
    const auto nUnits = static_cast<int64_t>(random.Index(SPAN + 1)) - GRID_LENGTH_MOST;
    return nUnits >> random.Range(0, 46);
}

SFreePlacement RandomPlacement(CSeededRandom& random, size_t nPieces) {
    return {static_cast<int>(random.Index(nPieces)),
            random.Percent(50),
            RandomNumber(random),
            {RandomUnits(random), RandomUnits(random)}};
}

SPieceSource RandomSource(CSeededRandom& random) {
    return {RandomText(random), random.Range(0, 3)};
}

void AddRun(CSeededRandom& random, SPackingRecord& record) {
    if (random.Percent(80)) {
        record.m_nSeed = random.Index(SIZE_MAX);
        record.m_nThreads = random.Range(1, 64);
        record.m_nRanks = random.Percent(50) ? std::optional(random.Range(1, 64)) : std::nullopt;
        record.m_nSteps = random.Index(SIZE_MAX);
        record.m_eEnd = random.Pick({EPackEnd::STEPS, EPackEnd::SECONDS, EPackEnd::TARGET, EPackEnd::PATIENCE,
                                     EPackEnd::STOPPED, EPackEnd::NOTHING_TO_GAIN});
        record.m_Unit = random.Pick({EUnit::MILLIMETRE, EUnit::CENTIMETRE, EUnit::METRE, EUnit::INCH,
                                     EUnit::FOOT, EUnit::POINT, EUnit::PIXEL});
        record.m_Time = {RandomSize(random), RandomText(random)};
    }
    if (random.Percent(50)) {
        record.m_Options = {{"turns", RandomText(random)}, {"time", RandomNumber(random)}, {"quiet", true}};
    }
}

}  // namespace

SPackingRecord RandomFreeRecord(CSeededRandom& random) {
    SPackingRecord record;
    AddRun(random, record);
    SFreeRecord free;
    for (int i = random.Range(0, 6); i > 0; --i) {
        free.m_Pieces.push_back(RandomPiece(random));
        record.m_Sources.push_back(RandomSource(random));
    }
    SFreePacking& packing = free.m_Packing;
    packing.m_Strip = {RandomSize(random) + 1e-9, RandomSize(random), RandomSize(random)};
    // Coarse enough for every piece: those that are too large for their grid are refused.
    packing.m_Grid = {random.Range(-6, GRID_EXPONENT_MOST)};
    for (int i = free.m_Pieces.empty() ? 0 : random.Range(0, 12); i > 0; --i) {
        packing.m_Placed.push_back(RandomPlacement(random, free.m_Pieces.size()));
    }
    packing.m_nHeight = RandomUnits(random);
    record.m_Packing = std::move(free);
    return record;
}

SPackingRecord RandomDroppedRecord(CSeededRandom& random) {
    SPackingRecord record;
    AddRun(random, record);
    SDroppedRecord dropped;
    for (int i = random.Range(0, 4); i > 0; --i) {
        const EPiece ePiece = random.Pick({EPiece::AlignedRectangle, EPiece::Star, EPiece::Comb,
                                           EPiece::Degenerate, EPiece::LooseBox, EPiece::SelfCrossing,
                                           EPiece::NegativeLocal, EPiece::Huge, EPiece::Distant});
        dropped.m_Pieces.push_back(MakePiece(random, ePiece));
        dropped.m_Names.push_back(RandomText(random));
        dropped.m_Holes.emplace_back();
        if (random.Percent(30)) {
            dropped.m_Holes.back().push_back(RandomRing(random));
        }
        record.m_Sources.push_back(RandomSource(random));
    }
    dropped.m_Packing.m_Strip = {random.Between(1.0F, 1000.0F), random.Between(1.0F, 1000.0F)};
    for (size_t i = 0; i < dropped.m_Pieces.size(); ++i) {
        dropped.m_Packing.m_Placed.push_back(
            {static_cast<int>(i), {random.Between(-9.0F, 500.0F), random.Between(0.0F, 1e7F), 0.0F}});
    }
    dropped.m_Packing.m_fHeight = random.Between(0.0F, 1e7F);
    record.m_Packing = std::move(dropped);
    return record;
}

}  // namespace nestrix::support
