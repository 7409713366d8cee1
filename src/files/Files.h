#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace turnpost {

// Paths are UTF-8. Files are looked up without regard to case in every part of the path, since the
// game comes from a system that has none; where the system tells case apart, an exact match goes
// first, then the first name in byte order.

/// The path for a call of the system. On Windows one that is too long for most calls gets the form
/// that has no limit; what that form looks like is nobody else's business.
std::filesystem::path toNativePath(const std::string& path);
std::string fromNativePath(const std::filesystem::path& path);

/// The path as it is, to be taken apart.
std::filesystem::path pathParts(const std::string& path);

/// True for a path that leads to the same place wherever the program was started: on Windows with
/// its drive or server, elsewhere from the root. False for an empty one.
bool isAbsolutePath(const std::string& path);

/// The path as it stands on disk of whatever exists there (file or folder); nothing when there is
/// nothing or it cannot be looked at. On Windows it stays in the case it was asked for.
std::optional<std::string> findPath(const std::string& path);

/// The path as it stands on disk of an ordinary file, links followed. A folder, a pipe or a device
/// is no file: reading one could hang or never end.
std::optional<std::string> findFile(const std::string& path);

bool isFolder(const std::string& path);

/// The number of bytes of an ordinary file; nothing when the system does not tell.
std::optional<std::uintmax_t> fileSize(const std::string& path);

/// Throws FileError when no ordinary file can be read or written under this path, with words that
/// say why: it holds a NUL, where the system's calls would see its end, or a folder, a pipe or a
/// device is there. A path with nothing there is good.
void requireNoOtherKind(const std::string& path);

/// True when the folder exists and holds at least one ordinary file.
bool folderHoldsFile(const std::string& folder);

/// No mail server takes more, and a file of any size that somebody has named could fill the memory.
inline constexpr size_t maxFileBytes = size_t{256} << 20;

/// The file's bytes, read once: all of them, or the first `limit`. Throws FileError when it is no
/// ordinary file, cannot be read to its end, or, without a limit, is larger than maxFileBytes.
std::string readFile(const std::string& path, size_t limit = std::string::npos);

/// How a save waits for another program that holds the file, as Windows lets it do: it tries again
/// after each pause, for so long.
struct RetryLimits {
    std::chrono::milliseconds timeout{2000};
    /// A few milliseconds when empty.
    std::function<void()> pause;
};

/// Replaces the file by these bytes, whole or not at all: they go to a temporary neighbour with an
/// unpredictable name, are flushed to the disk, and are renamed into place. A link stays a link and
/// its target is replaced (one that leads nowhere gets a target, but is refused on Windows);
/// permissions and attributes of an existing file stay, a new one has those that the system gives.
/// The folder must exist. A file system that keeps no permissions is no failure, unless others
/// could then read what they could not. Throws FileError; the old file is then untouched and no
/// neighbour is left. So it is when the file is write-protected, the path holds a NUL, or what is
/// there is no ordinary file.
void replaceFile(const std::string& path, const std::string& bytes, const RetryLimits& limits = {});

} // namespace turnpost
