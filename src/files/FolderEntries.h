#pragma once

#include <optional>
#include <string>
#include <vector>

namespace turnpost {

struct FolderEntry {
    /// UTF-8; on Linux the raw bytes of the name.
    std::string name;
    /// True for a folder, false for an ordinary file; links count as what they lead to.
    bool folder = false;
    /// True with the system's hidden attribute, or with a period at the start of the name.
    bool hidden = false;
};

/// Every folder and ordinary file in the folder, in the system's order; nothing when the folder
/// cannot be read. Pipes, devices and links that lead nowhere are left out. On Windows, names with
/// unpaired surrogates are left out too.
std::optional<std::vector<FolderEntry>> folderEntries(const std::string& folder);

} // namespace turnpost
