#pragma once

namespace nestrix {

/// Opens the null device in the place of every standard stream that the program was started without.
///
/// The next file or connection to be opened would otherwise become standard output, and progress lines would
/// end up in it. At the very start of main, before anything is opened.
/// @param nAccess as for open(2). With O_RDONLY, writing fails: then nobody takes for arrived what is lost.
void OpenMissingStandardStreams(int nAccess);

}  // namespace nestrix
