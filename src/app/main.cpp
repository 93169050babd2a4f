#include <fcntl.h>

#include <cstdio>
#include <cstdlib>

#include "app/NestrixMain.h"
#include "base/StandardStreams.h"

using namespace nestrix;

// Registers the factory of the application object, which checks first that the program and the toolkit were
// built with the same options.
wxIMPLEMENT_APP_NO_MAIN(CNestrixApp);

int main(int argc, char** argv) {
    OpenMissingStandardStreams(O_RDWR);
    // Whoever reads the output through a pipe sees each line when it is written.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    // The toolkit's canvases draw through GLX, which a Wayland desktop offers to X11 programs only. Debian's
    // toolkit sees to that itself; others may not. The user's own choice of a backend stays.
    setenv("GDK_BACKEND", "x11", 0);
    return wxEntry(argc, argv);
}
