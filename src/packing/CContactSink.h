#pragma once

#include "geom/Vector.h"

namespace nestrix {

/// Hears where each dropped polygon comes to rest, in world coordinates and in drop order.
class CContactSink {
public:
    virtual void ContactFound(const mgVector3& contact) = 0;

protected:
    ~CContactSink() = default;
};

}  // namespace nestrix
