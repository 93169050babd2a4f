#pragma once

#include <string>
#include <vector>

#include "tests/reference/SearchAgreement.h"

namespace nestrix {

/// Searches whose whole history is kept in a file, so that a change of any draw, any rounding or any line
/// shows, with every compiler and at every level of optimisation.
struct SGoldenCase {
    std::string m_Name;  ///< also the file's, without ".txt"
    reference::SSearchCase m_Search;
};

[[nodiscard]] std::vector<SGoldenCase> GoldenCases();

/// Every line that the search prints, then the best chromosome: its fitness, and a line with order key and
/// offset per gene. Floats are written in hexadecimal, which loses nothing.
[[nodiscard]] std::string RunGoldenCase(const SGoldenCase& goldenCase);

}  // namespace nestrix
