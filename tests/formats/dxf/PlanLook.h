#pragma once

#include <string>
#include <vector>

namespace nestrix::support {

/// What ezdxf and shapely say of a document, line by line: see look-at-plan.
[[nodiscard]] std::vector<std::string> LookAtPlan(const std::string& document);

}  // namespace nestrix::support
