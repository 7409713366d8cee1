#pragma once

#include <optional>
#include <string>
#include <vector>

namespace turnpost {

struct FolderEntry {
    /// As it stands on disk: UTF-8, or whatever bytes a system that keeps bytes has there.
    std::string name;
    /// True for a folder, false for an ordinary file; links count as what they lead to.
    bool folder = false;
    /// The system's own mark, or a period in front of the name.
    bool hidden = false;
};

/// Every folder and ordinary file in the folder, in the system's order; nothing when the folder
/// cannot be read. Pipes, devices and links that lead nowhere are left out, and so is what has no
/// name in UTF-8 where the system has no bytes to keep instead.
std::optional<std::vector<FolderEntry>> folderEntries(const std::string& folder);

} // namespace turnpost
