#pragma once

#include <string>

namespace nestrix::support {

/// While it lives, standard output goes to a file in memory instead. For one thread at a time; captures must
/// nest.
class CStdoutCapture {
public:
    CStdoutCapture();
    ~CStdoutCapture();
    CStdoutCapture(const CStdoutCapture&) = delete;
    CStdoutCapture& operator=(const CStdoutCapture&) = delete;

    /// Everything printed since the capture began.
    [[nodiscard]] std::string Text() const;

private:
    int m_nCaptured;  ///< descriptor of the file in memory
    int m_nOutput;    ///< descriptor of the real standard output
};

/// What `action()` prints.
template <class TAction>
[[nodiscard]] std::string PrintedBy(TAction&& action) {
    const CStdoutCapture capture;
    action();
    return capture.Text();
}

}  // namespace nestrix::support
