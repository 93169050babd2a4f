#include "tests/support/CTemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace nestrix::support {

CTemporaryFolder::CTemporaryFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "nestrix-test-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder can be made");
    }
    m_Path = pattern;
}

CTemporaryFolder::~CTemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_Path, ignored);
}

std::string CTemporaryFolder::Write(std::string_view name, std::string_view content) const {
    std::string path = PathOf(name);
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    if (!file) {
        throw std::runtime_error("cannot write " + path);
    }
    return path;
}

}  // namespace nestrix::support
