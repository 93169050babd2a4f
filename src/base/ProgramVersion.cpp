#include "base/ProgramVersion.h"

namespace nestrix {

char const* ProgramVersion() {
    return NESTRIX_VERSION;  // the build's own
}

}  // namespace nestrix
