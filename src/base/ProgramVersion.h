#pragma once

namespace nestrix {

/// Such as "1.0".
[[nodiscard]] char const* ProgramVersion();

}  // namespace nestrix
