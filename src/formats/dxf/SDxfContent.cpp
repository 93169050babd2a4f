#include "formats/dxf/SDxfContent.h"

#include <algorithm>

namespace nestrix {

std::string Folded(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return name;
}

}  // namespace nestrix
