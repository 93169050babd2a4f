#include "tests/formats/dxf/PlanLook.h"

#include <cstdio>
#include <memory>
#include <utility>

#include "tests/support/CTemporaryFolder.h"

namespace nestrix::support {

std::vector<std::string> LookAtPlan(const std::string& document) {
    const CTemporaryFolder folder;
    const std::string command = "./look-at-plan " + folder.Write("plan.dxf", document) + " 2>&1";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::vector<std::string> lines;
    std::string text;
    for (int nLetter = 0; (nLetter = std::fgetc(pipe.get())) != EOF;) {
        if (nLetter == '\n') {
            lines.push_back(std::exchange(text, {}));
        } else {
            text.push_back(static_cast<char>(nLetter));
        }
    }
    return lines;
}

}  // namespace nestrix::support
