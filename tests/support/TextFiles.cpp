#include "tests/support/TextFiles.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/support/PolygonMaking.h"

namespace nestrix::support {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    EXPECT_TRUE(std::ifstream(path)) << "cannot read " << path;
    return ReadIfThere(path);
}

std::string ReadIfThere(const fs::path& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

std::string SquareFile(float fSide) {
    return support::PolygonFileText(support::MakeSquare(fSide));
}

int CountOf(const std::string& part, const std::string& text) {
    int nCount = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) {
        ++nCount;
    }
    return nCount;
}

std::string Repeated(const std::string& argument, int nTimes) {
    std::string arguments;
    for (int i = 0; i < nTimes; ++i) {
        arguments += argument + " ";
    }
    return arguments;
}

int EntryCount(const fs::path& folder) {
    return static_cast<int>(std::distance(fs::directory_iterator(folder), {}));
}

}  // namespace nestrix::support
