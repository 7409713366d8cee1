#pragma once

#include "text/Refusal.h"

#include <optional>
#include <string>
#include <vector>

namespace turnpost {

/// A line of the folder list.
struct FolderLine {
    /// The folder's name; in the first line the root ("/", "C:\", "\\server\share").
    std::string name;
    /// The full path that opens the folder.
    std::string path;
    /// Why the folder cannot be opened (see whyUnusable).
    std::optional<Refusal> unusable;
};

/// A line of the file list.
struct FileLine {
    std::string name;
    /// Why the file cannot be chosen.
    std::optional<Refusal> unusable;
};

/// What the picker shows of a folder. Names are UTF-8; on Linux they are raw bytes and need not be
/// UTF-8, so pass them back unchanged.
struct FolderList {
    /// The folders from the root down to the current folder, then its subfolders.
    std::vector<FolderLine> lines;
    /// The current folder's index in `lines`, which is also its depth below the root.
    size_t current = 0;
    /// The current folder's files that match the pattern.
    std::vector<FileLine> files;

    /// Absolute path of the current folder with the system's separators; only a root has one at its
    /// end. Empty when nothing is listed.
    std::string folder() const { return lines.empty() ? std::string() : lines[current].path; }
};

/// Why no file of the program can hold this path: it is not valid UTF-8 (such names come from old
/// archives) or holds a line break. Reading it back would give another path.
std::optional<Refusal> whyUnusable(const std::string& path);

/// Lists a folder and its files that match the pattern; reads the folder once. Subfolders and files
/// are sorted without regard to case, with hidden ones last. Links count as what they lead to.
/// Returns nothing when the folder does not exist, is not a folder, may not be read, or has an
/// unusable path.
std::optional<FolderList> listFolder(const std::string& folder, const std::string& pattern);

/// Lists the folder or, when it cannot be listed, the nearest folder above it that can be. So the
/// host stays in the current folder when a subfolder cannot be opened, gets to the folder above
/// when the current folder was deleted, and can go up past a folder that cannot be opened.
std::optional<FolderList> listNearestFolder(const std::string& folder, const std::string& pattern);

/// True when the name matches the pattern without regard to case. "*" stands for any number of
/// characters, even none. *.* matches every name, with or without a ".".
bool matchesPattern(const std::string& name, const std::string& pattern);

} // namespace turnpost
