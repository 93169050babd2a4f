#pragma once

#include <string>

namespace nestrix {

/// A page that shows a picture beside it, and shows it anew whenever it has changed. It asks nothing of the
/// network: it can be opened as a file.
/// @param picture the name of its file, without folder.
[[nodiscard]] std::string WatchPage(const std::string& picture);

}  // namespace nestrix
