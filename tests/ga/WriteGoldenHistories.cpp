#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/ga/GoldenHistories.h"

using namespace nestrix;

/// Writes the golden histories anew into the folder that is named. Only on purpose: what it writes is what
/// the tests hold to be right from then on.
///
///     cmake --build build/release --target nestrix_write_golden_histories
///     build/release/tests/ga/nestrix_write_golden_histories tests/ga/golden
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    for (const SGoldenCase& goldenCase : GoldenCases()) {
        std::ofstream file(folder / (goldenCase.m_Name + ".txt"));
        file << RunGoldenCase(goldenCase);
        file.close();
        if (!file) {
            std::fprintf(stderr, "cannot write %s\n", goldenCase.m_Name.c_str());
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
