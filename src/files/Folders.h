#pragma once

#include <string>

namespace turnpost {

/// The folder of the running program, without a trailing separator; empty when the system cannot
/// tell it.
std::string programFolder();

/// The user's configuration folder for this program, without a trailing separator; it need not
/// exist. Empty when the user has no home folder.
std::string configurationFolder();

/// True when files may be created in the folder.
bool isFolderWritable(const std::string& folder);

} // namespace turnpost
