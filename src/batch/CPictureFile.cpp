#include "batch/CPictureFile.h"

#include <algorithm>

namespace nestrix {

CPictureFile::CPictureFile(const std::string& path) : m_Path(path) {
    if (!path.empty()) {
        m_File.emplace(path);
    }
}

std::string CPictureFile::FindReplaced(std::span<const std::string> files) const {
    const auto replaced = std::find_if(files.begin(), files.end(), [this](const std::string& file) {
        return m_File && m_File->WouldReplace(file);
    });
    return replaced != files.end() ? *replaced : std::string();
}

std::string CPictureFile::Fault() const {
    return m_File ? InWords(m_File->Fault()) : std::string();
}

std::string CPictureFile::Write(const std::string& picture) {
    return picture.empty() ? "the packing is too large to draw" : InWords(m_File->Write(picture));
}

std::string CPictureFile::InWords(const std::string& fault) const {
    return fault.empty() ? fault : "cannot write " + m_Path + ": " + fault;
}

}  // namespace nestrix
