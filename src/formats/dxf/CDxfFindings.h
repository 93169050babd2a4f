#pragma once

#include <map>
#include <string>
#include <vector>

#include "drawing/SFinding.h"

namespace nestrix {

/// Gathers what there is to say about a file, so that a file that repeats its faults a million times does not
/// fill the screen with them.
class CDxfFindings {
public:
    explicit CDxfFindings(std::string file) : m_File(std::move(file)) {}

    void Add(SFinding::ESeverity eSeverity, int nLine, const std::string& message);
    void Fault(int nLine, const std::string& message) { Add(SFinding::ESeverity::FAULT, nLine, message); }

    /// Says it once only: again and again the same message adds nothing.
    void AddOnce(SFinding::ESeverity eSeverity, int nLine, const std::string& message);

    /// Counts something that is left out; one finding for each kind, at its first line.
    void LeaveOut(const std::string& kind, int nLine);

    /// All of them, in the order in which they were found, those of what was left out last.
    [[nodiscard]] std::vector<SFinding> Take();

private:
    struct SLeftOut {
        int m_nFirstLine = 0;
        int m_nCount = 0;
    };

    std::string m_File;
    std::vector<SFinding> m_Findings;
    int m_nUnsaid = 0;
    std::map<std::string, SLeftOut> m_LeftOut;
};

}  // namespace nestrix
