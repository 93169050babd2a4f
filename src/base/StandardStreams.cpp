#include "base/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

namespace nestrix {

void OpenMissingStandardStreams(int nAccess) {
    for (int nDescriptor = STDIN_FILENO; nDescriptor <= STDERR_FILENO; ++nDescriptor) {
        // A file takes the lowest free descriptor, which is this one: those below it have just been filled.
        if (fcntl(nDescriptor, F_GETFD) == -1) {
            (void)open("/dev/null", nAccess);
        }
    }
}

}  // namespace nestrix
