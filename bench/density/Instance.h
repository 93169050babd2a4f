#pragma once

#include <string>
#include <vector>

#include "packing/SFreePacking.h"

namespace nestrix::bench {

/// A packing problem from the literature or made for measuring.
struct SInstance {
    std::string m_Name;
    SFreeStrip m_Strip;
    std::vector<SPiece> m_Pieces;
};

/// Reads an instance in the form in which the field publishes them: the strip lies on its side there, with a
/// given height and a length that is to be least, so everything is turned by a quarter.
/// @throws std::exception when the file cannot be read or is not of that form.
[[nodiscard]] SInstance ReadInstance(const std::string& path);

}  // namespace nestrix::bench
