#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "packing/SFreePacking.h"

namespace nestrix {

/// What ranks tell each other is made of words of 64 bits: MPI brings them from any machine to any other.
using CWords = std::vector<int64_t>;

/// Takes words apart in the order in which they were put together.
class CWordReader {
public:
    explicit CWordReader(std::span<const int64_t> words) : m_Rest(words) {}

    /// The next one; 0 behind the last.
    [[nodiscard]] int64_t Whole();
    [[nodiscard]] double Number();

    /// A count of what follows, at least so many words for each; never more than there can be.
    [[nodiscard]] size_t Count(size_t nWordsOfEach);

    [[nodiscard]] bool IsAtEnd() const { return m_Rest.empty(); }

private:
    std::span<const int64_t> m_Rest;
};

void AddNumber(double number, CWords& words);
void AddCount(size_t nCount, CWords& words);

/// Adds where the pieces lie; the strip and the grid are not told.
void AddPacking(const SFreePacking& packing, CWords& words);

/// @param strip which all know; the grid is that for its width.
[[nodiscard]] SFreePacking ReadPacking(CWordReader& reader, const SFreeStrip& strip);

}  // namespace nestrix
