#pragma once

#include <vector>

#include "packing/CContactSink.h"

namespace nestrix::support {

/// Keeps the contacts of a placement, in drop order.
class CContactLog final : public CContactSink {
public:
    void ContactFound(const mgVector3& contact) override { m_Contacts.push_back(contact); }

    std::vector<mgVector3> m_Contacts;
};

}  // namespace nestrix::support
