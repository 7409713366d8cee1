#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace turnpost {

// Paths are UTF-8. Every part of a path is looked up without regard to case, because the game comes
// from a system that ignores case. If several names differ only in case, an exact match comes
// first, then the first name in byte order.

/// The path for a call of the system. On Windows a path that is too long for most calls gets the
/// prefix \\?\, which fromNativePath removes.
std::filesystem::path toNativePath(const std::string& path);
std::string fromNativePath(const std::filesystem::path& path);

/// The path without that prefix, for splitting into parts.
std::filesystem::path pathParts(const std::string& path);

/// True for a path that does not depend on the current folder: on Windows it has a drive or server,
/// elsewhere it starts at the root. False for an empty path.
bool isAbsolutePath(const std::string& path);

/// The on-disk spelling of the path of an existing file or folder; on Windows the case stays as it
/// was asked for. Nothing when there is none or it cannot be examined.
std::optional<std::string> findPath(const std::string& path);

/// The on-disk spelling of the path of an ordinary file or a link to one. Nothing for a folder, a
/// pipe or a device, because reading it could hang or never end.
std::optional<std::string> findFile(const std::string& path);

/// True for a folder, or a link to one.
bool isFolder(const std::string& path);

/// The number of bytes of an ordinary file; nothing when the system cannot tell it.
std::optional<std::uintmax_t> fileSize(const std::string& path);

/// Throws FileError, with the reason, when the path cannot be that of an ordinary file: it holds a
/// NUL, where the system's calls would end it, or it leads to a folder, a pipe or a device. Accepts
/// a path with nothing there.
void requireNoOtherKind(const std::string& path);

/// True when the folder exists and holds at least one ordinary file.
bool folderHoldsFile(const std::string& folder);

/// The largest file that is read as a whole, in bytes. No mail server accepts a larger one, and it
/// could fill the memory.
inline constexpr size_t maxFileBytes = size_t{256} << 20;

/// The file's bytes, read once: all of them, or the first `limit`. Throws FileError when it is not
/// an ordinary file, cannot be read to its end, or, without a limit, is larger than maxFileBytes.
std::string readFile(const std::string& path, size_t limit = std::string::npos);

/// How long and how often a save is tried again while another program has the file open (Windows).
struct RetryLimits {
    std::chrono::milliseconds timeout{2000};
    /// Waits between two attempts; when empty, a few milliseconds pass.
    std::function<void()> pause;
};

/// Replaces the file by these bytes, completely or not at all: they are written to a temporary file
/// with an unpredictable name in the same folder, flushed to the disk, and renamed into place. A
/// link stays a link and its target is replaced. A link that leads nowhere gets a target, except on
/// Windows, where it is refused. An existing file keeps its permissions and attributes; a new file
/// gets those that the system gives. A file system without permissions is no failure, unless others
/// could then read what they could not read before. The folder must exist. Throws FileError, also
/// when the file is write-protected, is not an ordinary file, or the path holds a NUL. The old file
/// is then untouched and no temporary file is left.
void replaceFile(const std::string& path, const std::string& bytes, const RetryLimits& limits = {});

} // namespace turnpost
