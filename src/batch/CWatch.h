#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include "batch/CUpdater.h"

namespace nestrix {

/// A picture of the best packing so far, kept up to date in a file, and beside it a page that shows it live
/// in a browser. Pictures are drawn and written on another thread: see CUpdater.
///
/// Order of use: construct, see that there is no Fault, Offer pictures, Finish.
class CWatch {
public:
    /// @param path of the picture, or of a folder that it is to lie in; empty: nobody watches.
    explicit CWatch(const std::string& path);

    /// Why the picture or the page cannot be written; empty if they can. The page is written by then.
    [[nodiscard]] const std::string& Fault() const { return m_Fault; }

    /// Which of these files the picture or the page would take the place of; empty for none.
    [[nodiscard]] std::string FindReplaced(std::span<const std::string> files) const;

    [[nodiscard]] bool IsWanted() const { return !m_Picture.empty(); }

    /// Writes the page and begins to keep the picture up to date.
    void Begin();

    /// There is a better packing. Any thread.
    /// @param draw gives the picture as SVG; it is called later, on another thread, or never.
    void Offer(std::function<std::string()> draw);

    /// Draws what was offered last, if that has not been drawn yet.
    /// @return why a picture could not be written; empty if all could.
    [[nodiscard]] std::string Finish();

private:
    void Write(const std::function<std::string()>& draw);

    std::string m_Picture;
    std::string m_Page;
    std::string m_Fault;  ///< of the other thread alone while there is one
    std::optional<CUpdater> m_Updater;
};

}  // namespace nestrix
