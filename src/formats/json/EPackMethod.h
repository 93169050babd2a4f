#pragma once

namespace nestrix {

/// The two ways of packing.
enum class EPackMethod {
    FREE,  ///< pieces anywhere in the strip, without overlap
    DROP   ///< the window's search: pieces dropped one after another
};

}  // namespace nestrix
