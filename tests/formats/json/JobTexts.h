#pragma once

#include <string>
#include <vector>

namespace nestrix::support {

/// A job that says all there is to say of free packing.
extern const std::string WHOLE_JOB;

/// A job for the window's search.
extern const std::string DROP_JOB;

/// One fault to be planted into WHOLE_JOB.
struct SJobFault {
    std::string m_Part;
    std::string m_Other;    ///< what takes its place
    std::string m_Message;  ///< part of what is said then
};
[[nodiscard]] std::vector<SJobFault> JobFaults();

}  // namespace nestrix::support
