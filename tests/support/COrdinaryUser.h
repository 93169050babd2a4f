#pragma once

#include <sys/types.h>

namespace nestrix::support {

/// While it lives, the process has no more rights than an ordinary user, so that a file without permissions
/// is unreadable even where tests run as root.
class COrdinaryUser {
public:
    COrdinaryUser();
    ~COrdinaryUser();
    COrdinaryUser(const COrdinaryUser&) = delete;
    COrdinaryUser& operator=(const COrdinaryUser&) = delete;

private:
    uid_t m_nUser;
};

}  // namespace nestrix::support
