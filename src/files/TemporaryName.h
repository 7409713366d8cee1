#pragma once

#include <string>

namespace turnpost {

/// Full path of a file beside `path` that does not exist, with a name that nobody can foresee.
std::string unpredictableNeighbour(const std::string& path);

} // namespace turnpost
