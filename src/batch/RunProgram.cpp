#include "batch/RunProgram.h"

#include <errno.h>
#include <fcntl.h>
#include <signal.h>

#include <cstdio>
#include <exception>

#include "base/StandardStreams.h"
#include "batch/Complaints.h"
#include "batch/ExitStatus.h"

namespace nestrix {

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

int RunProgram(const std::function<int()>& work) {
    OpenMissingStandardStreams(O_RDONLY);
    OutliveFailedWrites();
    // Each line is seen when it is written, also behind a pipe.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    int nStatus = BATCH_FAILED;
    try {
        nStatus = work();
    } catch (const std::exception& error) {
        // The standard library's own, such as for memory that is not there.
        std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, error.what());
    }
    if (!IsOutputComplete()) {
        Complain("standard output could not be written");
        return nStatus == BATCH_BAD_INPUT ? nStatus : BATCH_FAILED;
    }
    return nStatus;
}

}  // namespace nestrix
