#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace turnpost {

// Paths are UTF-8. Files are looked up without regard to case in every part of the path, since the
// game comes from a system that has none; an exact match goes first, then the first name in byte
// order.

std::filesystem::path toNativePath(const std::string& path);
std::string fromNativePath(const std::filesystem::path& path);

/// The path as it stands on disk of whatever exists there (file or folder); nothing when there is
/// nothing or it cannot be looked at.
std::optional<std::string> findPath(const std::string& path);

/// The path as it stands on disk of an ordinary file, links followed. A folder, a pipe or a device
/// is no file: reading one could hang or never end.
std::optional<std::string> findFile(const std::string& path);

/// True when the folder exists and holds at least one ordinary file.
bool folderHoldsFile(const std::string& folder);

/// No mail server takes more, and a file of any size that somebody has named could fill the memory.
inline constexpr size_t mostFileBytes = size_t{256} << 20;

/// The file's bytes, read once: all of them, or the first `limit`. Throws FileError when it is no
/// ordinary file, cannot be read to its end, or, without a limit, is larger than mostFileBytes.
std::string readFile(const std::string& path, size_t limit = std::string::npos);

/// Replaces the file by these bytes, whole or not at all: they go to a temporary neighbour with an
/// unpredictable name, are flushed to the disk, and are renamed into place. A link stays a link and
/// its target is replaced; permissions of an existing file stay, a new one follows the umask. The
/// folder must exist. Throws FileError; the old file is then untouched and no neighbour is left.
void replaceFile(const std::string& path, const std::string& bytes);

} // namespace turnpost
