#pragma once

#include <optional>
#include <string_view>

namespace nestrix {

/// What lengths of a drawing are counted in.
enum class EUnit { MILLIMETRE, CENTIMETRE, METRE, INCH, FOOT, POINT, PIXEL };

/// How long one of it is. A pixel is 1/96 inch, as style sheets have it; a point 1/72.
[[nodiscard]] double MillimetresIn(EUnit eUnit);

/// As it is written behind a number: "mm", "cm", "m", "in", "ft", "pt", "px".
[[nodiscard]] std::string_view NameOf(EUnit eUnit);

/// The unit of that name, in capitals or not; none for any other text.
[[nodiscard]] std::optional<EUnit> FindUnit(std::string_view name);

}  // namespace nestrix
