#pragma once

#include <string>

/// Says why the file at `path` is not a sound polygon file, in words for a user; empty for a sound one.
///
/// CPolygon::ReadPolygon takes what it can get; this is for programs that would rather refuse. Sound means:
/// a regular file that can be opened, a count of at least three, as many vertices, a bounding box whose first
/// corner is the upper-right one, and finite numbers throughout. A box that does not enclose the vertices is
/// accepted, as it is by the format.
[[nodiscard]] std::string FindPolygonFileFault(char const* path);
