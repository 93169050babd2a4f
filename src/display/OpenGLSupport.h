#pragma once

namespace nestrix {

/// Whether the screen can show the program's canvases. False where it has no GLX, where GLX makes no
/// contexts, as over most remote connections, or where the toolkit does not draw through X11.
///
/// The toolkit must have started. Asks once: the answer holds as long as the program runs.
[[nodiscard]] bool IsOpenGLAvailable();

}  // namespace nestrix
