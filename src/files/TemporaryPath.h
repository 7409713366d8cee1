#pragma once

#include <string>

namespace turnpost {

/// A path beside `path` with an unpredictable name. Open it with O_EXCL or CREATE_NEW, which make
/// sure that it is new.
std::string temporaryPathBeside(const std::string& path);

} // namespace turnpost
