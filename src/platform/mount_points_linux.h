#pragma once

#include <set>
#include <string>

namespace fennick {

// The folders below `folder` on which file systems are mounted.
std::set<std::string> mountPointsBelow(const std::string &folder);

} // namespace fennick
