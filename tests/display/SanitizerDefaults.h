#pragma once

namespace nestrix::support {

/// What the leak sanitizer must forgive a program with the toolkit in it, in its own notation: leaks within
/// the toolkit's libraries, never our own.
inline constexpr char TOOLKIT_LEAKS[] =
    // Fonts looked up by name stay in the cache until the process ends.
    "leak:libfontconfig\n"
    // Types, signals and settings are registered once and kept.
    "leak:libglib-2.0\n"
    "leak:libgobject-2.0\n"
    // Tables of styles, icons and input methods.
    "leak:libgtk-3\n"
    "leak:libgdk-3\n"
    // Connections to the desktop's message bus are never closed.
    "leak:libdbus-1\n"
    // Font maps, one per screen.
    "leak:libpango\n"
    // Software rendering keeps its screens and its caches of shaders.
    "leak:swrast_dri\n"
    "leak:libGLX_mesa\n"
    // The dynamic linker's books about libraries, found through storage that LEAK_OPTIONS leave out.
    "leak:ld-linux\n"
    // And its last error, of a library that a renderer asked for and does without.
    "leak:_dlerror_run\n";

/// How the leak sanitizer is to look. It would crash when one of the renderer's or the toolkit's threads ends
/// while it reads that thread's own storage, so it leaves such storage out.
inline constexpr char LEAK_OPTIONS[] = "print_suppressions=0:use_tls=0";

/// The thread sanitizer cannot see the locks within the toolkit's libraries, which were built without it,
/// and would take what they guard for races.
inline constexpr char TOOLKIT_RACES[] = "ignore_noninstrumented_modules=1";

}  // namespace nestrix::support
