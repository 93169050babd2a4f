#pragma once

#include <span>
#include <string>
#include <string_view>

namespace nestrix {

/// The known word that somebody may have meant who wrote another one; empty where none is like it.
[[nodiscard]] std::string_view FindLikeliest(std::string_view written,
                                             std::span<const std::string_view> known);

}  // namespace nestrix
