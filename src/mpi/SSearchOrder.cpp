#include "mpi/SSearchOrder.h"

#include <bit>

namespace nestrix {

namespace {

void AddRing(const CRing& ring, CWords& words) {
    AddCount(ring.size(), words);
    for (const SPoint& point : ring) {
        AddNumber(point.m_X, words);
        AddNumber(point.m_Y, words);
    }
}

CRing ReadRing(CWordReader& reader) {
    CRing ring(reader.Count(2));
    for (SPoint& point : ring) {
        point.m_X = reader.Number();
        point.m_Y = reader.Number();
    }
    return ring;
}

void AddPiece(const SPiece& piece, CWords& words) {
    words.push_back(piece.m_nQuantity);
    words.push_back(piece.m_bMirrored ? 1 : 0);
    words.push_back(piece.m_Turns.m_bAny ? 1 : 0);
    AddCount(piece.m_Turns.m_Degrees.size(), words);
    for (const double degrees : piece.m_Turns.m_Degrees) {
        AddNumber(degrees, words);
    }
    AddRing(piece.m_Shape.m_Outline, words);
    AddCount(piece.m_Shape.m_Holes.size(), words);
    for (const CRing& hole : piece.m_Shape.m_Holes) {
        AddRing(hole, words);
    }
}

SPiece ReadPiece(CWordReader& reader) {
    SPiece piece;
    piece.m_nQuantity = static_cast<int>(reader.Whole());
    piece.m_bMirrored = reader.Whole() != 0;
    piece.m_Turns.m_bAny = reader.Whole() != 0;
    piece.m_Turns.m_Degrees.resize(reader.Count(1));
    for (double& degrees : piece.m_Turns.m_Degrees) {
        degrees = reader.Number();
    }
    piece.m_Shape.m_Outline = ReadRing(reader);
    piece.m_Shape.m_Holes.resize(reader.Count(1));
    for (CRing& hole : piece.m_Shape.m_Holes) {
        hole = ReadRing(reader);
    }
    return piece;
}

void AddOptional(const std::optional<double>& number, CWords& words) {
    words.push_back(number ? 1 : 0);
    AddNumber(number.value_or(0.0), words);
}

std::optional<double> ReadOptional(CWordReader& reader) {
    const bool bThere = reader.Whole() != 0;
    const double number = reader.Number();
    return bThere ? std::optional(number) : std::nullopt;
}

void AddSettings(const SPackSettings& settings, CWords& words) {
    words.push_back(std::bit_cast<int64_t>(settings.m_nSeed));
    words.push_back(settings.m_nThreads);
    words.push_back(settings.m_bUseHoles ? 1 : 0);
    const SPackLimits& limits = settings.m_Limits;
    words.push_back(limits.m_nSteps ? 1 : 0);
    words.push_back(std::bit_cast<int64_t>(limits.m_nSteps.value_or(0)));
    for (const auto* pLimit :
         {&limits.m_Seconds, &limits.m_TargetHeight, &limits.m_TargetDensity, &limits.m_Patience}) {
        AddOptional(*pLimit, words);
    }
}

SPackSettings ReadSettings(CWordReader& reader) {
    SPackSettings settings;
    settings.m_nSeed = std::bit_cast<uint64_t>(reader.Whole());
    settings.m_nThreads = static_cast<int>(reader.Whole());
    settings.m_bUseHoles = reader.Whole() != 0;
    SPackLimits& limits = settings.m_Limits;
    const bool bSteps = reader.Whole() != 0;
    const auto nSteps = std::bit_cast<uint64_t>(reader.Whole());
    limits.m_nSteps = bSteps ? std::optional(nSteps) : std::nullopt;
    for (auto* pLimit :
         {&limits.m_Seconds, &limits.m_TargetHeight, &limits.m_TargetDensity, &limits.m_Patience}) {
        *pLimit = ReadOptional(reader);
    }
    return settings;
}

}  // namespace

CWords WordsOf(const SSearchOrder& order) {
    CWords words;
    for (const double length : {order.m_Strip.m_Width, order.m_Strip.m_Spacing, order.m_Strip.m_Margin}) {
        AddNumber(length, words);
    }
    AddSettings(order.m_Settings, words);
    AddCount(order.m_Pieces.size(), words);
    for (const SPiece& piece : order.m_Pieces) {
        AddPiece(piece, words);
    }
    if (order.m_Start) {
        AddPacking(*order.m_Start, words);
    }
    return words;
}

SSearchOrder ReadOrder(const CWords& words) {
    CWordReader reader(words);
    SSearchOrder order;
    for (double* const pLength :
         {&order.m_Strip.m_Width, &order.m_Strip.m_Spacing, &order.m_Strip.m_Margin}) {
        *pLength = reader.Number();
    }
    order.m_Settings = ReadSettings(reader);
    order.m_Pieces.resize(reader.Count(1));
    for (SPiece& piece : order.m_Pieces) {
        piece = ReadPiece(reader);
    }
    if (!reader.IsAtEnd()) {
        order.m_Start = ReadPacking(reader, order.m_Strip);
    }
    return order;
}

}  // namespace nestrix
