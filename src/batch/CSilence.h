#pragma once

namespace nestrix {

/// While it lives, what the process prints on standard output is lost: the search by dropping prints its
/// progress itself. One at a time, while no other thread prints.
class CSilence {
public:
    /// @param bWanted whether this is to do anything.
    explicit CSilence(bool bWanted);
    ~CSilence();
    CSilence(const CSilence&) = delete;
    CSilence& operator=(const CSilence&) = delete;

private:
    int m_nOutput = -1;  ///< where standard output went; -1: it still does
};

}  // namespace nestrix
