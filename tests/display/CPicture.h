#pragma once

#include <wx/glcanvas.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace nestrix::support {

struct SColour {
    std::uint8_t m_nRed = 0;
    std::uint8_t m_nGreen = 0;
    std::uint8_t m_nBlue = 0;

    friend bool operator==(const SColour&, const SColour&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const SColour& colour);
};

inline constexpr SColour WHITE{255, 255, 255};
inline constexpr SColour BLACK{0, 0, 0};
inline constexpr SColour GREY{153, 153, 153};
inline constexpr SColour RED{255, 0, 0};
inline constexpr SColour BLUE{0, 0, 255};

/// The pixels of a canvas as it was last painted. The origin is at the bottom left, as in OpenGL.
class CPicture {
public:
    /// Reads the pixels of the current OpenGL context.
    CPicture(int nWidth, int nHeight);

    [[nodiscard]] int Width() const { return m_nWidth; }
    [[nodiscard]] int Height() const { return m_nHeight; }

    /// White outside the picture.
    [[nodiscard]] SColour At(int nX, int nY) const;

    /// The pixel that a position falls into.
    [[nodiscard]] SColour At(float fX, float fY) const;

    /// Whether the position is in a pixel of this colour, or on the edge of one: OpenGL leaves it open which
    /// side of an edge is drawn.
    [[nodiscard]] bool Touches(SColour colour, float fX, float fY) const;

    /// How many pixels with nLeft <= x < nRight and nBottom <= y < nTop have this colour.
    [[nodiscard]] int Count(SColour colour, int nLeft, int nBottom, int nRight, int nTop) const;

    /// Whether anything is drawn in that rectangle.
    [[nodiscard]] bool IsBlank(int nLeft, int nBottom, int nRight, int nTop) const;

    /// Says how many pixels are other than in the expected picture, and where the first of them is; empty if
    /// none are.
    [[nodiscard]] std::string DifferenceFrom(const CPicture& expected) const;

    friend bool operator==(const CPicture&, const CPicture&) = default;

private:
    int m_nWidth;
    int m_nHeight;
    std::vector<std::uint8_t> m_Pixels;
};

}  // namespace nestrix::support
