#pragma once

namespace nestrix::support {

/// How many random cases a test tries: the given number in the ordinary run, a quarter of it in programs that
/// a sanitizer or want of optimisation slows down, and a multiple of it where the environment variable
/// NESTRIX_CASES_FACTOR says so, as it does for the long run.
[[nodiscard]] int RandomCases(int nOrdinary);

}  // namespace nestrix::support
