#pragma once

namespace nestrix {

/// 2^−31 in single precision: maps rand(), 0 .. 2^31 − 1, to 0 .. 1.
inline constexpr float GA_RANDOM_SCALE = 4.656613e-10F;

}  // namespace nestrix
