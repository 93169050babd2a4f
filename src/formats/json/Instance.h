#pragma once

#include <string>
#include <vector>

#include "formats/json/SReading.h"
#include "packing/SFreePacking.h"

namespace nestrix {

/// A packing problem: in the form in which the field publishes its benchmark sets, or made for measuring.
///
/// The published strip lies on its side, with a given height and a length that is to be least. Reading turns
/// everything by a quarter clockwise, so that the strip stands; writing turns it back.
struct SInstance {
    std::string m_Name;
    SFreeStrip m_Strip;
    std::vector<SPiece> m_Pieces;
    std::vector<std::string> m_Drawings;  ///< the DXF file that each piece is published with, empty for none;
                                          ///< as many as pieces, or none at all
};

/// Reads a published instance. Never throws.
[[nodiscard]] SReading<SInstance> ReadInstance(const std::string& path);

/// The whole file. What the published form has no words for is left out: see LostInInstance.
[[nodiscard]] std::string WriteInstance(const SInstance& instance);

/// What WriteInstance leaves out, each in words for a user.
[[nodiscard]] std::vector<std::string> LostInInstance(const SInstance& instance);

}  // namespace nestrix
