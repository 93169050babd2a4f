#include "batch/CWatch.h"

#include <filesystem>
#include <utility>

#include "batch/WatchPage.h"
#include "formats/CWholeFile.h"

namespace nestrix {

namespace fs = std::filesystem;

namespace {

std::string WriteFile(const std::string& path, const std::string& content) {
    CWholeFile file(path);
    const std::string fault = file.Fault().empty() ? file.Write(content) : file.Fault();
    return fault.empty() ? "" : "cannot write " + path + ": " + fault;
}

std::string FaultOf(const std::string& path) {
    const CWholeFile file(path);
    return file.Fault().empty() ? "" : "cannot write " + path + ": " + file.Fault();
}

}  // namespace

CWatch::CWatch(const std::string& path) {
    if (path.empty()) {
        return;
    }
    std::error_code error;
    const bool bFolder = path.ends_with('/') || fs::is_directory(path, error);
    const fs::path picture = bFolder ? fs::path(path) / "packing.svg" : fs::path(path);
    m_Picture = picture;
    m_Page = fs::path(picture).replace_extension(".html");
    m_Fault =
        m_Picture == m_Page ? m_Picture + " is the name of the page beside the picture" : FaultOf(m_Picture);
    m_Fault = m_Fault.empty() ? FaultOf(m_Page) : m_Fault;
}

std::string CWatch::FindReplaced(std::span<const std::string> files) const {
    for (const std::string& watched : {m_Picture, m_Page}) {
        for (const std::string& file : files) {
            if (!watched.empty() && CWholeFile(watched).WouldReplace(file)) {
                return watched + " would take the place of " + file;
            }
        }
    }
    return {};
}

void CWatch::Begin() {
    if (IsWanted()) {
        m_Fault = WriteFile(m_Page, WatchPage(fs::path(m_Picture).filename()));
        m_Updater.emplace();
    }
}

void CWatch::Offer(std::function<std::string()> draw) {
    if (m_Updater) {
        m_Updater->Offer([this, draw = std::move(draw)] { Write(draw); });
    }
}

std::string CWatch::Finish() {
    m_Updater.reset();
    return m_Fault;
}

void CWatch::Write(const std::function<std::string()>& draw) {
    const std::string picture = draw();
    const std::string fault = picture.empty() ? "" : WriteFile(m_Picture, picture);
    m_Fault = m_Fault.empty() ? fault : m_Fault;
}

}  // namespace nestrix
