#include "mpi/Words.h"

#include <algorithm>
#include <bit>

namespace nestrix {

int64_t CWordReader::Whole() {
    if (m_Rest.empty()) {
        return 0;
    }
    const int64_t nWord = m_Rest.front();
    m_Rest = m_Rest.subspan(1);
    return nWord;
}

double CWordReader::Number() {
    return std::bit_cast<double>(Whole());
}

size_t CWordReader::Count(size_t nWordsOfEach) {
    const auto nCount = static_cast<size_t>(std::max<int64_t>(Whole(), 0));
    return std::min(nCount, m_Rest.size() / nWordsOfEach);
}

void AddNumber(double number, CWords& words) {
    words.push_back(std::bit_cast<int64_t>(number));
}

void AddCount(size_t nCount, CWords& words) {
    words.push_back(static_cast<int64_t>(nCount));
}

void AddPacking(const SFreePacking& packing, CWords& words) {
    words.push_back(packing.m_nHeight);
    AddCount(packing.m_Placed.size(), words);
    for (const SFreePlacement& placement : packing.m_Placed) {
        words.push_back(placement.m_nPiece);
        words.push_back(placement.m_bMirrored ? 1 : 0);
        AddNumber(placement.m_Degrees, words);
        words.push_back(placement.m_At.m_nX);
        words.push_back(placement.m_At.m_nY);
    }
}

SFreePacking ReadPacking(CWordReader& reader, const SFreeStrip& strip) {
    constexpr size_t WORDS_OF_A_PLACEMENT = 5;
    SFreePacking packing{strip, GridFor(strip.m_Width), {}, reader.Whole()};
    packing.m_Placed.resize(reader.Count(WORDS_OF_A_PLACEMENT));
    for (SFreePlacement& placement : packing.m_Placed) {
        placement.m_nPiece = static_cast<int>(reader.Whole());
        placement.m_bMirrored = reader.Whole() != 0;
        placement.m_Degrees = reader.Number();
        placement.m_At.m_nX = reader.Whole();
        placement.m_At.m_nY = reader.Whole();
    }
    return packing;
}

}  // namespace nestrix
