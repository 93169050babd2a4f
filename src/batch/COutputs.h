#pragma once

#include <deque>
#include <span>
#include <string>
#include <vector>

#include "batch/OutputFormats.h"
#include "formats/CWholeFile.h"

namespace nestrix {

/// The files that a result goes to. Constructed before the search, so that a bad path does not cost the
/// result: see CWholeFile.
class COutputs {
public:
    explicit COutputs(const std::vector<SOutputRequest>& requests);

    /// Why the requests cannot be meant: a file would take the place of one of these inputs, or of another
    /// output. Empty if they can.
    [[nodiscard]] std::string FindClash(std::span<const std::string> inputs) const;

    /// Why a file cannot be written, as far as that shows beforehand; one line for each.
    [[nodiscard]] std::vector<std::string> Faults() const;

    /// Writes what is made from the record alone and can be written over and over: so it is there even where
    /// the search never comes to its end. What cannot be written is told by Write.
    /// @param outcome may be without a picture and a table.
    void WriteEarly(const SPackOutcome& outcome);

    /// Writes all that can be written. Once.
    /// @return what could not, and why.
    [[nodiscard]] std::vector<std::string> Write(const SPackOutcome& outcome);

private:
    struct SOutput {
        explicit SOutput(const SOutputRequest& request) : m_Request(request), m_File(request.m_Path) {}

        SOutputRequest m_Request;
        CWholeFile m_File;
    };

    std::deque<SOutput> m_Outputs;  ///< files cannot be moved
};

}  // namespace nestrix
