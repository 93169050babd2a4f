#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <span>

namespace nestrix::support {

/// A stream of draws that is the same with every compiler and library: the generator is fixed by the
/// language, and the mapping to ranges is our own, since std::uniform_int_distribution and its kin may
/// differ.
class CSeededRandom {
public:
    explicit CSeededRandom(uint64_t nSeed) : m_Generator(nSeed) {}

    /// A whole number of nLow .. nHigh, both included.
    int Range(int nLow, int nHigh) {
        const auto nSpan = static_cast<uint64_t>(static_cast<int64_t>(nHigh) - nLow + 1);
        return static_cast<int>(nLow + static_cast<int64_t>(m_Generator() % nSpan));
    }

    size_t Index(size_t nCount) { return static_cast<size_t>(m_Generator() % nCount); }

    /// In [0, 1), a multiple of 2^−24, so that a float holds it exactly.
    float Unit() { return static_cast<float>(m_Generator() >> 40U) * 0x1p-24F; }

    /// In [fLow, fHigh].
    float Between(float fLow, float fHigh) { return fLow + (fHigh - fLow) * Unit(); }

    /// A multiple of a quarter in [nLow, nHigh].
    float Quarter(int nLow, int nHigh) { return static_cast<float>(Range(4 * nLow, 4 * nHigh)) * 0.25F; }

    /// True with the given probability in percent.
    bool Percent(int nChance) { return Range(0, 99) < nChance; }

    template <class T>
    const T& Pick(std::span<const T> choices) {
        return choices[Index(choices.size())];
    }

    template <class T>
    T Pick(std::initializer_list<T> choices) {
        return choices.begin()[Index(choices.size())];
    }

private:
    std::mt19937_64 m_Generator;
};

}  // namespace nestrix::support
