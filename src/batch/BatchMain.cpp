#include <fcntl.h>
#include <signal.h>

#include <cstdio>
#include <exception>

#include "base/StandardStreams.h"
#include "batch/Commands.h"
#include "batch/ExitStatus.h"

using namespace nestrix;

namespace {

/// Has writing fail where by default it would end the program.
void OutliveFailedWrites() {
    // The reader of a pipe may go first, as "tee" does on Ctrl-C: the picture must still be drawn.
    signal(SIGPIPE, SIG_IGN);
    // Files may have a largest size.
    signal(SIGXFSZ, SIG_IGN);
}

/// Says whether everything printed has arrived, also through std::cout, which keeps nothing for itself. Only
/// now is this known for the last lines.
bool IsOutputComplete() {
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

}  // namespace

int main(int argc, char** argv) {
    OpenMissingStandardStreams(O_RDONLY);
    OutliveFailedWrites();
    // Each line is seen when it is written, also behind a pipe.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    int nStatus = BATCH_FAILED;
    try {
        nStatus = RunCommand(argc, argv);
    } catch (const std::exception& error) {
        // The standard library's own, such as for memory that is not there.
        std::fprintf(stderr, "nestrix-batch: %s\n", error.what());
    }
    if (!IsOutputComplete()) {
        std::fprintf(stderr, "nestrix-batch: standard output could not be written\n");
        return nStatus == BATCH_BAD_INPUT ? nStatus : BATCH_FAILED;
    }
    return nStatus;
}
