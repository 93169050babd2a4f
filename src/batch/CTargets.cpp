#include "batch/CTargets.h"

#include <algorithm>
#include <cctype>
#include <deque>
#include <filesystem>

#include "batch/Complaints.h"
#include "batch/ExitStatus.h"
#include "formats/CWholeFile.h"

namespace nestrix {

namespace fs = std::filesystem;

namespace {

/// A name that is one on every system: without what leads elsewhere, and not hidden.
std::string Harmless(std::string name) {
    constexpr std::string_view HARMFUL = "/\\:*?\"<>|";
    for (char& c : name) {
        if (HARMFUL.find(c) != std::string_view::npos || std::iscntrl(static_cast<unsigned char>(c)) != 0) {
            c = '_';
        }
    }
    name.resize(std::min(name.size(), size_t{100}));
    return name.empty() || name.front() == '.' ? "_" + name : name;
}

std::string CannotWrite(const std::string& path, const std::string& fault) {
    return "cannot write " + path + ": " + fault;
}

}  // namespace

CTargets::CTargets(const std::string& word) : m_Word(word), m_bFolder(word.ends_with('/')) {
    std::error_code error;
    m_bFolder = m_bFolder || fs::is_directory(word, error);
}

std::string CTargets::Extension() const {
    std::string extension = fs::path(m_Word).extension();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

void CTargets::Add(const std::string& name, const std::string& extension, std::string content) {
    if (!m_bFolder) {
        m_Files.push_back({m_Word, std::move(content)});
        return;
    }
    const std::string wished = Harmless(name);
    std::string given = wished;
    for (int i = 2; !m_Names.insert(given).second; ++i) {
        given = wished + "-" + std::to_string(i);
    }
    m_Files.push_back({fs::path(m_Word) / (given + extension), std::move(content)});
}

int CTargets::Write(std::span<const std::string> inputs) const {
    std::error_code error;
    if (m_bFolder && !fs::is_directory(m_Word, error) && !fs::create_directories(m_Word, error)) {
        Complain(CannotWrite(m_Word, error.message()));
        return BATCH_FAILED;
    }
    std::deque<CWholeFile> files;
    bool bFaulty = false;
    for (const SFile& file : m_Files) {
        const CWholeFile& target = files.emplace_back(file.m_Path);
        for (const std::string& input : inputs) {
            if (target.WouldReplace(input)) {
                Complain(file.m_Path + " would take the place of " + input);
                return BATCH_BAD_INPUT;
            }
        }
        bFaulty = IsFaulty(target.Fault().empty() ? "" : CannotWrite(file.m_Path, target.Fault())) || bFaulty;
    }
    for (size_t i = 0; i < m_Files.size() && !bFaulty; ++i) {
        const std::string fault = files[i].Write(m_Files[i].m_Content);
        bFaulty = IsFaulty(fault.empty() ? "" : CannotWrite(m_Files[i].m_Path, fault));
    }
    return bFaulty ? BATCH_FAILED : BATCH_DONE;
}

}  // namespace nestrix
