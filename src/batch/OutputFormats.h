#pragma once

#include <span>
#include <string>
#include <vector>

#include "drawing/SCutPlan.h"
#include "formats/json/PackingRecord.h"

namespace CLI {
class App;
}

namespace nestrix {

/// All that a result is written from.
struct SPackOutcome {
    SCutPlan m_Plan;
    std::string m_Picture;  ///< as SVG; empty for what is too large to draw
    std::string m_Table;    ///< as CSV
    SPackingRecord m_Record;
};

/// A kind of file that a result can be written to.
struct SOutputFormat {
    char const* m_pOption;
    char const* m_pHelp;  ///< null for the table: commands have different ones
    std::string (*m_pWrite)(const SPackOutcome& outcome);  ///< the whole content
    bool m_bOfRecord = false;                              ///< made from the record alone
};

/// A file that a result is to be written to.
struct SOutputRequest {
    std::string m_Path;
    const SOutputFormat* m_pFormat;
};

/// The group of the help that these options are in.
inline constexpr char RESULT_GROUP[] = "Results";

/// Adds an option for each kind of file. Each can be given any number of times.
/// @param table what the table tells, in words for the help.
/// @param requests takes what was asked for; it outlives the parsing.
void AddOutputOptions(CLI::App& app, char const* pTable, std::vector<SOutputRequest>& requests);

}  // namespace nestrix
