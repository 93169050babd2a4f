#include "formats/PolygonPaths.h"

#include <algorithm>
#include <filesystem>

namespace nestrix {

namespace fs = std::filesystem;

namespace {

bool IsPolygonName(const fs::path& name) {
    return name.extension() == POLYGON_FILE_EXTENSION && name.native().front() != '.';
}

/// The folder's polygon files by name, and why it could not be listed; empty for a folder that could.
std::string ListFolder(const std::string& folder, std::vector<std::string>& files) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (IsPolygonName(entry->path().filename())) {
            files.push_back(entry->path().native());
        }
    }
    if (error) {
        return error.message();
    }
    std::sort(files.begin(), files.end());
    return files.empty() ? std::string("the folder holds no ") + POLYGON_FILE_EXTENSION + " files" : "";
}

}  // namespace

SPolygonPaths FindPolygonFiles(std::span<const std::string> paths) {
    SPolygonPaths found;
    for (const std::string& path : paths) {
        std::error_code error;
        if (!fs::is_directory(path, error)) {
            found.m_Files.push_back(path);
            continue;
        }
        std::vector<std::string> files;
        if (const std::string fault = ListFolder(path, files); !fault.empty()) {
            found.m_Faults.push_back(path + ": " + fault);
        }
        found.m_Files.insert(found.m_Files.end(), files.begin(), files.end());
    }
    return found;
}

}  // namespace nestrix
