#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <span>
#include <string>
#include <thread>

namespace nestrix {

/// A picture of the best packing so far, kept up to date in a file, and beside it a page that shows it live
/// in a browser. Pictures are drawn and written on a thread of its own, at most one a second.
///
/// Order of use: construct, see that there is no Fault, Offer pictures, Finish.
class CWatch {
public:
    /// @param path of the picture, or of a folder that it is to lie in; empty: nobody watches.
    explicit CWatch(const std::string& path);
    ~CWatch();
    CWatch(const CWatch&) = delete;
    CWatch& operator=(const CWatch&) = delete;

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
    void Run();
    void Write(const std::function<std::string()>& draw);

    std::string m_Picture;
    std::string m_Page;
    std::string m_Fault;  ///< of the thread alone while it runs
    std::mutex m_Mutex;   ///< guards all below but the thread
    std::condition_variable m_Wake;
    std::function<std::string()> m_Draw;  ///< of what was offered last; empty once it is drawn
    bool m_bOver = false;
    std::thread m_Thread;
};

}  // namespace nestrix
