#pragma once

#include <string_view>

#include "formats/json/EPackMethod.h"
#include "formats/json/NamedValues.h"
#include "nest/PackFreely.h"

namespace nestrix {

// Words in our JSON files. The schemas in docs know them, too.

inline constexpr CNamedValues<EPackMethod, 2> METHOD_NAMES{
    {{EPackMethod::FREE, "free"}, {EPackMethod::DROP, "drop"}}};

inline constexpr CNamedValues<EPackEnd, 6> END_NAMES{{{EPackEnd::STEPS, "steps"},
                                                      {EPackEnd::SECONDS, "time"},
                                                      {EPackEnd::TARGET, "target"},
                                                      {EPackEnd::PATIENCE, "patience"},
                                                      {EPackEnd::STOPPED, "stopped"},
                                                      {EPackEnd::NOTHING_TO_GAIN, "nothing_to_gain"}}};

/// Which point of a piece a placement's x and y are the place of.
enum class EReference {
    CORNER,  ///< the lower left one of the bounding box of the outline as it was drawn
    ORIGIN   ///< 0, 0 of the outline's coordinates
};
inline constexpr CNamedValues<EReference, 2> REFERENCE_NAMES{
    {{EReference::CORNER, "corner"}, {EReference::ORIGIN, "origin"}}};

inline constexpr std::string_view RECORD_FORMAT = "nestrix-packing";

}  // namespace nestrix
