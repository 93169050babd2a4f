#include "batch/Improvements.h"

#include "base/NumberText.h"

namespace nestrix {

std::string WriteCsv(const std::vector<SImprovement>& improvements) {
    std::string table = "seconds,step,height,density\n";
    for (const SImprovement& improvement : improvements) {
        table.append(Decimals(improvement.m_Seconds, 3)).append(",");
        table.append(std::to_string(improvement.m_nStep)).append(",");
        table.append(ShortestDigits(improvement.m_Height)).append(",");
        table.append(Decimals(improvement.m_Density, 6)).append("\n");
    }
    return table;
}

}  // namespace nestrix
