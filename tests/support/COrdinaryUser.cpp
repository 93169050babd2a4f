#include "tests/support/COrdinaryUser.h"

#include <unistd.h>

#include <stdexcept>

namespace nestrix::support {

COrdinaryUser::COrdinaryUser() : m_nUser(geteuid()) {
    constexpr uid_t NOBODY = 65534;
    if (m_nUser == 0 && seteuid(NOBODY) != 0) {
        throw std::runtime_error("the rights of root cannot be given up");
    }
}

COrdinaryUser::~COrdinaryUser() {
    // Cannot fail: the saved user of a process that gave up root this way is still root.
    (void)!seteuid(m_nUser);
}

}  // namespace nestrix::support
