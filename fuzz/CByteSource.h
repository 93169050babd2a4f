#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

namespace nestrix::fuzz {

/// Takes values from the front of an input; once it is used up, every value is 0.
class CByteSource {
public:
    explicit CByteSource(std::span<const uint8_t> bytes) : m_Bytes(bytes) {}

    [[nodiscard]] bool IsEmpty() const { return m_Bytes.empty(); }

    uint8_t Byte() {
        if (m_Bytes.empty()) {
            return 0;
        }
        const uint8_t nByte = m_Bytes.front();
        m_Bytes = m_Bytes.subspan(1);
        return nByte;
    }

    int SignedByte() { return static_cast<int8_t>(Byte()); }

    /// Less than nCount, which is at most 256.
    size_t Below(size_t nCount) { return Byte() % nCount; }

    /// Four bytes as they stand: any float there is.
    float AnyFloat() {
        uint32_t nBits = 0;
        for (int i = 0; i < 4; ++i) {
            nBits = nBits << 8 | Byte();
        }
        return std::bit_cast<float>(nBits);
    }

private:
    std::span<const uint8_t> m_Bytes;
};

}  // namespace nestrix::fuzz
