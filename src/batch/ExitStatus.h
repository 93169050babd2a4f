#pragma once

namespace nestrix {

/// Exit statuses of the program.
inline constexpr int BATCH_DONE = 0;
inline constexpr int BATCH_FAILED = 1;     ///< the result could not be made, printed or written, or what was
                                           ///< looked into is not as it should be
inline constexpr int BATCH_BAD_INPUT = 2;  ///< the options or the inputs are at fault
inline constexpr int BATCH_SIGNALLED = 128;  ///< and the signal's number: stopped, with the best so far

}  // namespace nestrix
