#pragma once

#include <string>

namespace turnpost {

/// The folder of the running program, without a trailing separator; empty when the system does not
/// tell.
std::string programFolder();

/// The person's configuration folder for this program, without a trailing separator; it need not
/// exist. Empty when the person has no home.
std::string configurationFolder();

/// True when files may be made in the folder.
bool isFolderWritable(const std::string& folder);

} // namespace turnpost
