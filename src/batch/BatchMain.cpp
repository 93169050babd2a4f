#include "batch/Commands.h"
#include "batch/RunProgram.h"

int main(int argc, char** argv) {
    return nestrix::RunProgram([&] { return nestrix::RunCommand(argc, argv); });
}
