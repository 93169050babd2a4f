#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

// Runs a fuzz target over files instead of over inputs of its own making: the kept seeds and findings, in
// every ordinary build. Takes files and folders; fails when there is nothing to run.

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pBytes, size_t nBytes);

namespace {

void Replay(const std::filesystem::path& path) {
    std::fprintf(stderr, "%s\n", path.c_str());
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> content{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(content.data()), content.size());
}

/// Returns the number of files.
int ReplayAll(const std::filesystem::path& path) {
    if (!std::filesystem::is_directory(path)) {
        Replay(path);
        return 1;
    }
    int nFiles = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path)) {
        nFiles += ReplayAll(entry.path());
    }
    return nFiles;
}

}  // namespace

int main(int nArguments, char** pArguments) {
    int nFiles = 0;
    for (int i = 1; i < nArguments; ++i) {
        nFiles += ReplayAll(pArguments[i]);
    }
    std::printf("%d inputs\n", nFiles);
    return nFiles > 0 ? 0 : 1;
}
