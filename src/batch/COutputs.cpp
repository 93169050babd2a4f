#include "batch/COutputs.h"

#include <algorithm>

namespace nestrix {

namespace {

std::string CannotWrite(const std::string& path, const std::string& fault) {
    return "cannot write " + path + ": " + fault;
}

}  // namespace

COutputs::COutputs(const std::vector<SOutputRequest>& requests) {
    for (const SOutputRequest& request : requests) {
        m_Outputs.emplace_back(request);
    }
}

std::string COutputs::FindClash(std::span<const std::string> inputs) const {
    for (size_t i = 0; i < m_Outputs.size(); ++i) {
        const SOutput& output = m_Outputs[i];
        for (const std::string& input : inputs) {
            if (output.m_File.WouldReplace(input)) {
                return output.m_Request.m_Path + " would take the place of " + input;
            }
        }
        for (size_t j = 0; j < i; ++j) {
            if (output.m_File.IsSameAs(m_Outputs[j].m_File)) {
                return std::string(output.m_Request.m_pFormat->m_pOption) + " " + output.m_Request.m_Path +
                       " would take the place of " + m_Outputs[j].m_Request.m_pFormat->m_pOption + " " +
                       m_Outputs[j].m_Request.m_Path;
            }
        }
    }
    return {};
}

std::vector<std::string> COutputs::Faults() const {
    std::vector<std::string> faults;
    for (const SOutput& output : m_Outputs) {
        if (!output.m_File.Fault().empty()) {
            faults.push_back(CannotWrite(output.m_Request.m_Path, output.m_File.Fault()));
        }
    }
    return faults;
}

void COutputs::WriteEarly(const SPackOutcome& outcome) {
    for (SOutput& output : m_Outputs) {
        if (output.m_Request.m_pFormat->m_bOfRecord && output.m_File.IsReplaced()) {
            (void)output.m_File.Write(output.m_Request.m_pFormat->m_pWrite(outcome));
        }
    }
}

std::vector<std::string> COutputs::Write(const SPackOutcome& outcome) {
    std::vector<std::string> faults;
    for (SOutput& output : m_Outputs) {
        const std::string content = output.m_Request.m_pFormat->m_pWrite(outcome);
        const std::string fault =
            content.empty() ? "the packing is too large to draw" : output.m_File.Write(content);
        if (!fault.empty()) {
            faults.push_back(CannotWrite(output.m_Request.m_Path, fault));
        }
    }
    return faults;
}

}  // namespace nestrix
