#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "drawing/SFinding.h"

namespace nestrix {

/// Collects what there is to say about one file.
class CFindingLog {
public:
    /// Of many findings of a kind so many are named one by one.
    static constexpr int NAMED_MOST = 20;

    explicit CFindingLog(std::string file) : m_File(std::move(file)) {}

    /// @param many what several of the kind are called: "lines that are drawn twice".
    void Add(int nLine, SFinding::ESeverity eSeverity, const std::string& message, const std::string& many);

    /// In the order of their lines; at the end, how many were not named. The log is empty afterwards.
    [[nodiscard]] std::vector<SFinding> Take();

private:
    struct SKind {
        int m_nCount = 0;
        SFinding::ESeverity m_eSeverity = SFinding::ESeverity::NOTE;
    };

    std::string m_File;
    std::vector<SFinding> m_Findings;
    std::map<std::string, SKind> m_Kinds;
};

}  // namespace nestrix
