#pragma once

#include "text/Refusal.h"

#include <optional>
#include <string>
#include <vector>

namespace turnpost {

/// A line of the folder list.
struct FolderLine {
    /// The folder's name; for the first line the root's ("/", "C:\", "\\server\share").
    std::string name;
    /// The whole path, to open the folder by.
    std::string path;
    /// Why it cannot be opened here (see whyUnusable).
    std::optional<Refusal> unusable;
};

/// A line of the file list.
struct FileLine {
    std::string name;
    /// Why it cannot be chosen.
    std::optional<Refusal> unusable;
};

/// What the picker shows of a folder. Texts are UTF-8, but names keep their bytes on a system that
/// keeps bytes: they may be no UTF-8, and only these bytes open them.
struct FolderList {
    /// The folders from the root down to the current one, then the current one's subfolders.
    std::vector<FolderLine> lines;
    /// The current folder's index in `lines`, which is also its depth below the root.
    size_t current = 0;
    /// The current folder's files that match.
    std::vector<FileLine> files;

    /// The current folder: absolute, with the system's separators and none at its end but a root's
    /// own. Empty when nothing is listed.
    std::string folder() const { return lines.empty() ? std::string() : lines[current].path; }
};

/// Why no file of the program can hold this path: it is not valid UTF-8, as names from old archives
/// are, or holds a line break. Read back, it would be another path.
std::optional<Refusal> whyUnusable(const std::string& path);

/// Lists a folder with its files that match the pattern, in one reading. Subfolders and files are
/// sorted without regard to case, hidden ones after the others. Links count as what they lead to.
/// Nothing when the folder cannot be listed: gone, no folder, no permission, or an unusable path.
std::optional<FolderList> listFolder(const std::string& folder, const std::string& pattern);

/// The same, but of the nearest folder above when the folder itself cannot be listed. So a host who
/// opens a closed subfolder stays where they are, one whose folder has gone lands above it, and one
/// whose way up leads through a closed folder is not caught below it.
std::optional<FolderList> listNearestFolder(const std::string& folder, const std::string& pattern);

/// True when the name matches the pattern without regard to case. "*" stands for any characters, ""
/// included; *.* matches every name, with or without a ".".
bool matchesPattern(const std::string& name, const std::string& pattern);

} // namespace turnpost
