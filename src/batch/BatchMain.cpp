#include <signal.h>

#include <cstdio>
#include <exception>
#include <iostream>

#include "BatchRun.h"

namespace {

int RunProgram(int argc, char const* const* argv) {
    SBatchOptions options;
    if (const std::optional<int> status = ParseBatchOptions(argc, argv, options)) {
        return *status;
    }
    return RunBatch(options);
}

/// Says whether everything printed has arrived. Only now is this known for the last lines.
bool IsOutputComplete() {
    const bool bStreamGood = std::cout.flush().good();
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 && bStreamGood;
}

}  // namespace

int main(int argc, char** argv) {
    // Each line is seen when it is written, also behind a pipe.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    // The reader of a pipe may go first, as "tee" does on Ctrl-C: the picture must still be drawn.
    signal(SIGPIPE, SIG_IGN);
    int nStatus = BATCH_FAILED;
    try {
        nStatus = RunProgram(argc, argv);
    } catch (const std::exception& error) {
        // The standard library's own, such as for memory that is not there.
        std::fprintf(stderr, "nestrix-batch: %s\n", error.what());
    }
    if (!IsOutputComplete()) {
        std::fprintf(stderr, "nestrix-batch: standard output could not be written\n");
        return nStatus == BATCH_DONE ? BATCH_FAILED : nStatus;
    }
    return nStatus;
}
