#pragma once

#include <cstdint>

namespace nestrix {

/// Random numbers that are the same on every machine: SplitMix64 (Steele, Lea, Flood: "Fast splittable
/// pseudorandom number generators", 2014). The standard library's distributions differ from one to the other.
class CRandom {
public:
    explicit CRandom(uint64_t nSeed) : m_nState(nSeed * STEP + 1) {}

    /// From 0 to 1, 1 excluded.
    double Share() { return static_cast<double>(Next() >> 11) * 0x1p-53; }
    double Between(double low, double high) { return low + (high - low) * Share(); }

    /// From 0 to nCount − 1.
    size_t Index(size_t nCount) { return static_cast<size_t>(((Next() >> 32) * nCount) >> 32); }

    /// Heads or tails.
    bool Toss() { return (Next() >> 63) != 0; }

private:
    static constexpr uint64_t STEP = 0x9E3779B97F4A7C15U;

    uint64_t Next() {
        m_nState += STEP;
        uint64_t n = m_nState;
        n = (n ^ (n >> 30)) * 0xBF58476D1CE4E5B9U;
        n = (n ^ (n >> 27)) * 0x94D049BB133111EBU;
        return n ^ (n >> 31);
    }

    uint64_t m_nState;
};

}  // namespace nestrix
