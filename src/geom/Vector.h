#pragma once

/// A point or a displacement in the strip's units: x to the right, y upward. z is carried, copied and
/// added like the others, but stays 0 in this system.
struct mgVector3 {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    friend constexpr bool operator==(const mgVector3&, const mgVector3&) = default;
};

inline constexpr mgVector3 MG_VECTOR3_X{1.0F, 0.0F, 0.0F};
inline constexpr mgVector3 MG_VECTOR3_Y{0.0F, 1.0F, 0.0F};
inline constexpr mgVector3 MG_VECTOR3_Z{0.0F, 0.0F, 1.0F};

[[nodiscard]] constexpr mgVector3 operator+(const mgVector3& a, const mgVector3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

[[nodiscard]] constexpr mgVector3 operator-(const mgVector3& a, const mgVector3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

namespace nestrix {

[[nodiscard]] constexpr float DotProduct(const mgVector3& a, const mgVector3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// The z component of direction × up: positive where the direction leads to the right of up, 0 where it
/// runs along up. With up = MG_VECTOR3_Y it equals direction.x.
[[nodiscard]] constexpr float SideValue(const mgVector3& direction, const mgVector3& up) {
    return up.y * direction.x - up.x * direction.y;
}

}  // namespace nestrix
