#pragma once

#include "base/CRelaxed.h"

namespace nestrix {

/// Hears of a search, on the search's own thread, and tells it when to end.
class CSearchSink {
public:
    /// A generation is complete, and all its statistics are written. 0 is the first.
    virtual void GenerationDone(int nGeneration) = 0;

    /// Whether the search is to end with its last complete generation. Asked between any two children.
    [[nodiscard]] virtual bool IsToStop() const = 0;

    /// The request to leave at once, within a placement and without another report or line; null if there
    /// will be none. The same whenever it is asked for. The best of the search is then the best of what
    /// was placed, if anything was; all else is good for nothing.
    [[nodiscard]] virtual const CRelaxed<bool>* AbandonRequest() const { return nullptr; }

protected:
    ~CSearchSink() = default;
};

}  // namespace nestrix
